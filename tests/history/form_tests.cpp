// 操作记录, driven by keys: what it lists, shows and hides, and the way to 恢复.
#include "history/history_form.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

class HistoryForm : public Program, public testing::Test {
  public:
    HistoryForm() : Program(CommandMasters()) {}

    void Give(const std::string& name) {
        const Command& command = CommandOf(name);
        tests::Prepare(*this, command);
        command.give(*this);
        while (Frame().Front()) AltKey(u'R');
        Db->CloseGroup();
    }
    void OpenForm() {
        Frame().ShowChild(u"History"_s);
        Settle();
    }
    /// The lines of the list without their time.
    QStringList Entries() {
        QStringList lines;
        for (const QString& line : Lines()) lines += line.section(u'|', 1);
        return lines;
    }
    QStringList Items() {
        auto& grid = At<controls::FlexGrid>(u"GDItem"_s);
        QStringList items;
        for (int row = 1; row < grid.Rows(); ++row)
            items += grid.TextMatrix(row, 0) + grid.TextMatrix(row, 1) + u'|' + grid.TextMatrix(row, 2) +
                     u'|' + grid.TextMatrix(row, 3);
        return items;
    }
};

TEST_F(HistoryForm, ListsWhatWasDoneAndShowsBothSides) {
    Give("B01_Release");
    Give("A04_Edit");
    OpenForm();
    const QStringList entries = Entries();
    ASSERT_GE(entries.size(), 2) << entries.join(u'\n').toStdString();
    EXPECT_TRUE(entries[0].startsWith(u"管理员|修改|外务员|乙|改动 "_s)) << entries[0].toStdString();
    EXPECT_EQ(entries[1], u"管理员|出货|速递单|W2|审核人、已出货"_s);
    EXPECT_TRUE(Items()[1].startsWith(u"≠"_s)) << Items().join(u'\n').toStdString();
    Press(Qt::Key_Down);
    EXPECT_TRUE(Items().contains(u"速递单号|W2|W2"_s)) << Items().join(u'\n').toStdString();
    Enter(u"Chk(0)"_s);
    Press(Qt::Key_Space);
    EXPECT_EQ(Items(), QStringList{u"≠审核人|未审核|管理员"_s});
    SetBox(0, u"w2"_s);
    Push(u"Cmd(0)"_s);
    for (const QString& line : Entries()) EXPECT_TRUE(line.contains(u"|W2|"_s)) << line.toStdString();
    EXPECT_TRUE(Status().startsWith(u"操作记录：共 "_s));
}

TEST_F(HistoryForm, SaysWhereOlderEntriesWereNotSearched) {
    const auto run = [](const QString& statement) {
        Db->ExecuteEngine(statement);
        Db->CloseGroup();
    };
    run(u"with recursive n(i) as (select 1 union all select i+1 from n where i<3000) "
        u"insert into M04 (F1) select 'Z'||i from n"_s);
    OpenForm();
    SetBox(0, u"没有"_s);
    Push(u"Cmd(0)"_s);
    EXPECT_EQ(Status(), u"无操作记录"_s);
    run(u"update M04 set F2='新' where F1>='Z1' and F1<'Z2'"_s);  // 1111 of them
    Push(u"Cmd(0)"_s);
    EXPECT_EQ(Status(), u"操作记录：最近的记录中没有找到，请缩小日期范围"_s);
}

TEST_F(HistoryForm, HidesFiguresAndObjectsWithoutTheirRight) {
    Give("B01_Edit");
    CanSeeFigures = false;
    Frame().SetMenuVisible(u"Menu_wanglai"_s, false);
    OpenForm();
    EXPECT_EQ(At<controls::ComboBox>(u"Cmb(0)"_s).findText(u"帐款"_s), -1);
    ASSERT_TRUE(Entries()[0].contains(u"|速递单|"_s)) << Entries()[0].toStdString();
    const QString items = Items().join(u'\n');
    EXPECT_TRUE(items.contains(u"总计费用|*|*"_s)) << items.toStdString();
    EXPECT_TRUE(items.contains(u"月结金额||*"_s)) << items.toStdString();
}

TEST_F(HistoryForm, HidesTheCostFromAllButTheAdministrator) {
    Give("B01_Release");
    OperatorCode = u"8"_s;
    OpenForm();
    EXPECT_TRUE(Items().contains(u"出货成本|*|*"_s)) << Items().join(u'\n').toStdString();
    EXPECT_FALSE(Items().contains(u"总计费用|*|*"_s));
}

TEST_F(HistoryForm, PutsADeletedWaybillBackAfterAQuestion) {
    const QString journal = u"select F1,LB,YF from TB1 order by F1"_s;
    const QStringList before = Rows(journal);
    script.Question(u"数据删除后将不可恢复！\r真的要删除单号为:W1的单据吗？"_s, u"警告"_s, true);
    Give("B01_Delete");
    OpenForm();
    ASSERT_TRUE(Entries()[0].startsWith(u"管理员|删除|速递单|W1|"_s)) << Entries()[0].toStdString();
    const QString question =
        u"速递单[W1]将恢复到 2024-03-15 10:00:00 由管理员删除之前的内容。\r同时恢复 2 笔帐款。\r\r真的要恢复吗?"_s;
    script.Question(question, Title, false);
    Push(u"Cmd(1)"_s);
    EXPECT_EQ(Rows(u"select F1 from B01 where F1='W1'"_s), QStringList());
    script.Question(question, Title, true);
    script.Box(u"恢复完成!"_s, Title);
    Push(u"Cmd(1)"_s);
    EXPECT_EQ(Rows(journal), before);
    EXPECT_TRUE(Entries()[0].startsWith(u"管理员|新增|速递单|W1|"_s)) << Entries()[0].toStdString();
}

TEST_F(HistoryForm, AFormThatIsOpenReadsWhatWasPutBack) {
    Open(u"A6"_s, u"A04"_s);
    tests::Select(*this, u"甲"_s);
    AltKey(u'E');
    SetBox(1, u"新"_s);
    AltKey(u'S');
    Db->CloseGroup();
    OpenForm();
    script.Question(
        u"外务员[甲]将恢复到 2024-03-15 10:00:00 由管理员修改之前的内容，现有内容将被替换。\r\r真的要恢复吗?"_s,
        Title, true);
    script.Box(u"恢复完成!"_s, Title);
    Push(u"Cmd(1)"_s);
    EXPECT_TRUE(Status().startsWith(u"操作记录：共 "_s)) << "of the form in front";
    AltKey(u'R');
    ASSERT_EQ(Frame().Front()->objectName(), u"A04"_s);
    EXPECT_EQ(Box(0) + Box(1), u"甲一"_s);
    AltKey(u'E');
    AltKey(u'S');
    EXPECT_EQ(Rows(u"select F2 from M04 where F1='甲'"_s), QStringList{u"一"_s});
}

TEST_F(HistoryForm, SummarizesEveryChangeAndFindsByCustomerAndCounterparty) {
    const auto run = [](const QStringList& statements) {
        Db->CloseGroup();
        for (const QString& statement : statements) Db->ExecuteEngine(statement);
        Db->CloseGroup();
    };
    run({u"delete from M03 where F1='C1'"_s, u"delete from M031 where F0='C1'"_s,
         u"insert into M03 (F1,F2,F301,F302,F401,F402) values ('C1','华兴','华兴公司','Huaxing','浦东','Pudong')"_s,
         u"insert into M031 (F0,F1,F2) values ('C1','Z1',31)"_s,
         u"insert into M031 (F0,F1) values ('C1','Z9')"_s});
    run({u"delete from M02 where F1='乙'"_s, u"delete from M021 where F0='乙'"_s,
         u"insert into M02 (F1,F2) values ('乙','二')"_s,
         u"insert into M021 (F0,F1) values ('乙','釜山')"_s});
    run({u"update TE1 set F60=1-ifnull(F60,0),F61=1-ifnull(F61,0),F2='新' where F1='乙'"_s});
    run({u"update TB1 set YF=55,F10='改' where F1='YSW2'"_s});
    run({u"delete from B01 where F1='W2'"_s,
         u"insert into B01 (F1,F101,F603) values ('W2','2024-03-17','C3')"_s});
    run({u"update M04 set F2=F2 where F1='乙'"_s});
    run({u"insert into TB1 (F1,LB,F3,YF) values ('YS7',-9,'恒丰',3)"_s});
    OpenForm();
    QStringList entries = Entries();
    const QStringList expected{u"新增|应收款|YS7|恒丰 3.00"_s,
                               u"修改|外务员|乙|内容没有改动"_s,
                               u"修改|速递单|W2|改动 "_s,
                               u"修改|应收款|YSW2|华兴 50.00，改动 2 项"_s,
                               u"修改|操作员|乙.二|改动 1 项，权限改动 2 项"_s,
                               u"修改|本司分区|乙.二|改动地区 2 处"_s,
                               u"修改|客户报价|C1.华兴|更新报价，2 个区域"_s};
    for (qsizetype i = 0; i < expected.size(); ++i)
        EXPECT_TRUE(entries[i].startsWith(u"管理员|"_s + expected[i])) << entries[i].toStdString();
    const auto found = [&](const QString& text) {
        SetBox(0, text);
        Push(u"Cmd(0)"_s);
        QStringList keys;
        for (const QString& line : Entries())
            if (const QString key = line.section(u'|', 3, 3); !keys.contains(key)) keys += key;
        keys.sort();
        return keys.join(u' ');
    };
    EXPECT_EQ(found(u"恒丰"_s), u"C2.恒丰 YS7"_s);
    EXPECT_EQ(found(u"长江"_s), u"C3.长江 W2"_s) << "the customer of today";
    EXPECT_TRUE(found(u"华兴"_s).contains(u"W2"_s)) << "and the one before";
}

TEST_F(HistoryForm, ShowsQuotesAsATableOfPrices) {
    Give("A03_Edit");
    OpenForm();
    ASSERT_TRUE(Entries()[0].contains(u"|客户资料|"_s)) << Entries()[0].toStdString();
    EXPECT_TRUE(Shown(u"GDPrice"_s));
    auto& prices = At<controls::FlexGrid>(u"GDPrice"_s);
    QStringList lines;
    for (int row = 1; row < prices.Rows(); ++row)
        lines += prices.TextMatrix(row, 0) + prices.TextMatrix(row, 1) + prices.TextMatrix(row, 2);
    EXPECT_EQ(lines.join(u' '), u"≠Z1改动前 ≠Z1改动后 ≠乙改动后 ≠甲改动前 ≠甲改动后"_s);
}

}  // namespace
}  // namespace tests
