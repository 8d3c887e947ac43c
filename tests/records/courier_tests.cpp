// The couriers' form, driven by keys: the protocol of the small masters with its messages, word for word.
#include "tests/support/program.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tests::AltKey;
using tests::Press;
using tests::Type;

namespace {

const QString Duplicate = u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s;

QStringList ThreeCouriers() {
    return {u"insert into M04 (F1,F2) VALUES ('张三','早班')"_s,
            u"insert into M04 (F1,F2) VALUES ('李四','晚班')"_s,
            u"insert into M04 (F1,F2) VALUES ('王五','')"_s};
}

class Couriers : public tests::Program {
  public:
    explicit Couriers(const QStringList& masters = ThreeCouriers(), const QString& operatorCode = u"001"_s)
        : Program(masters, operatorCode) {
        Open(u"A6"_s, u"A04"_s);
    }
    QStringList Table() { return Rows(u"select F1,F2 from M04 order by F1"_s); }
    void Add(const QString& name, const QString& note) {
        AltKey(u'A');
        Type(name);
        Press(Qt::Key_Return);
        Type(note);
        AltKey(u'S');
    }
    /// Selects a data row of the list by the keys of the list.
    void GoToRow(int row) {
        At<controls::FlexGrid>(u"GD"_s).SetFocus();
        tests::Settle();
        Press(Qt::Key_Home);
        for (int i = 1; i < row; ++i) Press(Qt::Key_Down);
    }
};

TEST(A04, ListsInOrderAndTellsThePosition) {
    Couriers form;
    EXPECT_EQ(form.Lines(), (QStringList{u"张三|早班"_s, u"李四|晚班"_s, u"王五|"_s}));
    EXPECT_EQ(form.Status(), u"共 3 条记录 当前为第 1 条"_s);
    form.GoToRow(3);
    EXPECT_EQ(form.Status(), u"共 3 条记录 当前为第 3 条"_s);
    EXPECT_FALSE(form.Enabled(u"Menu_save"_s));
    EXPECT_TRUE(form.Enabled(u"Menu_query"_s));
    EXPECT_FALSE(form.Frame().ToolBarShown());
    AltKey(u'R');
    EXPECT_EQ(form.Frame().Front(), nullptr);
    EXPECT_TRUE(form.Frame().ToolBarShown());
    EXPECT_EQ(form.Status(), u"2024-03-15"_s);
}

TEST(A04, FirstRecordReplacesTheBlankLine) {
    Couriers form(QStringList{});
    form.Frame().SetPanel(4, u"旧"_s);
    EXPECT_EQ(form.Lines(), QStringList{u"|"_s});
    AltKey(u'D');  // an empty table: nothing to delete, nothing asked
    AltKey(u'A');
    EXPECT_FALSE(form.Enabled(u"Menu_Add"_s));
    EXPECT_TRUE(form.Enabled(u"Menu_Return"_s));
    EXPECT_TRUE(EditInProgress);
    EXPECT_EQ(tests::FocusName(), u"Txt(0)"_s);
    form.script.Box(u"姓 名不能为空!"_s, u"提示"_s);
    AltKey(u'S');
    EXPECT_TRUE(EditInProgress);
    Type(u"一二三四五"_s);
    EXPECT_EQ(form.Box(0), u"一二三四"_s) << "four characters at most";
    Press(Qt::Key_Return);
    EXPECT_EQ(tests::FocusName(), u"Txt(1)"_s);
    Type(u"东区"_s);
    Press(Qt::Key_Return);
    EXPECT_TRUE(form.Table().isEmpty()) << "Enter in the last box saves nothing";
    AltKey(u'S');
    EXPECT_EQ(form.Table(), QStringList{u"一二三四|东区"_s});
    EXPECT_EQ(form.Lines(), QStringList{u"一二三四|东区"_s});
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(form.Status(), u"共 1 条记录 当前为第 1 条"_s);
}

TEST(A04, RefusesANameThatIsTaken) {
    Couriers form;
    AltKey(u'A');
    Type(u"李四"_s);
    Press(Qt::Key_Return);
    Type(u"新的"_s);
    form.script.Box(Duplicate, u"提示"_s);
    AltKey(u'S');
    EXPECT_EQ(tests::FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(form.Box(1), u"新的"_s) << "a refusal loses nothing";
    form.script.Box(u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s, u"提示"_s, sys::BoxIcon::Warning);
    AltKey(u'R');
    ASSERT_NE(form.Frame().Front(), nullptr);
    AltKey(u'C');
    EXPECT_EQ(form.Box(0), u"张三"_s) << "cancel shows the stored row again";
    EXPECT_EQ(form.Table().size(), 3);

    // Renaming to another's name is refused, keeping one's own is not.
    AltKey(u'E');
    form.SetBox(0, u"王五"_s);
    form.script.Box(Duplicate, u"提示"_s);
    AltKey(u'S');
    form.SetBox(0, u"张三"_s);
    form.SetBox(1, u"改了"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Lines(), (QStringList{u"李四|晚班"_s, u"王五|"_s, u"张三|改了"_s}))
        << "the edited row stands last";
    // The saved record is the next command's, though the highlight stayed.
    AltKey(u'E');
    EXPECT_EQ(form.Box(0), u"张三"_s);
    AltKey(u'C');
}

TEST(A04, DeletesWhatNoWaybillUses) {
    Couriers form;
    form.GoToRow(3);
    form.script.Question(u"真的要删除吗?"_s, u"提示"_s, false);  // the note is named, and it is empty
    AltKey(u'D');
    EXPECT_EQ(form.Table().size(), 3);
    form.script.Question(u"真的要删除吗?"_s, u"提示"_s, true);
    AltKey(u'D');
    EXPECT_EQ(form.Lines(), (QStringList{u"张三|早班"_s, u"李四|晚班"_s}));
    EXPECT_EQ(form.Status(), u"共 2 条记录 当前为第 2 条"_s) << "the new last row is the current one";
    for (const auto& note : {u"晚班"_s, u"早班"_s}) {
        form.script.Question(u"真的要删除"_s + note + u"吗?"_s, u"提示"_s, true);
        AltKey(u'D');
    }
    EXPECT_EQ(form.Lines(), QStringList{u"|"_s});
    EXPECT_TRUE(form.Table().isEmpty());
    form.Add(u"赵六"_s, u""_s);
    EXPECT_EQ(form.Lines(), QStringList{u"赵六|"_s});
}

TEST(A04, AClickOnTheHighlightedLineLeavesTheSavedRecordCurrent) {
    Couriers form;
    AltKey(u'A');
    Type(u"赵六"_s);
    Press(Qt::Key_Return);
    Type(u"夜班"_s);
    form.At<controls::TabStrip>(u"TabS"_s).SelectItem(1);
    tests::Settle();
    AltKey(u'S');
    auto& grid = form.Grid();
    EXPECT_EQ(grid.Row(), 1);
    tests::ClickAt(*grid.viewport(), grid.CellRect(1, 0).center());
    form.script.Question(u"真的要删除夜班吗?"_s, u"提示"_s, false);
    AltKey(u'D');
    // Another line is taken as ever.
    tests::ClickAt(*grid.viewport(), grid.CellRect(2, 0).center());
    form.script.Question(u"真的要删除晚班吗?"_s, u"提示"_s, false);
    AltKey(u'D');
}

QStringList UsedCourier() {
    return ThreeCouriers() + QStringList{u"insert into B01 (F1,F602) VALUES ('W1','李四')"_s,
                                         u"insert into B01 (F1,F602) VALUES ('W2','张三')"_s,
                                         u"insert into TE1 (F1,F2,F60) VALUES ('002','小王',1)"_s};
}

TEST(A04, ProtectsANameInUse) {
    Couriers form(UsedCourier(), u"002"_s);
    form.GoToRow(2);
    form.script.Box(u"[晚班]已经在系统中应用，不能删除!"_s, u"提示"_s);
    AltKey(u'D');
    EXPECT_EQ(form.Table().size(), 3);
    AltKey(u'E');
    Type(u"别名"_s);
    EXPECT_EQ(form.Box(0), u"李四"_s) << "locked while waybills use it";
    form.SetBox(1, u"夜班"_s);
    AltKey(u'S');
    EXPECT_TRUE(form.Table().contains(u"李四|夜班"_s));
}

TEST(A04, AdministratorDeletesWithTheWaybills) {
    const QString question =
        u"[晚班]已经在系统中应用!\r如果删除将造成系统中其它记录的丢失!\r只有管理员才有权删除。真的要删除吗？"_s;
    Couriers form(UsedCourier());
    form.GoToRow(2);
    const struct { bool first, second; } refusals[] = {{false, false}, {true, false}};
    for (const auto& answers : refusals) {
        form.script.Question(question, u"提示"_s, answers.first);
        if (answers.first) form.script.Question(question, u"请再次确认"_s, answers.second);
        AltKey(u'D');
        EXPECT_EQ(form.Table().size(), 3);
        EXPECT_EQ(form.Rows(u"select F1 from B01"_s).size(), 2);
    }
    form.script.Question(question, u"提示"_s, true);
    form.script.Question(question, u"请再次确认"_s, true);
    AltKey(u'D');
    EXPECT_EQ(form.Table(), (QStringList{u"张三|早班"_s, u"王五|"_s}));
    EXPECT_EQ(form.Rows(u"select F1 from B01"_s), QStringList{u"W2"_s});
}

TEST(A04, AnApostropheFailsTheInsertAfterTheDelete) {
    Couriers form;
    AltKey(u'E');
    form.SetBox(1, u"it's"_s);
    form.script.BoxContaining(u"insert into M04 (F1,F2) VALUES ('张三','it's')"_s);
    form.script.End(1);
    AltKey(u'S');
    EXPECT_TRUE(form.script.Done());
    EXPECT_EQ(form.Table(), (QStringList{u"李四|晚班"_s, u"王五|"_s})) << "what was executed stays executed";
}

TEST(A04, BoxesCannotBeEnteredWhileBrowsing) {
    Couriers form;
    Press(Qt::Key_Tab);
    form.At<controls::TabStrip>(u"TabS"_s).SelectItem(2);
    form.At<QWidget>(u"Txt(1)"_s).setFocus();
    tests::Settle();
    EXPECT_EQ(tests::FocusName(), u"TabS"_s);
    Type(u"x"_s);
    EXPECT_EQ(form.Box(1), u"早班"_s);
}

TEST(A04, OneInstanceThatDoesNotReload) {
    Couriers form;
    form.Execute(u"insert into M04 (F1,F2) VALUES ('外来','')"_s);
    ChildForm* first = form.Frame().Front();
    EXPECT_EQ(&form.Frame().ShowChild(u"A04"_s), first);
    EXPECT_EQ(form.Lines().size(), 3);
    AltKey(u'R');
    form.Open(u"A6"_s, u"A04"_s);
    EXPECT_EQ(form.Lines().size(), 4);
}

}  // namespace
