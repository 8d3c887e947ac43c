// When the copies of each day are made: at an end in order, after one that was not, and not beside another
// program; and what the restore form offers of them.
#include "admin/end_of_day.h"
#include "app/main_window.h"
#include "platform/dao/engine.h"
#include "platform/system/guard.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "tests/support/program.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tests {
namespace {

class Day {
  public:
    Day() { schema::MakeDatabase(File()); }

    QString File() const { return folder_.filePath(u"tessik.dat"_s); }
    QStringList Copies() const {
        return QDir(folder_.filePath(u"backup"_s)).entryList({u"*.dat"_s}, QDir::Files, QDir::Name);
    }
    bool LeftAtWork() const { return QFile::exists(folder_.filePath(u"backup/working"_s)); }
    int Couriers() const {
        return dao::Number(dao::OpenEngine(File(), schema::kPassword).get(), "select count(*) from M04");
    }
    std::unique_ptr<MForm> Start() const {
        sys::ClearEnd();
        auto frame = StartAndLogIn(folder_.path());
        EXPECT_TRUE(frame);
        return frame;
    }
    /// The process dies: nothing is closed in order.
    static void Die(std::unique_ptr<MForm>& frame) {
        frame.reset();
        Db.reset();
    }
    static void Work() {
        Db->Execute(u"insert into M04 (F1,F2) VALUES ('甲','')"_s);
        Db->CloseGroup();
    }

    Script script;

  private:
    QTemporaryDir folder_;
};

TEST(EndOfDay, MakesACopyAtAnEndInOrderAndCatchesUpAfterAnother) {
    Day day;
    auto frame = day.Start();
    EXPECT_EQ(day.Copies(), QStringList()) << "nothing has been worked yet";
    EXPECT_TRUE(day.LeftAtWork());
    frame->close();
    EXPECT_EQ(day.Copies(), QStringList{u"tessik.每日.2024-03-15_10-00-00.dat"_s});
    EXPECT_FALSE(day.LeftAtWork());

    day.script.SetNow(QDateTime(QDate(2024, 3, 16), QTime(9, 0)));
    frame = day.Start();
    EXPECT_EQ(day.Copies().size(), 1);
    Day::Work();
    Day::Die(frame);
    EXPECT_TRUE(day.LeftAtWork());

    frame = day.Start();
    EXPECT_EQ(day.Copies().size(), 2);
    EXPECT_EQ(admin::SessionCopies().List().size(), 2U);
    Day::Work();  // the session goes on with the file that was opened again
    frame->close();
    EXPECT_EQ(day.Couriers(), 2);
}

TEST(EndOfDay, LeavesTheCopyToTheLastProgramAndHoldsNobodyUp) {
    Day day;
    auto frame = day.Start();
    auto other = dao::Database::Open(day.File(), schema::kConnect.toString());
    frame->close();
    EXPECT_EQ(day.Copies(), QStringList());
    other.reset();

    frame = day.Start();
    EXPECT_EQ(day.Copies().size(), 1);
    const auto real =
        std::exchange(sys::seams().copyFile, [](const QString&, const QString&) { return u"满了"_s; });
    const QString fault =
        u"自动备份没有完成！\r\r"_s + QFileInfo(day.File()).absolutePath() + u"/backup：满了"_s;
    day.script.Box(fault, Title, sys::BoxIcon::Warning);
    EXPECT_TRUE(frame->close());
    EXPECT_TRUE(day.script.Done());
    sys::seams().copyFile = real;
}

TEST(RestoreForm, OffersTheCopiesOfTheDaysAndAsksBeforeItTakesOne) {
    Day day;
    auto frame = day.Start();
    Day::Work();
    frame->close();
    frame = day.Start();
    Day::Work();
    ModalScript modals;
    modals.Next(u"S32"_s, [&](QWidget& form) {
        const auto& grid = Find<controls::FlexGrid>(form, u"GD"_s);
        EXPECT_EQ(grid.TextMatrix(1, 0), u"2024-03-15 10:00"_s);
        EXPECT_EQ(grid.TextMatrix(1, 2), u"0"_s);
        auto& take = Find<controls::Button>(form, u"CmdCopy"_s);
        const QString question = u"真的要用 2024-03-15 10:00 的副本替换现在的数据吗？"_s;
        day.script.Question(question, Title, false);
        Click(take);
        EXPECT_TRUE(form.isVisible());
        day.script.Question(question, Title, true);
        day.script.Box(u"数据恢复完成，请重新运行本系统！"_s, QString());
        day.script.End(0);
        Click(take);
    });
    AltKey(u's');
    AltKey(u'5');
    EXPECT_TRUE(day.script.Done());
    EXPECT_EQ(day.Couriers(), 1);
}

TEST(RestoreForm, KeepsTheSecondFolder) {
    Day day;
    const auto frame = day.Start();
    const QTemporaryDir stick;
    ModalScript modals;
    modals.Next(u"S32"_s, [&](QWidget& form) {
        const auto& label = Find<QLabel>(form, u"LabSecond"_s);
        EXPECT_EQ(label.text(), u"同时保存到：没有选择"_s);
        EXPECT_FALSE(Find<controls::Button>(form, u"CmdCopy"_s).isEnabled());
        day.script.File(u"选择第二备份位置"_s, QString());
        Click(Find<controls::Button>(form, u"CmdSecond"_s));
        day.script.File(u"选择第二备份位置"_s, stick.path());
        Click(Find<controls::Button>(form, u"CmdSecond"_s));
        EXPECT_EQ(label.text(), u"同时保存到："_s + stick.path());
        Click(Find<controls::Button>(form, u"CmdForget"_s));
        EXPECT_EQ(label.text(), u"同时保存到：没有选择"_s);
        Click(Find<controls::Button>(form, u"Command2"_s));
    });
    AltKey(u's');
    AltKey(u'5');
}

}  // namespace
}  // namespace tests
