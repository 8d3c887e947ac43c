// The program is killed at random moments of a backup, a restore, a reset and the copy at the day's end.
// Whatever the moment, the data file must hold what it held before or all of what was meant, and every file
// that bears a copy's name must be a whole copy.
//
// KILL_SEED=n repeats a run's choices (the moments depend on the machine), KILLS=n makes it longer or
// shorter.
#include "platform/dao/database.h"
#include "platform/dao/engine.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "tests/faults/company_state.h"
#include "tests/support/environment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 60'000;  // milliseconds until the program must have done anything at all

/// A file of some megabytes, so that copying it takes a moment.
void MakeCompany(const QString& path, const QString& courier) {
    schema::MakeDatabase(path);
    const auto engine = dao::OpenEngine(path, schema::kPassword);
    dao::InTransaction(engine.get(), "begin", [&] {
        for (int i = 0; i < 400; ++i)
            dao::RunWithText(
                engine.get(),
                "insert into B01 (F1,F405) values (hex(randomblob(4)),?1||hex(randomblob(8000)))", courier);
        dao::RunWithText(engine.get(), "insert into M04 (F1) values (?1)", courier);
    });
}

class FileWork {
  public:
    FileWork(const QString& folder, const QString& what, const QString& file) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QStringLiteral(SAVE_LOOP), {folder, u"0"_s, {}, file, what});
        while (!process_.canReadLine() && process_.waitForReadyRead(kPatience)) {
        }
        EXPECT_EQ(process_.readLine().trimmed(), "saving 0");
    }
    ~FileWork() { Kill(); }
    void Kill() {
        process_.kill();
        process_.waitForFinished(kPatience);
    }
    bool Finish() { return process_.waitForFinished(kPatience) && process_.exitCode() == 0; }

  private:
    QProcess process_;
};

class Killed {
  public:
    Killed() {
        QDir().mkpath(Start());
        MakeCompany(Start() + u"/tessik.dat"_s, u"甲"_s);
        MakeCompany(Backup(), u"乙"_s);
        old_ = tests::StateOf(Start() + u"/tessik.dat"_s);
        backup_ = tests::StateOf(Backup());
    }
    QString Start() const { return folder_.filePath(u"start"_s); }
    QString Backup() const { return folder_.filePath(u"lastweek.dat"_s); }

    /// Does it once, killed so many microseconds after its key; -1 lets it finish. Gives how long it took.
    int Do(const QString& what, int after) {
        const QString run = folder_.filePath(u"run"_s);
        QDir(run).removeRecursively();
        QDir().mkpath(run + u"/look"_s);
        QFile::copy(Start() + u"/tessik.dat"_s, run + u"/tessik.dat"_s);
        const QString target = run + u"/DataBak.dat"_s;
        QElapsedTimer timer;
        {
            FileWork work(run, what, what == u"S32_Restore" ? Backup() : target);
            timer.start();
            if (after < 0) {
                EXPECT_TRUE(work.Finish());
            } else {
                QThread::usleep(static_cast<unsigned long>(after));
                work.Kill();
            }
        }
        const int took = static_cast<int>(timer.nsecsElapsed() / 1000);
        Look(run, what, after < 0);
        return took;
    }

    int unfinished = 0;  ///< how many left something half done behind: they were hit in the middle

  private:
    void Look(const QString& run, const QString& what, bool finished) {
        const QStringList state = tests::StateOf(tests::CopyAsLeft(run + u"/tessik.dat"_s, run + u"/look"_s));
        QStringList meant = old_;
        if (what == u"S32_Restore") meant = backup_;
        if (what == u"S03_Clear") meant = Emptied();
        EXPECT_TRUE(state == meant || (!finished && state == old_)) << what.toStdString();

        const QString target = run + u"/DataBak.dat"_s;
        if (finished && what == u"backup") {
            EXPECT_TRUE(QFile::exists(target));
        }
        if (QFile::exists(target)) {
            EXPECT_EQ(tests::StateOf(target), old_);
        }
        int copies = 0;
        for (const QString& folder : {run, run + u"/backup"_s})
            for (const QString& name : QDir(folder).entryList(QDir::Files)) {
                if (name.contains(u".copying"_s) || name.contains(u".unchecked"_s)) ++unfinished;
                if (!name.startsWith(u"tessik."_s) || !name.endsWith(u".dat"_s) || name == u"tessik.dat")
                    continue;
                ++copies;
                EXPECT_EQ(tests::StateOf(folder + u'/' + name), old_) << name.toStdString();
            }
        if (finished) {
            EXPECT_EQ(copies, what == u"backup" ? 0 : 1) << what.toStdString();
        }
    }
    QStringList Emptied() {
        QStringList left;
        for (const QString& row : old_)
            if (!row.startsWith(u"B01"_s) && !row.startsWith(u"M04"_s)) left += row;
        return left;
    }

    QTemporaryDir folder_;
    QStringList old_, backup_;
};

TEST(KillAtFileWork, LeavesWholeFilesOnly) {
    const auto seed = static_cast<unsigned>(
        tests::FromEnvironment("KILL_SEED", static_cast<int>(std::random_device()() & 0xffffff)));
    const int wanted = tests::FromEnvironment("KILLS", 16);
    std::printf("KILL_SEED=%u\n", seed);
    std::mt19937 random(seed);
    Killed killed;
    const QStringList works = {u"backup"_s, u"S32_Restore"_s, u"S03_Clear"_s, u"end"_s};
    QList<int> usual;
    for (const QString& what : works) usual += killed.Do(what, -1);
    for (int kill = 0; kill < wanted && !testing::Test::HasFailure(); ++kill) {
        const auto which = kill % works.size();
        SCOPED_TRACE(testing::Message() << "kill " << kill << " of KILL_SEED=" << seed);
        const auto most = static_cast<unsigned>(usual[which] * 5 / 4 + 1);
        killed.Do(works[which], static_cast<int>(random() % most));
    }
    std::printf("%d kills, %d of them left a copy begun\n", wanted, killed.unfinished);
}

}  // namespace
