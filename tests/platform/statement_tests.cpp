// Every shape of statement that the forms and reports join, against the tables as they come with the program:
// each must be understood by the engine and find the columns it names.
#include "platform/errors.h"
#include "tests/support/company.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kSelects[] = {
    // Start-up, login, the plain record forms and their searches.
    u"select * from TE1 order by F1"_s,
    u"select F60,F61,F62,F63,F64,F65,F66,F67 FROM TE1 WHERE F1='002'"_s,
    u"Select M04.* from M04  Where M04.F1 like '*张*'   AND Not M04.F2 = '备注'   Or M04.F2 like '**'  "_s,
    u"select F602 FROM B01 WHERE F602='张三'"_s,
    // Tariffs.
    u"select F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888 from MS1"_s,
    u"select D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9 FROM M01 WHERE F1='Q1'"_s,
    u"select M01.F2 AS LB,M011.F1,M011.F2,M011.F6,M011.F8,M01.F1,M011.F4,M011.P101,M011.P300,M011.P3 from "
    u"M011,M01"
    " WHERE M011.F3=M01.F1 order by M011.F1"_s,
    u"select M01.F2 AS LB,M011.F1,M011.F2,M011.F6,M011.F8,M01.F1,M011.F4 from (M011 left join M01 on "
    " M011.F3=M01.F1) left join M0111 ON M0111.F0=M011.F1  Where M0111.F1 like '*东*'   And M011.F6 > 3 "
    "GROUP BY"
    " M01.F2,M011.F1,M011.F2,M011.F6,M011.F8,M01.F1,M011.F4 "_s,
    u"select A30,A31,A32,A33,A34,A35,A36,A37,A38,A39 FROM M011 WHERE F1='Z1'"_s,
    u"select M03.* FROM M03 ORDER BY M03.F1"_s,
    u"select * from M030 "_s,
    u"select M02.F1,M02.F2,M02.F4 from M02  WHERE M02.F1 LIKE 'z*' order by M02.F1"_s,
    u"select F1,F2,P101 ,P102,P201,P202,P301,P302,P315 from M02  where F1 like '*'"_s,
    u"select M031.F1,M02.F2,M031.F2,M031.F20 FROM M031,M02 WHERE M031.F1=M02.F1 AND M031.F0='K1' ORDER BY M031.F1"_s,
    // Waybills.
    u"select * from B01 where F1='KT1'"_s,
    u"select B01.F1,B01.F101,B01.F2031,B01.F301,B01.F401,B01.F501,M01.F2,M03.F2,B01.F602,B01.F604,B01.F103 "
    u"FROM (B01"
    " LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.f1=B01.f202    ORDER BY B01.F101 "_s,
    u"select B01.F1,M01.F2,M03.F2 FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on "
    u"M01.F1=B01.F202 "
    " Where datediff('d','2024-03-15',B01.F101 ) = 0  And B01.F402 < 2.5"_s,
    // The ledger.
    u"select top 1 F2 from TB1 order by F2 desc "_s,
    u"select top 1 F2,SN from TB1 where  datediff('d','2024-03-15',F2 ) <= 0 and F1<>'YS1' order by sn desc "_s,
    u"select top 1 F2,SN from TB1 where  datediff('d','2024-03-15',F2 ) > 0 and SN>31.5  and F1<>'YS1'  order by sn  "_s,
    u"select top 1 QM from TB1 where (F3='东方' AND  not (F6='' or F6 is null)) and sn<31 order by sn desc"_s,
    u"select SetVal from SysInfo Where ID=100"_s,
    u"select TOP 1000 TB1.F1,TB1.F2,TB1.F3,'','',TB1.YF,TB1.S1,TB1.F5,TB1.F10,TB1.SN FROM TB1   Where "
    u"TB1.lb=-9 "
    " order by TB1.sn  "_s,
    u"select TB1.F1,TB1.F2,TB1.F3,'','',TB1.FK,TB1.S1,TB1.F5,TB1.F10,TB1.SN FROM TB1   Where S1 = '张'   And"
    " datediff('d','2024-03-15',TB1.F2 ) > 0  and TB1.lb=10 order by TB1.sn  "_s,
    u"select TB1.F3,'' as mc,TB1.F1,TB1.LB,'','',TB1.QC,TB1.YF,TB1.FK,TB1.QM,TB1.S2 as yewu FROM TB1  WHERE "
    u"TB1.LB<0 "
    " AND TB1.F6<>'' and (not TB1.F6 is null) and TB1.K=0 and datediff('d','2024-02-29',TB1.F2)>=0 AND "
    " datediff('d','2024-03-15',TB1.F2)<=0  and TB1.F3 like '东*'  order by TB1.F3,TB1.SN"_s,
    // Reports.
    u"SELECT B01.F1,B01.F301,M03.F2,B01.F2031,B01.F401,B01.F404,B01.DF,B01.F103 FROM B01,M03 WHERE "
    u"B01.F603=M03.F1 "
    " And B01.F604<>'未出货' AND B01.F604<>'未审核' AND  datediff('d','2024-03-15',F101 ) = 0  AND f202='Q1'"_s,
    u"select F101 as 日期,F1 as 运单号,F301 as [D/S],F2031 as 目的地,F404 as 重量,F507 as 运费 from B01 "
    u"where "
    " F604<>'未出货' AND F604<>'未审核' AND  datediff('d','2024-02-15',F101 ) >= 0  And "
    "datediff('d','2024-03-15',F101"
    " ) <= 0  AND f202='Q1'"_s,
    u"select B01.F101,M03.F2,B01.F1,M01.F2,B01.F103 from B01,M01,M03 where     B01.F202=M01.F1 AND "
    u"B01.F603=M03.F1 AND "
    " datediff('d','2024-02-15',F101 ) >= 0  And datediff('d','2024-03-15',F101 ) <= 0 ORDER BY B01.F603"_s,
    u"select m03.f2,sum(B01.XJ) AS MXJ,SUM(B01.YJ) AS MYJ,SUM(B01.F504) AS ZZ,0 AS ML,M03.F8 AS YW  FROM "
    u"B01,M03 WHERE"
    " M03.F1=B01.F603  AND  datediff('d','2024-02-15',B01.F101 ) >= 0  And "
    "datediff('d','2024-03-15',B01.F101 ) <= 0 "
    " group by M03.F2,M03.F8 ORDER BY M03.F8 "_s,
    // Invoice accounts.
    u"select TD2.F1,TA2.F2,TD2.F2,TD1.F9,TD2.F3,TD2.F4,TD2.F5 from (TD2 left join TA2 on TD2.F1=TA2.F1) left "
    u"join  TD1"
    " ON TD2.F2=TD1.F1 order by TD2.F3"_s,
    u"SELECT TD1.F3,TA2.F2,TD1.F1,TD1.F2,TD1.F9,TD1.F91,TD1.F9-TD1.F91 AS SL FROM TD1 LEFT JOIN TA2 ON "
    u"TD1.F3=TA2.F1 "
    " WHERE datediff('d','2024-02-15',TD1.F2)>=0 AND  datediff('d','2024-03-15',TD1.F2)<=0  and TD1.F3 ='1' "
    "order by"
    " TD1.F3,TD1.F2,TD1.F1"_s,
    u"SELECT F9-F91 AS SL FROM TD1 WHERE F1='1'"_s,
};

const QString kWrites[] = {
    u"insert into M04 (F1,F2) VALUES ('张三','')"_s,
    u"insert into TE1 (F1,F2,F3,F60,F61,F62,F63,F64,F65,F66,F67) VALUES ('002','李','X',1,0,1,0,0,0,0,1)"_s,
    u"insert into M01 (F1,F2,F3,D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9) VALUES"
    " ('Q1','渠道','',0.5,0.5,0.5,0.5,2,21,45,0,0,0,0,0,0,0,0)"_s,
    u"insert into M011 (F1,F2,F3,F4,F6,F8,P101,P300,P3,A30,A31,A39) VALUES "
    u"('Z1','区','Q1','Zone',3,'',1,2,2,True,False,"
    "False)"_s,
    u"insert into M0111 (F0,F1,F2,F8) VALUES ('Z1','东京','Tokyo','')"_s,
    u"insert into M03 (F1,F2,F301,F302,F401,F402,F5,F6,F7,F8,F9,P888,F91,F92,F93,F94) VALUES"
    " ('K1','东方','','','','','','','','','',1,'','','','')"_s,
    u"insert into B01 (F1,F101,F603,F202,F301,F402,F604,DF,F508,F4053) VALUES"
    " ('KT1','2024-03-15','K1','Q1','D',2.4,'管理员',12.5,0,0)"_s,
    u"insert into TB1 (S2,SN,LB,F1,F2,F3,YF,S1,F5,F6,F10,H8) "
    u"VALUES('增加应收',31,-9,'YSKT1','2024-03-15','东方',12.5,"
    "'张','管理员','管理员','','2024-03-15 10:00:00')"_s,
    u"update TB1 set F1='YSKT1',F2='2024/3/14',F3='东方',YF=13,S1='',F10='',H8='2024-03-15 "
    u"10:00:01',SN=32.25 Where"
    " F1='YSKT1'"_s,
    u"update TB1 set Sn=0 where Sn=32.25"_s,
    u"update sysinfo set Setval=setval+30 Where ID=100"_s,
    u"update  sysinfo set setStr='2024-03-15' where ID=9999"_s,
    u"update TE1 set F67=-1 where F1='001'"_s,
    u"update B01 set F604='管理员' where F1='KT1'"_s,
    u"Insert into Plist (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,V1) VALUES('0001','a','','','','','','','','','',1)"_s,
    u"Insert into PrTA1 (F1,F2,F3,F4,F5,F6) VALUES('a','','','','','')"_s,
    u"insert into prntc01 (F1) VALUES('KT1')"_s,
    u"insert into prntm03 (F1,F2,F31,F32,F33,F34,F35,F36,F37,F38,F39) VALUES ('a','b',1,2.5,3,4,5,6,7,8,9)"_s,
    u"Insert into PRTB2 (F0,F1,F3,F2,F6,F7,F8) VALUES('1','a','b','2024-03-15',1,2,-1)"_s,
    u"insert into TD1 (F1,F2,F3,F9) values ('1','2024-3-1','1',100)"_s,
    u"update  TD1 SET F91=F91+12.5 WHERE F1='1'"_s,
    u"insert into TD2 (F1,F2,F3,F4,F5) values('1','1','2024-03-15',12.5,87.5)"_s,
    u"delete from M031 where F1 in (select F1 from M02 where F3='Q1')"_s,
    u"DELETE FROM TB1 WHERE F1='YFKT1' OR F1='YSKT1'"_s,
    u"delete from m011"_s,
};

TEST(Statements, AreUnderstoodOnEmptyAndOnFilledTables) {
    tests::Company company;
    const auto selectAll = [&](const char* when) {
        for (const QString& statement : kSelects) {
            try {
                company.Rows(statement);
            } catch (const DatabaseError& error) {
                ADD_FAILURE() << when << ": " << statement.toStdString() << ": " << error.what();
            }
        }
    };
    selectAll("empty");
    for (const QString& statement : kWrites) {
        try {
            company.Run(statement);
        } catch (const DatabaseError& error) {
            ADD_FAILURE() << statement.toStdString() << ": " << error.what();
        }
        if (statement == u"update  sysinfo set setStr='2024-03-15' where ID=9999"_s) selectAll("filled");
    }
    EXPECT_EQ(company.Answer(u"select SL,F2 from (SELECT F9-F91 AS SL,F2 FROM TD1 WHERE F1='1')"_s),
              u"87.5|2024-03-01"_s);
}

}  // namespace
