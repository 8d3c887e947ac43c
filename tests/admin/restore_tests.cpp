// Restoring: what a cancel, a good file, a wrong file and a failing copy leave behind, from the menu and at
// the start.
#include "admin/restore.h"
#include "app/start_up.h"
#include "platform/controls/box.h"
#include "platform/dao/engine.h"
#include "platform/system/guard.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "tests/app/frame_run.h"
#include "tests/support/files.h"
#include "tests/support/rights.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString kDone = u"数据恢复完成，请重新运行本系统！"_s;
const QString kDialog = u"恢复业务数据"_s;

void PressRestore() {
    EXPECT_EQ(FocusName(), u"Command2") << "the first Enter destroys nothing";
    for (int i = 0; i < 6 && FocusName() != u"Command1"; ++i) Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), u"Command1");
    Press(Qt::Key_Return);
}

class RestoreRun : public FrameRun {
  public:
    RestoreRun() {
        registry.modals[u"S32"_s] = [](QWidget* over) { S32(over).ShowModal(); };
        Open();
    }

    void Show(std::function<void(QWidget& form)> drive) {
        modals.Next(u"S32"_s, std::move(drive));
        AltKey(u's');
        AltKey(u'5');
        Settle();
    }

    /// From the menu: picks the file, sees that it is done, and the program ends.
    void Restore(const QString& backup) {
        script.File(kDialog, backup);
        script.Box(kDone, QString());
        script.End(0);
        Show([](QWidget&) { PressRestore(); });
        EXPECT_TRUE(script.Done());
        EXPECT_TRUE(sys::HasEnded());
    }

    /// A backup that differs from the company's own file by one courier.
    QString Backup() {
        const QString path = elsewhere.filePath(u"DataBak.dat"_s);
        schema::MakeDatabase(path);
        const auto engine = dao::OpenEngine(path, schema::kPassword);
        dao::Run(engine.get(), "insert into M04 (F1,F2) values ('何立伟','')");
        return path;
    }

    int Couriers() {
        return dao::Number(dao::OpenEngine(company.File(), schema::kPassword).get(),
                           "select count(*) from M04");
    }

    QTemporaryDir elsewhere;
};

TEST(Restore, GivingUpChangesNothing) {
    RestoreRun run;
    run.Show([&](QWidget& form) {
        run.script.File(kDialog, QString());
        PressRestore();
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(Db);
        Press(Qt::Key_Tab);
        EXPECT_EQ(FocusName(), u"Command2");
        Press(Qt::Key_Return);
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_FALSE(sys::HasEnded());
    EXPECT_EQ(run.company.Answer(u"select F1 from TE1"_s), u"001") << "the session goes on";
}

TEST(Restore, NothingOfTheOldDatabaseIsPlayedIntoTheNewOne) {
    RestoreRun run;
    Db.reset();
    for (const QString& side : {u"-wal"_s, u"-shm"_s, u"-journal"_s})
        Write(run.company.File() + side, "left over");
    run.Restore(run.Backup());
    EXPECT_EQ(QDir(run.company.Folder()).entryList({u"tessik.dat*"_s}, QDir::Files),
              QStringList{u"tessik.dat"_s});
    EXPECT_EQ(run.Couriers(), 1);
}

TEST(Restore, CopiesNothingWhileAnotherProgramHasTheFileOpen) {
    RestoreRun run;
    const auto other = dao::Database::Open(run.company.File(), schema::kConnect.toString());
    const QString backup = run.Backup();
    run.Show([&](QWidget& form) {
        run.script.File(kDialog, backup);
        run.script.Box(u"另一个程序正在使用数据文件，现在不能恢复数据！请先退出该程序再试。"_s, u"提示"_s);
        PressRestore();
        EXPECT_TRUE(form.isVisible());
        Find<controls::Button>(form, u"Command2"_s).click();
    });
    EXPECT_FALSE(sys::HasEnded());
    run.company.Run(u"insert into M04 (F1,F2) VALUES ('甲','')"_s);
    Db->CloseGroup();
    EXPECT_EQ(other->OpenRecordset(u"select F1 from M04"_s).Fields(0).Text(), u"甲"_s)
        << "both go on with the one file";
    other->Close();
    run.Restore(backup);
    EXPECT_EQ(run.Couriers(), 1);
}

QStringList Kept(const RestoreRun& run) {
    return QDir(run.company.Folder()).entryList({u"tessik.更改前.*.dat"_s}, QDir::Files);
}

TEST(Restore, PutsTheBackupInPlaceAndKeepsADatedCopyIfItCan) {
    for (const bool can : {true, false}) {
        RestoreRun run;
        EditInProgress = true;  // also in the middle of an edit
        run.company.Run(
            {u"insert into M04 (F1,F2) VALUES ('甲','')"_s, u"insert into M04 (F1,F2) VALUES ('乙','')"_s});
        const QString backup = run.Backup();
        OpenToAll(backup);
        sys::seams().copyFile = [&, real = sys::seams().copyFile](const QString& from, const QString& to) {
            return !can && from == run.company.File() ? u"refused"_s : real(from, to);
        };
        run.Restore(backup);
        EXPECT_FALSE(Db);
        EXPECT_EQ(run.Couriers(), 1);
        EXPECT_EQ(RightsOf(run.company.File()), 0600);
        ASSERT_EQ(Kept(run), can ? QStringList{u"tessik.更改前.2024-03-15_10-00-00.dat"_s} : QStringList());
        if (!can) continue;
        const QString kept = run.company.Folder() + Kept(run).front();
        EXPECT_EQ(RightsOf(kept), 0600);
        EXPECT_EQ(dao::Number(dao::OpenEngine(kept, schema::kPassword).get(), "select count(*) from M04"), 2);
    }
}

TEST(Restore, ACopyThatFailsReportsSuccessAllTheSameAndTheOldFileStays) {
    for (const bool missing : {true, false}) {
        RestoreRun run;
        const QString backup = missing ? run.elsewhere.filePath(u"gone.dat"_s) : run.company.File();
        run.company.Run(u"insert into M04 (F1,F2) VALUES ('甲','')"_s);
        run.Restore(backup);
        EXPECT_EQ(run.Couriers(), 1) << "what the session had written is in it";
    }
}

/// Starts the program over the folder with the real restore form.
void Start(FrameRun& run, std::unique_ptr<MForm>& frame) {
    StartUpParts parts{.folder = run.company.Folder(),
                       .registry = {},
                       .showLogin = [&](QWidget*) { run.log += u"login"_s; },
                       .showRestore = [](QWidget* over) { S32(over).ShowModal(); }};
    sys::Guarded([&] { frame = StartUp(parts); });
}

TEST(Restore, AtTheStartItMakesTheMissingFileAndTheNextStartOpensIt) {
    RestoreRun run;
    Db.reset();
    QFile::remove(run.company.File());
    std::unique_ptr<MForm> frame;

    run.script.BoxContaining(u"程序启动错误!"_s);
    run.script.File(kDialog, run.Backup());
    run.script.Box(kDone, QString());
    run.script.End(0);
    run.modals.Next(u"S32"_s, [](QWidget&) { PressRestore(); });
    Start(run, frame);
    EXPECT_TRUE(run.script.Done());
    EXPECT_TRUE(run.log.isEmpty());

    sys::ClearEnd();
    Start(run, frame);
    EXPECT_EQ(run.log, QStringList{u"login"_s});
    EXPECT_EQ(run.Couriers(), 1);
}

TEST(Restore, AFileThatIsNoDatabaseIsCopiedAndTheNextStartFails) {
    RestoreRun run;
    const QString wrong = run.elsewhere.filePath(u"letter.dat"_s);
    Write(wrong, "no database");
    run.Restore(wrong);
    EXPECT_EQ(Bytes(run.company.File()), "no database");

    sys::ClearEnd();
    std::unique_ptr<MForm> frame;
    run.script.BoxContaining(u"程序启动错误!"_s);
    run.script.End(1);
    run.modals.Next(u"S32"_s, [](QWidget& form) { Find<controls::Button>(form, u"Command2"_s).click(); });
    Start(run, frame);
    EXPECT_TRUE(sys::HasEnded());
}

}  // namespace
}  // namespace tests
