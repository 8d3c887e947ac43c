// SIGTERM and SIGHUP: no message box comes, an edit is dropped, a command is rolled back, and one whole file
// is left. Also the real program as a process of its own.
#include "platform/controls/windows.h"
#include "platform/dao/database.h"
#include "platform/system/stop_signals.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <QTimer>

#include <csignal>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kOneFile{u"tessik.dat"_s};

class Stopped : public tests::RecordedProgram {
  public:
    explicit Stopped(const QStringList& masters = tests::FaultMasters()) : RecordedProgram(masters) {
        before_ = StateLeft();
    }
    void WriteHalf() { ::Db->Execute(u"delete from M04"_s); }
    void ExpectNothingKept() {
        EXPECT_EQ(status, 0);
        EXPECT_TRUE(boxes.empty());
        const QDir folder = QFileInfo(File()).dir();
        EXPECT_EQ(folder.entryList(QDir::Files | QDir::Hidden), kOneFile);
        EXPECT_EQ(StateLeft(), before_);
    }

  private:
    const sys::StopSignals signals_;
    QStringList before_;
};

TEST(ASignal, DropsAnEditAndLeavesOneFile) {
    for (const int signal : {SIGTERM, SIGHUP}) {
        Stopped program(tests::CommandMasters());
        tests::Prepare(program, tests::CommandOf("B01_Add"));
        EXPECT_TRUE(EditInProgress);
        std::raise(signal);
        tests::Settle();
        program.ExpectNothingKept();
    }
}

TEST(ASignal, RollsBackTheCommandItComesIn) {
    for (const bool another : {false, true}) {
        Stopped program;
        bool wentOn = false;
        sys::Guarded([&] {
            program.WriteHalf();
            std::raise(SIGTERM);
            if (another) program.WriteHalf();
            wentOn = true;
        });
        EXPECT_EQ(wentOn, !another) << "the next statement does not run any more";
        program.ExpectNothingKept();
    }
}

TEST(ASignal, RollsBackASaveInWhichABoxWaits) {
    Stopped program;
    program.whileBox = [] {
        std::raise(SIGTERM);
        QCoreApplication::processEvents();
    };
    sys::Guarded([&] {
        program.WriteHalf();
        sys::MsgBox({.text = u"在保存之中"_s, .keepsGroup = true});
        ADD_FAILURE() << "goes on behind the box";
    });
    program.boxes.clear();  // the one that was meant
    program.ExpectNothingKept();
}

TEST(ASignal, ReachesAMessageBoxAndAModalFormThatWait) {
    for (const bool box : {true, false}) {
        Stopped program;
        const auto close = [] {
            if (QWidget* waiting = QApplication::activeModalWidget()) waiting->close();
        };
        // Where the real program is gone by now, the window still has to go here.
        sys::seams().leave = [&, usual = sys::seams().leave](int status) {
            QTimer::singleShot(0, qApp, close);
            usual(status);
        };
        sys::seams().showBox = controls::ShowMessageBox;
        tests::ModalScript modals;
        if (!box) modals.Next(u"S2"_s, [](QWidget&) { tests::Settle(); });
        QTimer::singleShot(0, qApp, [] { std::raise(SIGTERM); });
        sys::Guarded([&] {
            box ? sys::Inform(u"请确认"_s, u"提示"_s) : program.Frame().ShowModal(u"S2"_s);
            ADD_FAILURE() << "goes on behind the window";
        });
        program.ExpectNothingKept();
    }
}

/// The program as the operator starts it, waiting for his password.
class RealProgram {
  public:
    RealProgram() {
        const QString program = folder_.filePath(u"korvane"_s);
        schema::MakeDatabase(File());
        EXPECT_TRUE(QFile::copy(QStringLiteral(PROGRAM), program));
        process_.setProcessChannelMode(QProcess::ForwardedChannels);
        process_.start(program);
        EXPECT_TRUE(process_.waitForStarted());
        QElapsedTimer waiting;
        waiting.start();
        // It is beside the file as long as somebody has that open.
        while (!QFile::exists(File() + u"-shm"_s) && !waiting.hasExpired(60'000)) QThread::msleep(10);
    }
    ~RealProgram() {
        process_.kill();
        process_.waitForFinished();
    }
    QString File() const { return folder_.filePath(schema::kDatabaseFile.toString()); }
    QStringList Files() const { return QDir(folder_.path()).entryList({u"tessik*"_s}, QDir::Files); }
    bool Ends(int signal) {
        ::kill(static_cast<pid_t>(process_.processId()), signal);
        return process_.waitForFinished(60'000) && process_.exitStatus() == QProcess::NormalExit &&
               process_.exitCode() == 0;
    }

  private:
    const QTemporaryDir folder_;
    QProcess process_;
};

TEST(TheRealProgram, SharesItsFileAndLeavesItWholeAtASignal) {
    for (const int signal : {SIGTERM, SIGHUP}) {
        RealProgram program;
        const auto second = dao::Database::Open(program.File(), schema::kConnect.toString());
        second->Execute(u"insert into M04 (F1) VALUES ('甲')"_s);
        second->CloseGroup();
        EXPECT_FALSE(second->IsAlone());
        EXPECT_TRUE(program.Ends(signal));
        EXPECT_TRUE(second->IsAlone());
        second->Close();
        EXPECT_EQ(program.Files(), kOneFile);
    }
    RealProgram alone;
    EXPECT_TRUE(alone.Ends(SIGTERM));
    EXPECT_EQ(alone.Files(), kOneFile);
}

}  // namespace
