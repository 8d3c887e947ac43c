// The program is killed at random moments of a mixed day's work. Whatever the moment, the next start must
// find either all of the command that was under way or nothing of it.
//
// KILL_SEED=n repeats a run's choices (the moments depend on the machine), KILLS=n makes it longer or
// shorter.
#include "platform/dao/database.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "tests/faults/commands.h"
#include "tests/faults/company_state.h"
#include "tests/support/environment.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 60'000;  // milliseconds until the program must have done anything at all
/// The day's commands (tests/faults/save_loop.cpp), in an order in which each finds what it works on.
const QStringList kCommands =
    (u"before:History_Waybill History_Waybill before:History_Overwrite History_Overwrite "_s +
     u"before:History_Customer History_Customer before:History_Zone History_Zone "_s +
     u"B01_Add A04_Add B01_Release zhLst_Add A03_Edit B01_Edit PayLst_Edit A02_Edit "_s +
     u"A01_Add A011_Edit PayLst_Add A03_Add S02_Add A04_DeleteUsed A02_Add PayLst_Delete A05_Edit "_s +
     u"A03_DeleteUsed A01_DeleteUsed"_s)
        .split(u' ');
const int kDay = static_cast<int>(kCommands.size());

/// The program at its work, identified by the lines that it writes.
class Day {
  public:
    Day(const QString& folder, int first, const QString& states = {}) : saved_(first) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QStringLiteral(SAVE_LOOP),
                       QStringList{folder, QString::number(first), states, QString()} + kCommands);
        EXPECT_TRUE(process_.waitForStarted(kPatience));
    }
    ~Day() {
        process_.kill();
        process_.waitForFinished();
    }

    /// Until that save has begun, or the program has ended.
    void WaitForSaving(int number) {
        while (saving_ < number && (process_.canReadLine() || process_.waitForReadyRead(kPatience))) Read();
    }
    void Kill() {
        process_.kill();
        process_.waitForFinished(kPatience);
        Read();
    }
    /// The program's own end; false if it was no good one.
    bool Finish() {
        const bool finished = process_.waitForFinished(10 * kPatience);
        Read();
        return finished && process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
    }

    int Saved() const { return saved_; }  ///< how many saves of the whole day are reported to be done
    bool InSave() const { return saving_ >= saved_; }
    bool Died() const { return process_.state() == QProcess::NotRunning; }
    const std::vector<int>& Microseconds() const { return microseconds_; }

  private:
    void Read() {
        while (process_.canReadLine()) {
            const QList<QByteArray> words = process_.readLine().trimmed().split(' ');
            if (words.size() < 2) continue;
            if (words[0] == "saving") saving_ = words[1].toInt();
            if (words[0] == "saved") {
                saved_ = words[1].toInt() + 1;
                microseconds_.push_back(words.value(2).toInt());
            }
        }
    }

    QProcess process_;
    int saving_ = -1;
    int saved_;
    std::vector<int> microseconds_;
};

class Company {
  public:
    Company() {
        for (const QString& folder : {Whole(), Killed(), States()}) QDir().mkpath(folder);
        schema::MakeDatabase(File(Whole()));
        auto db = dao::Database::Open(File(Whole()), schema::kConnect.toString());
        for (const QString& statement : tests::CommandMasters()) db->Execute(statement);
        db->Close();
        QFile::copy(File(Whole()), File(Killed()));
        first_ = tests::StateOf(File(Whole()));
    }
    QString Whole() const { return folder_.filePath(u"whole"_s); }
    QString Killed() const { return folder_.filePath(u"killed"_s); }
    QString States() const { return folder_.filePath(u"states"_s); }
    static QString File(const QString& folder) { return folder + u'/' + schema::kDatabaseFile.toString(); }

    /// What the file holds after that many saves that nobody has disturbed.
    QStringList StateAfter(int saves) const {
        if (saves == 0) return first_;
        QFile file(States() + u"/%1.txt"_s.arg(saves - 1));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << saves;
        return QString::fromUtf8(file.readAll()).split(u'\n');
    }

  private:
    QTemporaryDir folder_;
    QStringList first_;
};

/// The lines in which two states differ, for whoever has to find out why.
QString Difference(const QStringList& is, const QStringList& should) {
    QStringList lines;
    for (const QString& line : is)
        if (!should.contains(line)) lines << u"is:     "_s + line;
    for (const QString& line : should)
        if (!is.contains(line)) lines << u"should: "_s + line;
    return lines.join(u'\n');
}

struct Tally {
    int kills = 0;
    int within = 0;  ///< a command, reported by the program's own words
};

/// One day done twice, once undisturbed and once killed again and again, until it is over or there were
/// enough kills.
void LiveThroughADay(std::mt19937& random, int wanted, Tally& tally) {
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const Company company;
    Day whole(company.Whole(), 0, company.States());
    ASSERT_TRUE(whole.Finish());
    const std::vector<int>& usual = whole.Microseconds();

    int done = 0;
    for (int vain = 0; done < kDay && tally.kills < wanted; ++tally.kills) {
        ASSERT_LT(vain, 50) << "no progress";
        Day run(company.Killed(), done);
        const bool atStart = upTo(8) == 0;  // while it opens the file, brings it up to date and logs in
        const int meant = std::min(done + upTo(4), kDay - 1);
        if (!atStart) run.WaitForSaving(meant);
        ASSERT_FALSE(run.Died() && run.Saved() < kDay) << "ended by itself after " << run.Saved();
        QThread::usleep(static_cast<unsigned long>(
            upTo(atStart ? 300'000 : std::max(usual[static_cast<size_t>(meant)] * 5 / 4, 1))));
        run.Kill();
        tally.within += run.InSave() ? 1 : 0;

        const QString file = Company::File(company.Killed());
        const QStringList state = tests::StateOf(tests::CopyAsLeft(file, company.States()));
        const QStringList before = company.StateAfter(run.Saved());
        const QStringList after = company.StateAfter(std::min(run.Saved() + 1, kDay));
        ASSERT_TRUE(state == before || state == after)
            << "kill " << tally.kills << " after command " << run.Saved() << '\n'
            << Difference(state, before).toStdString();
        const int now = run.Saved() + (state == before ? 0 : 1);
        vain = now == done ? vain + 1 : 0;
        done = now;
    }
    // Taken up a last time and ended in order, it holds what the undisturbed day holds, in one file.
    Day last(company.Killed(), done);
    ASSERT_TRUE(last.Finish());
    const QString file = Company::File(company.Killed());
    EXPECT_EQ(Difference(tests::StateOf(file), company.StateAfter(kDay)).toStdString(), "");
    EXPECT_EQ(QDir(company.Killed()).entryList(QDir::Files).filter(schema::kDatabaseFile.toString()).size(),
              1);
}

TEST(Kill, LeavesAllOfACommandOrNothing) {
    const auto seed = static_cast<unsigned>(
        tests::FromEnvironment("KILL_SEED", static_cast<int>(std::random_device()() & 0xffffff)));
    const int wanted = tests::FromEnvironment("KILLS", 25);
    std::printf("KILL_SEED=%u\n", seed);
    SCOPED_TRACE(testing::Message() << "KILL_SEED=" << seed);
    Tally tally;
    std::mt19937 random(seed);
    while (tally.kills < wanted && !HasFailure()) LiveThroughADay(random, wanted, tally);
    std::printf("%d kills, %d of them within a command\n", tally.kills, tally.within);
    EXPECT_GT(tally.within, tally.kills / 10) << "the moments miss what they are meant for";
}

/// The program at its work with nothing but that command, or with none; gives all that it says.
QByteArray WorkAt(const QString& folder, const QStringList& commands, int killAfter = -1) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(SAVE_LOOP), QStringList{folder, u"0"_s, {}, {}} + commands);
    QByteArray said;
    while (killAfter >= 0 && !said.contains("offered") && process.waitForReadyRead(kPatience))
        said += process.readAll();
    if (killAfter >= 0) {
        QThread::usleep(static_cast<unsigned long>(killAfter));
        process.kill();
    }
    EXPECT_TRUE(process.waitForFinished(kPatience));
    return said + process.readAll();
}

TEST(Kill, InsideTheOfferLeavesTheRecordLostOrPutBack) {
    const Company company;
    const QString start = Company::File(company.Whole()), file = Company::File(company.Killed());
    QStringList lost = company.StateAfter(0);
    lost.removeIf([](const QString& row) {
        return row.contains(u"W1") && (row.startsWith(u"B01:") || row.startsWith(u"TB1:"));
    });
    QStringList restored;
    int found[2] = {};
    const int kills = tests::FromEnvironment("KILLS", 25) / 2;
    for (int kill = -1; kill < kills; ++kill) {
        // The first run is left alone, the next killed before the answer, the others around it.
        QFile::remove(file);
        QFile::remove(file + u"-wal"_s);
        QFile::copy(start, file);
        WorkAt(company.Killed(), {u"offer"_s}, kill <= 0 ? kill : 19'500 + kill * 200);
        const QStringList state = tests::StateOf(tests::CopyAsLeft(file, company.States()));
        if (kill < 0) restored = state;
        ASSERT_TRUE(state == lost || state == restored) << Difference(state, lost).toStdString();
        EXPECT_EQ(WorkAt(company.Killed(), {}).contains("速递单W1"), state == lost) << "at the next login";
        ++found[state == lost ? 0 : 1];
    }
    std::printf("%d kills: %d lost, %d put back\n", kills, found[0], found[1] - 1);
    EXPECT_NE(restored, lost);
    EXPECT_GT(found[0], 0);
}

}  // namespace
