// The start: what it leaves behind when all goes well, and the one way out when anything fails.
#include "app/login.h"
#include "app/main_window.h"
#include "app/session.h"
#include "app/start_up.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "schema/data_files.h"
#include "schema/definition.h"
#include "schema/names.h"
#include "tests/support/data_file.h"
#include "tests/support/failing_vfs.h"
#include "tests/support/files.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

class StartRun {
  public:
    StartRun() {
        parts.folder = folder.path();
        parts.showLogin = [this](QWidget*) { events += u"login"_s; };
        parts.showRestore = [this](QWidget* over) {
            events += over ? u"restore over the frame"_s : u"restore"_s;
        };
    }
    ~StartRun() {
        frame.reset();
        Settle();
        Db.reset();
    }

    QString File() const { return folder.filePath(schema::kDatabaseFile.toString()); }
    void Start() {
        sys::Guarded([&] { frame = StartUp(parts); });
    }

    Script script;
    ModalScript modals;
    QTemporaryDir folder;
    StartUpParts parts;
    QStringList events;
    std::unique_ptr<MForm> frame;
};

TEST(StartUp, LeavesTheSessionReadyAndTheLoginOverTheFrame) {
    StartRun run;
    schema::MakeDatabase(run.File());
    EditInProgress = true;
    CanSeeFigures = false;
    run.parts.showLogin = [&](QWidget* over) {
        run.events += u"login over "_s + over->objectName();
        EXPECT_TRUE(over->isVisible());
        EXPECT_EQ(&TheFrame(), over);
    };
    run.Start();
    EXPECT_EQ(run.events, QStringList{u"login over MForm"_s});
    EXPECT_EQ(NumFormat, u"#0.00");
    EXPECT_EQ(MsgTitle, u"提示");
    EXPECT_FALSE(EditInProgress);
    EXPECT_TRUE(CanSeeFigures);
    EXPECT_EQ(run.frame->windowTitle(), u"Korvane快递业务管理系统");
    EXPECT_EQ(run.frame->Panel(4), u"2024-03-15");
    EXPECT_TRUE(Db);
}

TEST(StartUp, LocaleAndFolderAreTakenAsTheyCome) {
    const std::pair<QString, int> locales[] = {
        {u"zh_CN"_s, 1}, {u"zh_TW"_s, 2}, {u"zh_HK"_s, 0}, {u"C"_s, 0}};
    for (const auto& [locale, flag] : locales) {
        StartRun run;
        schema::MakeDatabase(run.File());
        run.script.SetLocale(locale);
        if (flag == 0) run.parts.folder += u'/';
        LangFlag = 9;
        run.Start();
        EXPECT_EQ(LangFlag, flag) << locale.toStdString();
        EXPECT_EQ(AppFolder, run.folder.path() + u'/') << "one separator, given or not";
        EXPECT_EQ(DbFile, run.File());
    }
}

TEST(StartUp, WhateverFailsIsReportedThenRestoreIsOfferedThenItEnds) {
    FailingStorage storage;
    std::unique_ptr<Connection> holder;
    const struct {
        const char* name;
        std::function<void(StartRun&)> prepare;
        QStringView end = u"restore";
        QStringView says = u"";
    } rows[] = {
        {"no file", [](StartRun&) {}},
        {"no folder", [](StartRun& run) { run.parts.folder += u"/gone"_s; }},
        {"other tables", [](StartRun& run) { Connection(run.File()).Run(u"create table notes (F1 TEXT)"_s); },
         u"restore", u"不是本系统的数据文件"},
        {"read-only",
         [&](StartRun& run) {
             schema::MakeDatabase(run.File());
             run.parts.vfs = u"failing"_s;
             storage.RefuseWriting();
         }},
        {"locked",
         [&](StartRun& run) {
             schema::MakeDatabase(run.File());
             holder = std::make_unique<Connection>(run.File());
             holder->Run(u"begin exclusive"_s);  // as a tool that checks or packs the file
         }},
        {"of a newer release",
         [](StartRun& run) {
             schema::MakeDatabase(run.File());
             Connection(run.File()).Run(u"pragma user_version = 9999"_s);
         }},
        {"the login's load",
         [](StartRun& run) {
             Connection file(run.File());
             file.Run(u"create table TE1 (F1 TEXT)"_s);
             file.Run(u"insert into TE1 values ('001')"_s);
             file.Run(u"pragma user_version = %1"_s.arg(schema::kVersion));
             run.parts.showLogin = [](QWidget* over) { Login(over).ShowModal(); };
         },
         u"restore over the frame"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StartRun run;
        row.prepare(run);
        run.script.BoxContaining(u"程序启动错误!系统返回如下信息：\r\r"_s);
        run.script.End(1);
        run.Start();
        EXPECT_TRUE(run.script.Done());
        EXPECT_TRUE(sys::HasEnded());
        EXPECT_EQ(run.script.LastBox().title, u"Tessik Studio");
        EXPECT_EQ(run.script.LastBox().icon, sys::BoxIcon::Warning);
        EXPECT_TRUE(run.script.LastBox().text.startsWith(u"程序"));
        EXPECT_TRUE(run.script.LastBox().text.contains(row.says));
        EXPECT_GT(run.script.LastBox().text.size(), u"程序启动错误!系统返回如下信息：\r\r"_s.size());
        EXPECT_EQ(run.events, QStringList{row.end.toString()});
        EXPECT_EQ(QDir(run.folder.path()).isEmpty(), &row == rows || &row == rows + 1)
            << "no failure makes a data file";
        storage.Heal();
        holder.reset();
    }
}

/// Starts on a file of an earlier release. Gives the names of the copies that are kept of it.
class OlderFile : public testing::Test {
  protected:
    OlderFile() {
        schema::MakeDatabase(run_.File());
        Connection file(run_.File());
        for (const auto& later : {u"B011"_s, u"PRNTB01"_s, u"M012"_s}) file.Run(u"drop table "_s + later);
        file.Run(u"pragma user_version = 0"_s);
    }
    QStringList Kept() const { return QDir(run_.folder.path()).entryList({u"tessik.更改前.*.dat"_s}); }
    int Version(const QString& file) const {
        return Connection(file).Rows(u"pragma user_version"_s).value(0).toInt();
    }
    void StartsInVainBecause(const QString& reason) {
        run_.script.BoxContaining(reason);
        run_.script.End(1);
        run_.Start();
        EXPECT_TRUE(run_.script.Done());
        EXPECT_EQ(Version(run_.File()), 0);
        EXPECT_EQ(Kept(), QStringList());
    }

    StartRun run_;
};

TEST_F(OlderFile, IsUpgradedAndACopyOfItIsKept) {
    run_.Start();
    EXPECT_EQ(run_.events, QStringList{u"login"_s});
    ASSERT_TRUE(Db);
    Db->Close();
    EXPECT_EQ(Version(run_.File()), schema::kVersion);
    ASSERT_EQ(Kept(), QStringList{u"tessik.更改前.2024-03-15_10-00-00.dat"_s});
    EXPECT_EQ(Version(run_.folder.filePath(Kept().front())), 0);

    run_.Start();
    EXPECT_EQ(Kept().size(), 1) << "an upgrade comes once";
}

TEST_F(OlderFile, IsLeftAloneWhereItCannotBeCopied) {
    sys::seams().copyFile = [](const QString&, const QString&) { return u"refused"_s; };
    StartsInVainBecause(u"升级前无法在“%1/”中保留它的副本"_s.arg(run_.folder.path()));
}

TEST_F(OlderFile, IsLeftAloneWhileAnotherProgramHasItOpen) {
    const auto other = dao::Database::Open(run_.File(), schema::kConnect.toString());
    StartsInVainBecause(u"另一个程序正在使用"_s);
}

TEST(StartUp, ASecondProgramOpensTheSameFileEvenWhileTheFirstWrites) {
    StartRun run;
    schema::MakeDatabase(run.File());
    const auto other = dao::Database::Open(run.File(), schema::kConnect.toString());
    other->Execute(u"delete from M04"_s);
    run.Start();
    EXPECT_EQ(run.events, QStringList{u"login"_s});
    other->CloseGroup();
}

}  // namespace
}  // namespace tests
