// The dialect, against a real encrypted file: what each kind of statement must find or leave behind.
#include "platform/dao/database.h"
#include "platform/dao/dialect/functions.h"
#include "platform/errors.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kTables = {
    u"create table TB1 (F1 TEXT COLLATE NOCASE, F2 DATE, F3 TEXT COLLATE NOCASE, SN DOUBLE"
    " check(typeof(SN) not in ('text','blob')), H8 DATE)"_s,
    u"create index TB1_F2 on TB1 (F2)"_s,
    u"create index TB1_SN on TB1 (SN)"_s,
    u"create index TB1_F3_SN on TB1 (F3, SN)"_s,
    u"create table B01 (F1 TEXT COLLATE NOCASE, F101 TEXT COLLATE NOCASE, F603 TEXT COLLATE NOCASE,"
    " F202 TEXT COLLATE NOCASE, DF DOUBLE)"_s,
    u"create index B01_F101 on B01 (F101)"_s,
    u"create table M01 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE)"_s,
    u"create index M01_F1 on M01 (F1)"_s,
    u"create table M03 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE, A30 BOOLEAN)"_s,
    u"create table SysInfo (ID INTEGER, Setval DOUBLE, setStr TEXT COLLATE NOCASE)"_s,
    u"insert into SysInfo values (100, 5, null), (9999, null, '')"_s,
    u"insert into TB1 values ('A1','2024-03-09','甲',30,null), ('A2','2024-03-10 08:30:00','乙',10,null),"
    " ('A3','2024-03-10','甲',20,null), ('A4','2024-03-11','丙',40,null), ('A5',null,'丁',50,null),"
    " ('a6','2023-12-31 23:59:59','甲',20,null)"_s,
    u"insert into B01 values ('W1','2024-03-10','C2','H1',1), ('W2','','C1','H9',2),"
    " ('W3','2024-03-09','C1','H1',4)"_s,
    u"insert into M03 values ('C1','东方',1), ('C2','O_x',0), ('C3','100%',null), ('C4','ox',-1)"_s,
    u"insert into M01 values ('H1','渠道一')"_s,
};

/// The rows as text, fields joined by "|", null as "-".
QString Found(dao::Database& db, const QString& statement) {
    auto rows = db.OpenRecordset(statement);
    QStringList lines;
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList line;
        for (int i = 0; i < rows.FieldCount(); ++i)
            line << (rows.Fields(i).IsNull() ? u"-"_s : rows.Fields(i).Text());
        lines << line.join(u'|');
    }
    return lines.join(u' ');
}

QString Refused(dao::Database& db, const QString& statement) {
    try {
        if (statement.startsWith(u"select"_s, Qt::CaseInsensitive))
            db.OpenRecordset(statement);
        else
            db.Execute(statement);
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.Statement(), statement);
        EXPECT_FALSE(error.GroupLost());
        return error.Text();
    }
    return u"(went through)"_s;
}

class Dialect : public testing::Test {
  protected:
    const tests::DataFile file_{kTables};
    std::unique_ptr<dao::Database> db_ = dao::Database::Open(file_.Path(), file_.Connect());
};

struct Case {
    QString statement;
    QString expected;
};

TEST_F(Dialect, FindsTheRowsThatTheStatementMeans) {
    const Case cases[] = {
        // Days, whatever the time of day, from both sides and with both orders of arguments.
        {u"select F1 from TB1 where datediff('d','2024-03-10',F2 ) < 0"_s, u"A1 a6"_s},
        {u"select F1 from TB1 where datediff('d','2024-03-10',F2 ) <= 0"_s, u"A1 A2 A3 a6"_s},
        {u"select F1 from TB1 where datediff('d','2024-03-10',F2 ) = 0 "_s, u"A2 A3"_s},
        {u"select F1 from TB1 where not datediff('d','2024-03-10',F2 ) = 0 "_s, u"A1 A4 a6"_s},
        {u"select F1 from TB1 where datediff('d','2024-03-10',F2 ) <> 0 and F3='甲'"_s, u"A1 a6"_s},
        {u"select F1 from TB1 where datediff('d','2024/3/9',TB1.F2)>=0 AND  datediff('d','2024-3-10',TB1.F2)<=0 "_s,
         u"A1 A2 A3"_s},
        {u"select F1 from TB1 where DateDiff(\"D\",[TB1].[F2],'2024-03-10 23:00') > 0"_s, u"A1 a6"_s},
        {u"select F1 from TB1 where datediff('d',F2,'2024-03-10')>=-1 and datediff('d',F2,'2024-03-10')<+1"_s,
         u"A2 A3 A4"_s},
        {u"select F1 from TB1 where 0<datediff('d','2024-03-10',F2 ) or -60 >= datediff('d','2024-03-10',F2)"_s,
         u"A4 a6"_s},
        // What is no plain comparison of a column stays a call.
        {u"select F1 from TB1 where datediff('d','2024-03-10',F2 )*2 = 2"_s, u"A4"_s},
        {u"select F1 from TB1 where datediff('d','2024-03-09',F2 ) = 0+1"_s, u"A2 A3"_s},
        {u"select F1 from TB1 where 1-0 = datediff('d','2024-03-09',F2 )"_s, u"A2 A3"_s},
        {u"select F1 from TB1 where datediff('d',F2,F2) = 0 and datediff('d','2024-03-10',F2)<0.5 and SN>=20"_s,
         u"A1 A3 a6"_s},
        {u"select F1 from TB1 where datediff('m','2024-01-31',F2)=2 and datediff('yyyy',F2,'2024-01-01')<1 "
         "and SN<25"_s,
         u"A2 A3"_s},
        {u"select datediff('d',null,F2) from TB1 where F1='A1'"_s, u"-"_s},
        {u"select datediff('h','1899-12-29 23:30:00','1899-12-30 00:30:00') from M01"_s, u"1"_s},
        // An empty sending date is on no day and before none.
        {u"select F1 from B01 where datediff('d','2024-03-10',B01.F101)<=0"_s, u"W1 W3"_s},
        {u"select F1 from B01 where datediff('d','2024-03-10',F101)<>0"_s, u"W3"_s},
        // Literals are nobody's business.
        {u"select F1,'top 1 True datediff(''d''; -- *' from B01 where F1='w1'"_s,
         u"W1|top 1 True datediff('d'; -- *"_s},
        {u"select F1 from M03 where F2=\"O_x\" or F2=\"it's\""_s, u"C2"_s},
        // like
        {u"select F2 from M03 where F2 like '*%'"_s, u"100%"_s},
        {u"select F2 from M03 where F2 like 'o_X'"_s, u"O_x"_s},
        {u"select F2 from M03 where F2 like 'O*' and M03.F2 Like 'o?'"_s, u"ox"_s},
        {u"select F2 from M03 where not F2 like 'O*'"_s, u"东方 100%"_s},
        {u"select F2 from M03 where F2 not like '*x'"_s, u"东方 100%"_s},
        {u"select F2 from M03 where F2 like '东*' or F2 like '1##[!a-z]'"_s, u"东方 100%"_s},
        {u"select F1 from TB1 where SN like '*0' and F3 like '丙'"_s, u"A4"_s},
        {u"select F1 from TB1 where H8 like '*'"_s, u""_s},
        // Number and order of the rows.
        {u"select top 1 F2 from TB1 order by F2 desc "_s, u"2024-03-11"_s},
        {u"select  TOP 2 TB1.F1,TB1.F3,'','',TB1.SN FROM TB1   Where TB1.SN>10  order by TB1.sn  "_s,
         u"A3|甲|||20 a6|甲|||20"_s},
        {u"select top 1 F1,SN from TB1 where SN<30 order by sn desc"_s, u"a6|20"_s},
        {u"select F1 from TB1 where SN>15 and SN<35"_s, u"A1 A3 a6"_s},
        {u"select F1 from TB1 where F1 in (select top 2 F1 from TB1 order by SN desc)"_s, u"A4 A5"_s},
        {u"select b.F1 from B01 as b,M03 c where b.F603=c.F1"_s, u"W1 W2 W3"_s},
        {u"select distinct F603 from B01 order by F603"_s, u"C1 C2"_s},
        {u"select max(F101),sum(DF) as mdf,0 AS ML from B01"_s, u"2024-03-10|7|0"_s},
        // Joins, groups, names, truth.
        {u"select B01.F1,M01.F2,M03.F2 FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on"
         " M01.f1=B01.f202    ORDER BY B01.F101 "_s,
         u"W2|-|东方 W3|渠道一|东方 W1|渠道一|O_x"_s},
        {u"select B01.F1 FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.F1=B01.F202 "
         " Where datediff('d','2024-03-09',B01.F101 ) > 0  Or M01.F2 like '*道*'  "_s,
         u"W1 W3"_s},
        {u"select m03.f2,sum(B01.DF) AS MDF FROM B01,M03 WHERE M03.F1=B01.F603  group by M03.F2 ORDER BY M03.F2 "_s,
         u"O_x|1 东方|6"_s},
        {u"select F1 as 单号,DF as [D/S] from B01 where [F603]='c2';  "_s, u"W1|1"_s},
        {u"select F1,A30 from M03 where A30=True or A30=FALSE or A30 is null"_s, u"C1|-1 C2|0 C3|-"_s},
        {u"SELECT DF-1 AS SL FROM B01 WHERE not (F101='' or F101 is null) and (not F603 is null)"_s,
         u"0 3"_s},
    };
    for (const Case& each : cases)
        EXPECT_EQ(Found(*db_, each.statement), each.expected) << each.statement.toStdString();
}

TEST_F(Dialect, WritesDatesInFullAndRefusesWhatIsNoDate) {
    db_->Execute(u"insert into TB1 (SN,F2,F1,H8) VALUES(60,'2024/4/1','N1','2024-4-1 9:05')"_s);
    db_->Execute(u"Insert into TB1 values ('N2','2024-04-02','2024/4/2',61,null)"_s);
    db_->Execute(u"update TB1 set F1='2024/5/1',F2='2024-5-1',H8=NULL,SN=62 Where F1='N2'"_s);
    EXPECT_EQ(Found(*db_, u"select F1,F2,F3,H8 from TB1 where SN>=60"_s),
              u"N1|2024-04-01|-|2024-04-01 09:05:00 2024/5/1|2024-05-01|2024/4/2|-"_s);
    db_->Execute(u"update TB1 set H8='2024/5/1 0:00' where SN=62"_s);
    db_->CloseGroup();
    EXPECT_EQ(file_.Rows(u"select H8 from TB1 where SN=62"_s), QStringList(u"2024-05-01 00:00:00"_s));
    db_->Execute(u"update sysinfo set Setval=setval+1,setStr='2024/4/1' Where ID=100"_s);
    EXPECT_EQ(Found(*db_, u"select SetVal,SETSTR from SysInfo where ID=100"_s), u"6|2024/4/1"_s);

    db_->Execute(u"delete from TB1 where datediff('d','2024-04-01',F2)>=0 or TB1.F3 like '丁*'"_s);
    db_->Execute(u"update TB1 set F3='旧' where datediff('d',F2,'2024-03-10') > 0"_s);
    EXPECT_EQ(Found(*db_, u"select F1,F3 from TB1"_s), u"A1|旧 A2|乙 A3|甲 A4|丙 a6|旧"_s);

    const QString mismatch = u"标准表达式中数据类型不匹配"_s;
    for (const QString& statement : {
             u"insert into TB1 (F1,F2) VALUES('x','')"_s,
             u"insert into TB1 (F1,F2) VALUES('x','2024-02-30')"_s,
             u"update TB1 set SN=1,TB1.F2='tomorrow' where F1='A1'"_s,
             u"select F1 from TB1 where datediff('d','',F2)=0"_s,
             u"select F1 from TB1 where datediff('m',F2,'2024-13-01')=0"_s,
             u"select F1 from TB1 where datediff('d',F2,F3)=0"_s,
             u"select M03.F1 from TB1,M03 where datediff('d','2024-03-10',M03.F2)=0"_s,
         })
        EXPECT_EQ(Refused(*db_, statement), mismatch) << statement.toStdString();
}

TEST_F(Dialect, RefusesWhatTheEngineWouldRunOrIgnore) {
    const Case cases[] = {
        {u"delete from M01; delete from M03"_s, u"在 SQL 语句结尾之后找到字符"_s},
        {u"delete from M01;;"_s, u"在 SQL 语句结尾之后找到字符"_s},
        {u"delete from M01 -- where F1='H1'"_s, u"“--”"_s},
        {u"delete from M01 /* where F1='H1' */"_s, u"“/*”"_s},
        {u"delete from `M01`"_s, u"“`”"_s},
        {u"select F1 || F2 from M01"_s, u"“|”"_s},
        {u"select F1 from M01 where F1=='H1'"_s, u"“==”"_s},
        {u"select F1 from M01 where F1=?"_s, u"“?”"_s},
        {u"select F1 from M01 where F1='a' & 'b'"_s, u"“&”"_s},
        {u"select F1 from M01 where F1=0x10"_s, u"“x”"_s},
        {u"select F1 from M01 where F1＝'H1'"_s, u"“＝”"_s},
        {u"select F1 from M01 where F1='O'Brien'"_s, u"缺少结束的引号"_s},
        {u"select F1 from M01 where F1='H1"_s + QChar(0), u"不能识别的字符"_s},
        {u"select [F1 from M01"_s, u"方括号"_s},
        {u"select top 5 percent F1 from M01"_s, u"TOP"_s},
        {u"drop table M01"_s, u"期待 DELETE、INSERT、SELECT 或 UPDATE"_s},
        {u""_s, u"期待 DELETE、INSERT、SELECT 或 UPDATE"_s},
        {u"SELECT * INTO mysheet IN 'c:\\a.xls' 'Excel 8.0;' FROM mysheet"_s, u"尚不支持"_s},
        // And what the engine itself refuses, in its own words.
        {u"insert into M01 (F1,F2) VALUES ('1','O'Brien','x')"_s, u"缺少结束的引号"_s},
        {u"insert into M01 (F1,F2) VALUES ('1','A'B'C')"_s, u"near \"B\": syntax error"_s},
        {u"insert into M01 (F1,F2) VALUES ('1',)"_s, u"near \")\": syntax error"_s},
        {u"select Nix from M01"_s, u"no such column: Nix"_s},
        {u"select F1 from M01 where (F1='H1'"_s, u"syntax error"_s},
        {u"select F1 from M01 where F1='H1')"_s, u"syntax error"_s},
        {u"update TB1 set SN='zwölf'"_s, u"CHECK constraint failed: TB1"_s},
    };
    for (const Case& each : cases)
        EXPECT_TRUE(Refused(*db_, each.statement).contains(each.expected))
            << each.statement.toStdString() << ": " << Refused(*db_, each.statement).toStdString();
    EXPECT_EQ(Refused(*db_, u"update M01 set F2='x' where F1='nobody'"_s), u"(went through)"_s);
    EXPECT_EQ(Found(*db_, u"select F1 from M01"_s), u"H1"_s);
    EXPECT_THROW(db_->Execute(u"select F1 from M01"_s), DatabaseError);
    EXPECT_THROW(db_->OpenRecordset(u"delete from M01"_s), DatabaseError);
}

TEST_F(Dialect, WritesNoNumberThatCannotBeHeld) {
    const QString endless = u"1"_s + u"0"_s.repeated(400);
    for (const QString& statement : {
             u"update sysinfo set Setval=1e999 Where ID=100"_s,
             u"update sysinfo set setStr='a',Setval=-.5E+400 Where ID=100"_s,
             u"update sysinfo set Setval=setval+1e308*10"_s,
             u"update sysinfo set Setval=9e307*ID Where ID=100"_s,
             u"insert into SysInfo (ID,Setval) VALUES (7,1e309)"_s,
             u"insert into SysInfo (ID,Setval,setStr) VALUES (7,1e308*100,'x')"_s,
             u"insert into SysInfo (ID,Setval) VALUES (7,"_s + endless + u')',
             u"select ID from SysInfo where Setval<"_s + endless + u".0"_s,
         })
        EXPECT_TRUE(Refused(*db_, statement).contains(u"溢出"_s)) << statement.toStdString();
    EXPECT_EQ(Found(*db_, u"select ID,SetVal from SysInfo where ID=100 or ID=7"_s), u"100|5"_s);
    db_->Execute(u"insert into SysInfo (ID,Setval,setStr) VALUES (7,1e-999,'1e999')"_s);
    db_->Execute(u"insert into SysInfo (ID,Setval) VALUES (8,-1.5e3-2*(1+3))"_s);
    db_->Execute(u"update SysInfo set Setval=setval/0,setStr='x'+1 where ID=7"_s);
    EXPECT_EQ(Found(*db_, u"select SetVal,setStr from SysInfo where ID=7 or ID=8"_s), u"-|1 -1508|-"_s);
}

/// However the engine goes about it, the first row is the first of all that the same statement finds.
TEST_F(Dialect, TheFirstRowOfAnOrderIsTheFirstOfAll) {
    for (int i = 0; i < 200; ++i) {  // places and days that agree now and then, many places twice
        const QString day = i % 9 == 0 ? u"null"_s
                                       : u"'2024-03-%1%2'"_s.arg(1 + i * 7 % 28, 2, 10, QChar(u'0'))
                                             .arg(i % 4 == 0 ? u" 09:30:00"_s : u""_s);
        db_->Execute(u"insert into TB1 (F1,F2,F3,SN) VALUES('R%1',%2,'%3',%4)"_s.arg(i)
                         .arg(day, i % 3 == 0 ? u"甲"_s : u"乙"_s)
                         .arg(i * 13 % 90 / 2.0));
    }
    int found = 0;
    for (const QString& compared : {u"< 0"_s, u"<= 0"_s, u"> 0"_s, u">= -3"_s, u"= 2"_s, u"<> 0"_s})
        for (const QString& day : {u"2023-06-01"_s, u"2024-03-01"_s, u"2024-03-15"_s, u"2024-05-01"_s})
            for (const QString& order :
                 {u"sn desc"_s, u"SN"_s, u"TB1.SN asc,F1"_s, u"F3,sn desc"_s, u"F2"_s}) {
                const QString rest = u" F1,F2,SN from TB1 where  datediff('d','"_s + day + u"',F2 ) "_s +
                                     compared + u" and SN>1 and F1<>'R7' order by "_s + order;
                const QString first = Found(*db_, u"select top 1"_s + rest);
                EXPECT_TRUE(Found(*db_, u"select"_s + rest).startsWith(first)) << rest.toStdString();
                EXPECT_EQ(first.isEmpty(), Found(*db_, u"select"_s + rest).isEmpty()) << rest.toStdString();
                found += first.isEmpty() ? 0 : 1;
            }
    EXPECT_GT(found, 60);
}

TEST(LikePattern, MatchesAsOperatorsExpect) {
    const struct {
        std::string_view text;
        std::string_view pattern;
        bool matches;
    } cases[] = {
        {"", "", true},           {"", "*", true},
        {"a", "", false},         {"abc", "A*C", true},
        {"abcb", "a*b", true},    {"abcb", "a*c", false},
        {"aaab", "*a?b", true},   {"张三丰", "张?丰", true},
        {"张三丰", "张??", true}, {"张三丰", "???*?", false},
        {"a1", "a#", true},       {"ax", "a#", false},
        {"100%", "100%", true},   {"1005", "100%", false},
        {"a_b", "a?b", true},     {"B", "[a-c]", true},
        {"d", "[a-c]", false},    {"d", "[!a-c]", true},
        {"", "[!a-c]", false},    {"b", "[abc]", true},
        {"三", "[一-龥]", true},  {"*", "[*]", true},
        {"x", "[*]", false},      {"-", "[a-]", true},
        {"!", "[!]", true},       {"a[b", "a[b", true},
        {"a]b", "a]b", true},     {"ab", "a[]b", true},
        {"É", "é", false},
    };
    for (const auto& each : cases)
        EXPECT_EQ(dao::dialect::Like(each.text, each.pattern), each.matches)
            << each.text << " " << each.pattern;
    // A long text and many stars must not take for ever.
    EXPECT_FALSE(dao::dialect::Like(std::string(3000, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(DayDifference, CountsTheBordersBetween) {
    const struct {
        const char* unit;
        const char* first;
        const char* second;
        int expected;
    } cases[] = {
        {"d", "2024-02-28", "2024-03-01", 2},
        {"d", "2024-03-01 23:59:59", "2024-03-02 00:00:00", 1},
        {"D", "2024-03-02", "2024-03-01 23:00", -1},
        {"y", "2023-12-31", "2024/1/1", 1},
        {"m", "2024-01-31", "2024-02-01", 1},
        {"m", "2024-02-01", "2023-12-31", -2},
        {"q", "2024-03-31", "2024-04-01", 1},
        {"yyyy", "2023-12-31", "2024-01-01", 1},
        {"w", "2024-03-01", "2024-03-14", 1},
        {"ww", "2024-03-09", "2024-03-10", 1},  // Saturday, Sunday
        {"ww", "2024-03-10", "2024-03-16", 0},
        {"h", "2024-03-10 08:59:59", "2024-03-10 09:00:00", 1},
        {"n", "2024-03-10 08:59:59", "2024-03-10 09:01:00", 2},
        {"s", "2024-03-10", "2024-03-11", 86400},
    };
    for (const auto& each : cases) {
        const auto first = dao::dialect::ReadMoment(each.first);
        const auto second = dao::dialect::ReadMoment(each.second);
        ASSERT_TRUE(first && second);
        EXPECT_EQ(dao::dialect::Datediff(each.unit, *first, *second), each.expected)
            << each.unit << " " << each.first << " " << each.second;
    }
    for (const char* text : {"", "2024", "2024-02-30", "24-1-1", "2024-01-01 24:00", "2024-01/01",
                             "2024-13-01x", ")197-11-01 21:14:40", "x024-01-01"})
        EXPECT_FALSE(dao::dialect::ReadMoment(text)) << text;
}

}  // namespace
