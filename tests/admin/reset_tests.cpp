// Emptying groups of tables: what is asked and refused, which tables go, and the copy that is kept before.
#include "platform/dao/engine.h"
#include "schema/names.h"
#include "tests/support/program.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QStringList Tables = {u"M01"_s,  u"M011"_s, u"M0111"_s, u"M012"_s, u"M02"_s,
                            u"M021"_s, u"M03"_s,  u"M030"_s,  u"M031"_s, u"M04"_s,
                            u"M05"_s,  u"M06"_s,  u"B01"_s,   u"TB1"_s,  u"TA2"_s};

QStringList OneRowEach() {
    QStringList rows;
    for (const QString& table : Tables)
        rows += u"insert into %1 (%2) VALUES ('1')"_s.arg(table, table == u"TB1" ? u"F3"_s : u"F1"_s);
    return rows;
}

class Reset : public Program {
  public:
    Reset() : Program(OneRowEach()) {}

    /// Opens the form, ticks these boxes and presses 清除, by keys alone; then leaves it.
    void Clear(const QList<int>& ticks, bool byMenu = true) {
        ModalScript modals;
        modals.Next(u"S03"_s, [&](QWidget& form) {
            EXPECT_EQ(FocusName(), u"Chk(0)");
            for (int i = 0; i < 4; ++i) {
                if (ticks.contains(i)) Press(Qt::Key_Space);
                Press(Qt::Key_Return);
            }
            EXPECT_EQ(FocusName(), u"Cmd(0)");
            Press(Qt::Key_Return);
            if (sys::HasEnded()) return;
            EXPECT_TRUE(form.isVisible());
            for (int i = 0; i < 4; ++i)
                EXPECT_EQ(Find<controls::CheckBox>(form, u"Chk(%1)"_s.arg(i)).Value(),
                          ticks.contains(i) ? 1 : 0);
            Press(Qt::Key_Tab);
            Press(Qt::Key_Return);
        });
        if (byMenu) {
            AltKey(u's');
            AltKey(u'3');
        } else {
            Frame().ShowModal(u"S03"_s);  // as the command palette does over an open form
        }
        EXPECT_TRUE(script.Done());
    }
    void Asked(bool yes) { script.Question(u"数据清除后将无法恢复!真的继续吗?"_s, u"警告"_s, yes); }
    /// Of the tables above.
    QString Empty() {
        QStringList empty;
        for (const QString& table : Tables)
            if (Rows(u"select count(*) from "_s + table) == QStringList{u"0"_s}) empty += table;
        return empty.join(u' ');
    }
    QStringList Kept() {
        return QDir(QFileInfo(File()).path()).entryList({u"tessik.更改前.*.dat"_s}, QDir::Files);
    }
};

TEST(ResetForm, RefusesAndAsksBeforeAnythingGoes) {
    const QString masters = u"清除了基本资料，速递单据相关信息也将无法存在！请同时选择删除速递单据信息"_s;
    const QString customers = u"清除了客户资料，速递单据相关信息也将无法存在！请同时选择删除速递单据信息"_s;
    Reset program;
    program.script.Box(u"请选择要清除的对象!"_s, Title);
    program.Clear({});
    program.Asked(false);
    program.Clear({0, 1, 2, 3});
    for (const auto& [ticks, refusal] :
         {std::pair{QList<int>{0, 3}, masters}, {QList<int>{0, 1}, masters}, {QList<int>{1, 3}, customers}}) {
        program.Asked(true);
        program.script.Box(refusal, Title);
        program.Clear(ticks);
    }
    EXPECT_EQ(program.Empty(), u""_s);
    EXPECT_EQ(program.Kept(), QStringList());
}

TEST(ResetForm, EmptiesItsTablesAndNoOthersAfterKeepingACopy) {
    const QString masters = u"M01 M011 M0111 M012 M02 M021 M04 B01"_s;
    const struct {
        QList<int> ticks;
        QString empty;
    } rows[] = {{{2}, u"B01"_s},
                {{3}, u"TB1"_s},
                {{0, 2}, masters},
                {{1, 2}, u"M03 M030 M031 B01"_s},
                {{0, 1, 2, 3}, u"M01 M011 M0111 M012 M02 M021 M03 M030 M031 M04 B01 TB1"_s}};
    for (const auto& row : rows) {
        Reset program;
        const QStringList counters = program.Rows(u"select ID,Setval from SysInfo order by ID"_s);
        program.Asked(true);
        program.script.Box(u"数据清除成功!"_s, Title);
        program.Clear(row.ticks);
        EXPECT_EQ(program.Empty(), row.empty);
        EXPECT_EQ(program.Rows(u"select ID,Setval from SysInfo order by ID"_s), counters);
        ASSERT_EQ(program.Kept(), QStringList{u"tessik.更改前.2024-03-15_10-00-00.dat"_s});
        const QString kept = QFileInfo(program.File()).path() + u'/' + program.Kept().front();
        EXPECT_EQ(dao::Number(dao::OpenEngine(kept, schema::kPassword).get(), "select count(*) from B01"), 1);
    }
}

TEST(ResetForm, AFormThatIsOpenShowsNothingOfWhatHasGone) {
    Reset program;
    program.Open(u"A5"_s, u"A03"_s);
    program.Tabs().SelectItem(2);
    ASSERT_EQ(program.Box(0), u"1"_s);
    program.Asked(true);
    program.script.Box(u"数据清除成功!"_s, Title);
    program.Clear({1, 2}, false);
    EXPECT_EQ(program.Box(0), u""_s);
    program.script.Box(u"没有客户资料可修改!"_s, Title);
    AltKey(u'E');
}

TEST(ResetForm, ClearsNothingWithoutACopyOrBesideAnotherProgram) {
    Reset program;
    const auto real =
        std::exchange(sys::seams().copyFile, [](const QString&, const QString&) { return u"满了"_s; });
    program.Asked(true);
    program.script.Box(u"清除前未能保存数据文件的副本，没有清除任何数据！\r满了"_s, Title);
    program.Clear({2});
    sys::seams().copyFile = real;
    const auto other = dao::Database::Open(program.File(), schema::kConnect.toString());
    program.Asked(true);
    program.script.Box(u"另一个程序正在使用数据文件，现在不能清除数据！请先退出该程序再试。"_s, Title);
    program.Clear({2});
    EXPECT_EQ(program.Empty(), u""_s);
}

}  // namespace
}  // namespace tests
