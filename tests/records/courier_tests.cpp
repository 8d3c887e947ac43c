// The couriers' form, driven by keys: the protocol of all record forms.
#include "tests/support/program.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Duplicate = u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s;

QStringList ThreeCouriers() {
    return {u"insert into M04 (F1,F2) VALUES ('张三','早班')"_s,
            u"insert into M04 (F1,F2) VALUES ('李四','晚班')"_s,
            u"insert into M04 (F1,F2) VALUES ('王五','')"_s};
}

class Couriers : public Program {
  public:
    explicit Couriers(const QStringList& masters = ThreeCouriers(), const QString& operatorCode = u"001"_s)
        : Program(masters, operatorCode) {
        Open(u"A6"_s, u"A04"_s);
    }
    QStringList Table() { return Rows(u"select F1,F2 from M04 order by F1"_s); }
};

TEST(A04, TheKeysMoveInTheListFromTheStart) {
    Couriers form;
    EXPECT_EQ(FocusName(), u"GD"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(form.Status(), u"共 3 条记录 当前为第 2 条"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Tabs().SelectedItem(), 2);
    EXPECT_EQ(form.Box(0), u"李四"_s);
    AltKey(u'E');
    AltKey(u'C');
    EXPECT_EQ(FocusName(), u"TabS"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(form.Tabs().SelectedItem(), 1);
    EXPECT_EQ(FocusName(), u"GD"_s);
    EXPECT_EQ(form.Grid().Row(), 2);
    form.Enter(u"TabS"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(FocusName(), u"GD"_s);
}

TEST(A04, ARefusalLosesNothingAndCancelReadsTheRow) {
    Couriers form;
    AltKey(u'A');
    Type(u"李四"_s);
    Press(Qt::Key_Return);
    Type(u"新的"_s);
    form.RefusesToSave(Duplicate);
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(form.Box(1), u"新的"_s);
    form.script.Box(u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s, Title, sys::BoxIcon::Warning);
    AltKey(u'R');
    ASSERT_NE(form.Frame().Front(), nullptr);
    AltKey(u'C');
    EXPECT_EQ(form.Box(0), u"张三"_s) << "cancel shows the stored row again";

    // Renaming to another's name is refused, keeping one's own is not.
    AltKey(u'E');
    form.SetBox(0, u"王五"_s);
    form.RefusesToSave(Duplicate);
    form.SetBox(0, u"张三"_s);
    form.SetBox(1, u"改了"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Lines(), (QStringList{u"李四|晚班"_s, u"王五|"_s, u"张三|改了"_s}))
        << "the edited row is last";
    // The saved record is the next command's, though the highlight stayed.
    AltKey(u'E');
    EXPECT_EQ(form.Box(0), u"张三"_s);
    AltKey(u'C');
}

TEST(A04, TheListDuringAnEditLeavesTheRecordAndTheCardAlone) {
    Couriers form;
    for (const bool edit : {true, false}) {
        AltKey(edit ? u'E' : u'A');
        form.SetBox(0, edit ? u"赵六"_s : u"新人"_s);
        form.SetBox(1, u"夜班"_s);
        form.Tabs().SelectItem(1);
        Settle();
        auto& grid = form.Grid();
        const int row = grid.Row();
        ClickAt(*grid.viewport(), grid.CellRect(row == 2 ? 1 : 2, 0).center());
        EXPECT_EQ(grid.Row(), row) << "the list stays on the record that is edited";
        form.Tabs().SelectItem(2);
        EXPECT_EQ(form.Box(0) + form.Box(1), edit ? u"赵六夜班"_s : u"新人夜班"_s) << "as typed";
        AltKey(u'S');
    }
    EXPECT_EQ(form.Table(), (QStringList{u"新人|夜班"_s, u"李四|晚班"_s, u"王五|"_s, u"赵六|夜班"_s}));
    EXPECT_EQ(form.Lines(), (QStringList{u"李四|晚班"_s, u"王五|"_s, u"赵六|夜班"_s, u"新人|夜班"_s}));
}

TEST(A04, AnEditThatWasLeftForAnotherFormIsNotForgotten) {
    const QString editing = u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s;
    Couriers form;
    AltKey(u'E');
    form.SetBox(1, u"改了"_s);
    Find<QAction>(form.Frame(), u"d1"_s).trigger();  // the tool bar shows again after any child form
    ASSERT_EQ(form.Frame().Front()->objectName(), u"A03"_s);
    AltKey(u'A');
    AltKey(u'C');
    form.script.Box(editing, Title, sys::BoxIcon::Warning);
    form.Frame().close();
    ASSERT_TRUE(Db);
    AltKey(u'R');
    ASSERT_EQ(form.Frame().Front()->objectName(), u"A04"_s);
    form.script.Box(editing, Title, sys::BoxIcon::Warning);
    AltKey(u'R');
    EXPECT_TRUE(EditInProgress);
    AltKey(u'S');
    EXPECT_EQ(form.Table()[0], u"张三|改了"_s);
    EXPECT_FALSE(EditInProgress);
}

TEST(A04, AClickOnTheHighlightedLineLeavesTheSavedRecordCurrent) {
    Couriers form;
    AltKey(u'A');
    Type(u"赵六"_s);
    Press(Qt::Key_Return);
    Type(u"夜班"_s);
    form.Tabs().SelectItem(1);
    Settle();
    AltKey(u'S');
    auto& grid = form.Grid();
    EXPECT_EQ(grid.Row(), 1);
    ClickAt(*grid.viewport(), grid.CellRect(1, 0).center());
    form.script.Question(u"真的要删除夜班吗?"_s, Title, false);
    AltKey(u'D');
    // Another line is taken as ever.
    ClickAt(*grid.viewport(), grid.CellRect(2, 0).center());
    form.script.Question(u"真的要删除晚班吗?"_s, Title, false);
    AltKey(u'D');
}

}  // namespace
}  // namespace tests
