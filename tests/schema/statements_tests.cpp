// The statements that write and read by position, as the forms join them, against the tables: each value has
// to come back where its reader looks for it. The words True and False stand here as the engine takes them.
#include "tests/schema/company.h"

using namespace Qt::StringLiterals;

namespace tests {
namespace {

/// Values that tell their own place: 'v0', 'v1' for texts (t), 0.5, 1.5 for numbers (n), 0 and -1 for
/// booleans (b).
QStringList Values(const QString& kinds) {
    QStringList values;
    for (int place = 0; place < kinds.size(); ++place) {
        if (kinds[place] == u't') values += u"'v%1'"_s.arg(place);
        if (kinds[place] == u'n') values += u"%1.5"_s.arg(place);
        if (kinds[place] == u'b') values += QString::number(-(place % 2));
    }
    return values;
}

/// The same as they read back.
QStringList Read(const QString& kinds) {
    return Values(kinds).replaceInStrings(u"'"_s, u""_s);
}

QString Times(int count, QChar kind) {
    return QString(count, kind);
}

class Statements : public Company {
  protected:
    void Insert(const QString& head, const QString& kinds) {
        ASSERT_TRUE(Runs(db(), head + Values(kinds).join(u',') + u")"_s)) << head.toStdString();
    }
    /// Fields of the only row of a query, from one place on.
    QStringList Fields(const QString& query, int from = 0, int count = -1) {
        const auto rows = Rows(db(), query);
        EXPECT_EQ(rows.size(), 1U) << query.toStdString();
        return rows.empty() ? QStringList() : rows[0].mid(from, count);
    }
};

TEST_F(Statements, AWaybillReadsBackBoxByBox) {
    const QString kinds = Times(20, u't') + u"nnnnttnnnttttnnnttttttt"_s + u"nnn"_s + Times(6, u'n');
    ASSERT_EQ(kinds.size(), 52);
    Insert(
        u"insert into B01 (F1,F101,F102,F103,F201,F202,F203,F2031,F2041,F2042,F2051,F2052,F2061,F2062,F2071,"
        "F2072,F208,F301,F302,F303,F401,F402,F403,F404,F405,F501,F502,F503,F504,F601,F602,F603,F604,F505,"
        "F507,"
        "F506,F701,F702,F703,F704,F2021,F605,F606,DF,YJ,XJ,F508,F509,F510,F4051,F4052,F4053) VALUES ("_s,
        kinds);
    // The card takes fields 0 to 42 by place and the last six by name.
    const QString all = u"select * from B01 where F1='V0'"_s;
    EXPECT_EQ(Fields(all, 0, 43), Read(kinds).mid(0, 43));
    EXPECT_EQ(Fields(u"select F508,F509,F510,F4051,F4052,F4053 from B01"_s), Read(kinds).mid(46));
    EXPECT_EQ(Fields(u"select DF,YJ,XJ from B01"_s), Read(kinds).mid(43, 3));
    // What the computations, the list and the reports pick by name.
    EXPECT_EQ(Fields(u"select F402,F404,F507,F506,F505,F504,F603,F604,F2021,F602 from B01"_s),
              QStringList({u"21.5"_s, u"23.5"_s, u"34.5"_s, u"35.5"_s, u"33.5"_s, u"28.5"_s, u"v31"_s,
                           u"v32"_s, u"v40"_s, u"v30"_s}));
    // An amount that is empty text is refused, as the total of a waybill has to be a number.
    EXPECT_FALSE(Runs(db(), u"insert into B01 (F1,DF) values ('x','')"_s));
    EXPECT_FALSE(Runs(db(), u"insert into B01 (F1,F103) values ('it's')"_s));
}

TEST_F(Statements, TariffsReadBackByPlace) {
    const QString columns = u"F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888"_s;
    Insert(u"insert into MS1 ("_s + columns + u") VALUES ("_s, Times(20, u'n'));
    EXPECT_EQ(Fields(u"select "_s + columns + u" from MS1"_s), Read(Times(20, u'n')));

    const QString quote = u"tt"_s + Times(19, u'n');
    Insert(
        u"insert into M031 (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,F20) VALUES ("_s,
        quote);
    EXPECT_EQ(Fields(u"select * FROM M031 WHERE F0='v0' and F1='v1'"_s), Read(quote));

    const QString channel = u"ttt"_s + Times(15, u'n');
    Insert(u"insert into M01 (F1,F2,F3,D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9) VALUES ("_s, channel);
    EXPECT_EQ(Fields(u"select * from M01 where F1='v0'"_s), Read(channel));
    EXPECT_EQ(Fields(u"select D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9 FROM M01 WHERE F1='v0'"_s),
              Read(channel).mid(3));
}

TEST_F(Statements, ZonesReadBackInTheOrderOfTheirGrids) {
    const QString zone = u"tttnt"_s + Times(19, u'n') + u't';
    Insert(
        u"insert into M02 "
        u"(F1,F2,F4,F6,F8,P101,P102,P201,P202,P301,P302,P303,P304,P305,P306,P307,P308,P309,P310,"
        "P311,P312,P313,P314,P315,F3) VALUES ("_s,
        zone);
    EXPECT_EQ(
        Fields(u"select M02.F1,M02.F2,M02.F4,M02.F6,M02.F8,M02.P101,M02.P102,M02.P201,M02.P202,M02.P301,"
               "M02.P302,M02.P303,M02.P304,M02.P305,M02.P306,M02.P307,M02.P308,M02.P309,M02.P310,M02.P311,"
               "M02.P312,M02.P313,M02.P314,M02.P315 from M02 order by M02.F1"_s),
        Read(zone).mid(0, 24));
    EXPECT_EQ(Fields(u"select F3 from m02 where f1='V0'"_s), QStringList(u"v24"_s));

    const QString cost = u"ttttnt"_s + Times(15, u'n') + Times(10, u'b');
    Insert(
        u"insert into M011 "
        u"(F1,F2,F3,F4,F6,F8,P101,P102,P201,P202,P300,P301,P302,P303,P304,P305,P306,P307,P308,"
        "P309,P3,A30,A31,A32,A33,A34,A35,A36,A37,A38,A39) VALUES ("_s,
        cost);
    const QStringList stored = Read(cost);
    EXPECT_EQ(
        Fields(u"select P101,P102,P201,P202,P3,P300,P301,P302,P303,P304,P305,P306,P307,P308,P309,A30,A31,A32,"
               "A33,A34,A35,A36,A37,A38,A39 FROM M011 WHERE F1='v0'"_s),
        stored.mid(6, 4) + stored.mid(20, 1) + stored.mid(10, 10) + stored.mid(21));
    for (const QString& table : {u"M021"_s, u"M0111"_s}) {
        Insert(u"insert into %1 (F0,F1,F2,F8) VALUES ("_s.arg(table), u"tttt"_s);
        EXPECT_EQ(Fields(u"select F1,F2,F8 FROM %1 WHERE F0='v0'"_s.arg(table)), Read(u"tttt"_s).mid(1));
    }
}

TEST_F(Statements, PeopleReadBackByPlace) {
    const QString customer = Times(11, u't') + u'n' + Times(4, u't');
    Insert(u"insert into M03 (F1,F2,F301,F302,F401,F402,F5,F6,F7,F8,F9,P888,F91,F92,F93,F94) VALUES ("_s,
           customer);
    // The list shows fourteen columns; what is paid and owed has no writer.
    EXPECT_EQ(Fields(u"select M03.* FROM M03 ORDER BY M03.F1"_s, 0, 14),
              Read(customer).mid(0, 12) + QStringList({u"NULL"_s, u"NULL"_s}));
    EXPECT_EQ(Fields(u"select F91,F92,F93,F94 from M03 where F1='v0'"_s), Read(customer).mid(12));

    for (const QString& table : {u"M030"_s, u"M04"_s, u"M05"_s, u"M06"_s}) {
        Insert(u"insert into %1 (F1,F2) VALUES ("_s.arg(table), u"tt"_s);
        EXPECT_EQ(Fields(u"select * from %1 order by F1"_s.arg(table)), Read(u"tt"_s));
    }

    ASSERT_TRUE(Runs(db(), u"delete from TE1 WHERE F1='001'"_s));
    ASSERT_TRUE(Runs(db(),
                     u"insert into TE1 (F1,F2,F3,F60,F61,F62,F63,F64,F65,F66,F67) VALUES "
                     "('002','王','',1,0,1,0,1,0,1,1)"_s));
    EXPECT_EQ(Fields(u"select * from TE1 order by F1"_s, 0, 3), QStringList({u"002"_s, u"王"_s, u""_s}));
    // The typed origin that is no list item is -1, and the twentieth is as good a right as any.
    for (const QString& place : {u"-1"_s, u"19"_s}) {
        ASSERT_TRUE(Runs(db(), u"update TE1 set F67="_s + place + u" where F1='002'"_s));
        EXPECT_EQ(Fields(u"select F60,F61,F62,F63,F64,F65,F66,F67 FROM TE1 WHERE F1='002'"_s).last(), place);
    }
}

TEST_F(Statements, APostLeavesTheOtherAmountAtNought) {
    const QString head = u"insert into TB1 (S2,SN,LB,F1,F2,F3,%1,S1,F5,F6,F10,H8) VALUES("_s;
    const QString values =
        u"'%1',%2,%3,'%4','2024-03-01','飞达',12.5,'李','王','王','','2024-03-01 09:30:00')"_s;
    ASSERT_TRUE(Runs(db(), head.arg(u"YF"_s) + values.arg(u"增加应收"_s, u"131"_s, u"-9"_s, u"YS1"_s)));
    ASSERT_TRUE(Runs(db(), head.arg(u"FK"_s) + values.arg(u"收款"_s, u"107.75"_s, u"-10"_s, u"SK1"_s)));
    EXPECT_EQ(Row(db(), u"select YF,FK,K,QC,QM,F30 from TB1 where F1='ys1'"_s), "12.5|0.0|0|NULL|NULL|NULL");
    EXPECT_EQ(Row(db(), u"select YF,FK,K,QC,QM,F30 from TB1 where F1='sk1'"_s), "0.0|12.5|0|NULL|NULL|NULL");
    EXPECT_EQ(Row(db(), u"select sum(YF-FK) from TB1 where K=0"_s), "0.0");
    EXPECT_EQ(Row(db(), u"select group_concat(F1) from (select F1 from TB1 order by SN)"_s), "SK1,YS1");
    // Taking a row out of its chain and giving it another place.
    ASSERT_TRUE(Runs(db(), u"update TB1 set sn=0 where sn=107.75"_s));
    ASSERT_TRUE(Runs(db(),
                     u"update TB1 set F1='SK1',F2='2024-03-02',F3='飞达',FK=1,S1='',F10='',"
                     "H8='2024-03-02 00:00:00',SN=138.6875 Where F1='SK1'"_s));
    EXPECT_EQ(Row(db(), u"SELECT SN FROM TB1 WHERE F1='SK1'"_s), "138.6875");
    EXPECT_FALSE(Runs(db(), u"update TB1 set F2='' where F1='SK1'"_s));
}

TEST_F(Statements, TheCounterCountsAndRemembersTheDate) {
    ASSERT_TRUE(Runs(db(), u"update sysinfo set Setval=setval+1 Where ID=100"_s));
    ASSERT_TRUE(Runs(db(), u"update sysinfo set Setval=setval+30 Where ID=100"_s));
    ASSERT_TRUE(Runs(db(), u"update  sysinfo set setStr='2024-03-01' where ID=9999"_s));
    EXPECT_EQ(Row(db(), u"select SetVal from SysInfo Where ID=100"_s), "131.0");
    EXPECT_EQ(Row(db(), u"select setStr from SysInfo Where ID=9999"_s), "2024-03-01");
}

TEST_F(Statements, WorkTablesTakeWhatTheReportsPutIn) {
    const struct {
        QString head;
        QString kinds;
    } rows[] = {
        {u"insert into prntm03 (F1,F2,F31,F32,F33,F34,F35,F36,F37,F38,F39) VALUES ("_s,
         u"tt"_s + Times(9, u'n')},
        {u"insert into prntc01 (F1) VALUES("_s, u"t"_s},
        {u"insert into prntc023 (F1,F2,F3,F4,F5,F6) VALUES("_s, Times(6, u't')},
        {u"insert into prntc04 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15) VALUES("_s,
         Times(15, u't')},
        {u"insert into prntc05 (F1,F2,F3,F4,F5,F6,F7) VALUES("_s, Times(7, u't')},
        {u"Insert into Plist (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,V1) VALUES("_s, Times(11, u't') + u'n'},
        {u"Insert into PrTA1 (F1,F2,F3,F4,F5,F6) VALUES("_s, Times(6, u't')},
    };
    for (const auto& row : rows) {
        const QString table = row.head.section(u' ', 2, 2);
        Insert(row.head, row.kinds);
        EXPECT_EQ(Fields(u"select * from "_s + table), Read(row.kinds)) << table.toStdString();
        EXPECT_TRUE(Runs(db(), u"DELETE FROM "_s + table));
    }
    // The margin table has blank columns and fills twelve of fifteen.
    EXPECT_TRUE(Runs(db(),
                     u"insert into prntc04 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12) "
                     "VALUES('飞达','10','20','0','30','12','1','','','','17.00','李')"_s));
    // A price that was emptied by hand breaks the sheet's statement.
    EXPECT_FALSE(Runs(db(), u"insert into prntm03 (F1,F2,F31,F32) VALUES ('','',,)"_s));
}

TEST_F(Statements, InvoiceAccountsKeepTheirBalance) {
    ASSERT_TRUE(Runs(db(), u"insert into TA2 (F1,F2,F3,F4,F5) values ('C1','飞达','路','1','2')"_s));
    ASSERT_TRUE(Runs(db(), u"insert into TD1 (F1,F2,F3,F9) values ('N1','2024-03-01','C1',100)"_s));
    // A note on which nothing was paid has nought paid, and not nothing.
    EXPECT_EQ(Row(db(), u"SELECT F9-F91 AS SL FROM TD1 WHERE F1='n1'"_s), "100.0");
    ASSERT_TRUE(Runs(db(), u"update  TD1 SET F91=F91+30.5 WHERE F1='N1'"_s));
    ASSERT_TRUE(Runs(db(), u"insert into TD2 (F1,F2,F3,F4,F5) values('C1','N1','2024-03-02',30.5,69.5)"_s));
    EXPECT_EQ(Row(db(),
                  u"select TD2.F1,TA2.F2,TD2.F2,TD1.F9,TD2.F3,TD2.F4,TD2.F5 from (TD2 left join TA2 on "
                  "TD2.F1=TA2.F1) left join  TD1 ON TD2.F2=TD1.F1 "_s),
              "C1|飞达|N1|100.0|2024-03-02|30.5|69.5");
    EXPECT_EQ(Row(db(),
                  u"SELECT TD1.F3,TA2.F2,TD1.F1,TD1.F2,TD1.F9,TD1.F91,TD1.F9-TD1.F91 AS SL FROM TD1 LEFT "
                  "JOIN TA2 ON TD1.F3=TA2.F1 order by TD1.F3,TD1.F2,TD1.F1"_s),
              "C1|飞达|N1|2024-03-01|100.0|30.5|69.5");
    ASSERT_TRUE(Runs(db(),
                     u"Insert into PRTB2 (F0,F1,F3,F2,F6,F7,F8) VALUES('C1','飞达','N1','2024-03-01',100,"
                     "30.5,69.5)"_s));
    EXPECT_EQ(Row(db(), u"select F0,F1,F2,F3,F6,F7,F8 from PRTB2"_s),
              "C1|飞达|2024-03-01|N1|100.0|30.5|69.5");
}

}  // namespace
}  // namespace tests
