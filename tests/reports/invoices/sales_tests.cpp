// The delivery notes with their sums, and the two papers made of them.
#include "schema/data_files.h"
#include "tests/reports/report_desk.h"
#include "tests/support/by_keys.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Paper = u"select F0,F1,F3,F2,F6,F7,F8 from PRTB2"_s;

QStringList Masters() {
    return {
        u"update CompanyInfo set F1='甲''速递'"_s,
        u"insert into TA2 (F1,F2,F3,F4,F5) VALUES ('C1','华兴','浦东''1''号','021','022')"_s,
        u"insert into TA2 (F1,F2) VALUES ('C2','恒丰')"_s,
        u"insert into TD1 (F1,F2,F3,F9,F91) VALUES ('N0','2024-03-15 23:30:00','C1',10.005,0.005)"_s,
        u"insert into TD1 (F1,F2,F3,F9,F91) VALUES ('N2','2024-03-02','C1',80,80)"_s,
        u"insert into TD1 (F1,F2,F3,F9) VALUES ('N1','2024-03-02','C1',100.5)"_s,
        u"insert into TD1 (F1,F2,F3,F9,F91) VALUES ('N4','2024-03-01','C2',20,25)"_s,
        u"insert into TD1 (F1,F2,F3,F9,F91) VALUES ('N5','2024-03-01','C3',7,null)"_s,
        u"insert into TD1 (F1,F2,F3,F9) VALUES ('N6','2024-02-29','C1',1000)"_s,
        u"insert into TD1 (F1,F2,F3,F9) VALUES ('N7','2024-03-16','C1',1000)"_s,
    };
}

const QStringList OfC1{u"C1|华兴|N1|2024-03-02|100.5|0|100.5"_s, u"C1|华兴|N2|2024-03-02|80|80|0"_s,
                       u"C1|华兴|N0|2024-03-15|10.005|0.005|10"_s, u"||||190.505|80.005|110.5"_s};

class Sales : public testing::Test {
  protected:
    Sales() {
        sys::Guarded([&] { desk.Frame().ShowChild(u"D3"_s); });
        Settle();
    }
    void Generate(const QString& customer) {
        desk.Enter(u"CmbKH"_s);
        TypeOver(customer);
        desk.Push(u"Cmd"_s);
    }
    void GoToLine(int row) {
        desk.Enter(u"GD"_s);
        Press(Qt::Key_Home);
        for (int i = 1; i < row; ++i) Press(Qt::Key_Down);
    }

    ReportDesk desk{Masters()};
};

TEST_F(Sales, SumsUpUnderEachCustomerAndAtTheEnd) {
    EXPECT_EQ(NotReachedByTab(*desk.Frame().Front()), QStringList());
    EXPECT_EQ(WithoutNameOrRole(desk.Frame()), QStringList());
    EXPECT_EQ(desk.Lines(), OfC1 + (QStringList{u"C2|恒丰|N4|2024-03-01|20|25|-5"_s, u"||||20|25|-5"_s,
                                                u"C3||N5|2024-03-01|7|0|0"_s, u"||||7|0|0"_s,
                                                u"合  计||||217.505|105.005|105.5"_s}));
    EXPECT_EQ(desk.Status(), u"销售统计报表：共 5 条记录 当前为第 1 条"_s);
    GoToLine(5);
    EXPECT_EQ(desk.Status(), u"销售统计报表：共 5 条记录 当前为第 4 条"_s) << "a sum is no record";
}

TEST_F(Sales, ListsACustomerAndRefusesOneThatIsNotThere) {
    Generate(u"C1.随便"_s);
    EXPECT_EQ(desk.Lines(), OfC1 + QStringList{u"合  计||||190.505|80.005|110.5"_s});
    desk.script.Box(u"客户编号输入错误!"_s, Title);
    Generate(u"C3"_s);  // has a note, but is no customer
    EXPECT_EQ(FocusName(), u"CmbKH"_s);
    EXPECT_EQ(desk.Lines().size(), 5);
    desk.Execute(u"delete from TD1 where F3='C2'"_s);
    Generate(u"c2"_s);
    EXPECT_EQ(desk.Lines(), QStringList{u"||||||"_s});
    EXPECT_EQ(desk.Status(), u"无信息"_s);
    for (const auto& [key, text] : {std::pair{u'P', u"无数据！"_s}, std::pair{u'M', u"无数据可打印！"_s}}) {
        desk.script.Box(text, Title);
        AltKey(key);
        EXPECT_EQ(desk.Frame().Front()->objectName(), u"D3"_s);
    }
    Generate(u"所有客户"_s);
    EXPECT_EQ(desk.Lines().size(), 7);
}

TEST_F(Sales, ThePaperOfAllHasEveryLineButTheLast) {
    // The paper names the period of its list.
    desk.At<controls::DTPicker>(u"DTP(0)"_s).SetValue(QDate(2023, 1, 1));
    AltKey(u'P');
    const QStringList rows = desk.Rows(Paper);
    EXPECT_EQ(rows.mid(0, 4),
              (QStringList{u"C1|华兴|N1|2024-03-02|100.5|0|100.5"_s, u"C1|华兴|N2|2024-03-02|80|80|0"_s,
                           u"C1|华兴|N0|2024-03-15|10.005|0.005|10"_s, u"||||190.505|80.005|110.5"_s}));
    EXPECT_EQ(rows.size(), 8);
    EXPECT_EQ(desk.Formulas().mid(0, 3), (QStringList{u"myName='甲'速递'"_s, u"Cpt='销售帐款统计报表'"_s,
                                                      u"rq='日期由  2024-03-01  至  2024-03-15'"_s}));
    EXPECT_TRUE(ReportDesk::Contains(desk.PdfLines(), u"甲'速递"_s));
}

TEST_F(Sales, TheStatementHasTheOpenNotesOfTheCurrentCustomer) {
    GoToLine(2);
    AltKey(u'M');
    EXPECT_EQ(desk.Rows(Paper), (QStringList{u"C1|华兴|N1|2024-03-02|100.5|0|100.5"_s,
                                             u"C1|华兴|N0|2024-03-15|10.005|0.005|10"_s}));
    EXPECT_EQ(desk.Formulas().value(4), u"addr='地址    ： 浦东'1'号'"_s);
    EXPECT_TRUE(ReportDesk::Contains(desk.PdfLines(), u"浦东'1'号"_s));
    // A sum belongs to the customer above it; nothing is open for this one.
    AltKey(u'R');
    EXPECT_EQ(desk.Status(), u"销售统计报表：共 5 条记录 当前为第 2 条"_s);
    GoToLine(6);
    AltKey(u'M');
    EXPECT_EQ(desk.Formulas().value(3), u"khbm='客户编码： C2   恒丰'"_s);
    EXPECT_TRUE(desk.Rows(Paper).isEmpty());
}

TEST_F(Sales, APaperNeedsItsLayoutAndBreaksAtAnApostrophe) {
    desk.Execute(u"insert into PRTB2 (F0) values ('旧')"_s);
    for (const auto& [key, layout] : {std::pair{u'P', u"prntd3.rpt"_s}, std::pair{u'M', u"prntd4.rpt"_s}}) {
        QFile::remove(AppFolder + layout);
        desk.script.Box(u"报表文件"_s + layout + u"丢失！"_s, Title);
        AltKey(key);
    }
    EXPECT_EQ(desk.Rows(u"select F0 from PRTB2"_s), QStringList{u"旧"_s});
    schema::MakeLayout(AppFolder + u"prntd3.rpt"_s);
    desk.Execute(u"update TA2 set F2='华''兴'"_s);
    desk.Push(u"Cmd"_s);
    desk.EndsWith(u"VALUES('C1','华'兴','N1','2024-03-02',100.5,0,100.5)"_s);
    AltKey(u'P');
}

}  // namespace
}  // namespace tests
