// The program is killed at random moments while it saves waybills. Whatever the moment, the next start must
// find either all of the save that was under way or nothing of it.
//
// KILL_SEED=n repeats a run's waybills and choices (the moments depend on the machine), KILL_SAVES=n makes it
// longer or shorter.
#include "platform/dao/database.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "tests/faults/company_state.h"
#include "tests/faults/waybill_entry.h"

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
const QStringList kSteady = {u"华兴"_s, u"环洋"_s};

int FromEnvironment(const char* name, int otherwise) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

/// The program at its work, told by the lines that it writes.
class Day {
  public:
    Day(const QString& folder, unsigned seed, int first, int end, const QString& states = {})
        : saved_(first) {
        QStringList arguments{folder, QString::number(seed), QString::number(first), QString::number(end)};
        if (!states.isEmpty()) arguments << states;
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QStringLiteral(SAVE_LOOP), arguments);
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

    int Saved() const { return saved_; }  ///< how many saves of the whole day are told to be done
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
        for (const QString& statement : tests::FaultMasters()) db->Execute(statement);
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

TEST(Kill, LeavesAllOfASaveOrNothing) {
    const auto seed = static_cast<unsigned>(
        FromEnvironment("KILL_SEED", static_cast<int>(std::random_device()() & 0xffffff)));
    const int saves = FromEnvironment("KILL_SAVES", 200);
    std::printf("KILL_SEED=%u\n", seed);
    SCOPED_TRACE(testing::Message() << "KILL_SEED=" << seed);
    std::mt19937 random(seed);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };

    const Company company;
    const int end = saves + 3;
    Day whole(company.Whole(), seed, 0, end, company.States());
    ASSERT_TRUE(whole.Finish());
    std::vector<int> times = whole.Microseconds();
    std::nth_element(times.begin(), times.begin() + end / 2, times.end());
    const int usual = times[static_cast<size_t>(end) / 2];

    int done = 0;
    int kills = 0;
    int within = 0;
    for (; done < saves; ++kills) {
        ASSERT_LT(kills, saves) << "no progress";
        Day run(company.Killed(), seed, done, end);
        const bool atStart = upTo(8) == 0;  // while it opens the file, brings it up to date and logs in
        if (!atStart) run.WaitForSaving(done + upTo(10));
        ASSERT_FALSE(run.Died() && run.Saved() < saves) << "ended by itself after " << run.Saved();
        QThread::usleep(static_cast<unsigned long>(upTo(atStart ? 300'000 : usual * 5 / 4)));
        run.Kill();
        within += run.InSave() ? 1 : 0;

        const QString file = Company::File(company.Killed());
        const QStringList state = tests::StateOf(tests::CopyAsLeft(file, company.States()));
        const QStringList before = company.StateAfter(run.Saved());
        const QStringList after = company.StateAfter(std::min(run.Saved() + 1, end));
        ASSERT_TRUE(state == before || state == after)
            << "kill " << kills << " after save " << run.Saved() << '\n'
            << Difference(state, before).toStdString();
        const QStringList contradictions =
            tests::ContradictionsIn(tests::CopyAsLeft(file, company.States()), kSteady);
        ASSERT_TRUE(contradictions.isEmpty()) << contradictions.join(u'\n').toStdString();
        done = run.Saved() + (state == before ? 0 : 1);
    }
    std::printf("%d kills over %d saves, %d of them within a save\n", kills, done, within);
    EXPECT_GT(within, kills / 10) << "the moments miss what they are meant for";

    // Taken up a last time and ended in order, it holds what the undisturbed day holds, in one file.
    Day last(company.Killed(), seed, done, end);
    ASSERT_TRUE(last.Finish());
    const QString file = Company::File(company.Killed());
    EXPECT_EQ(Difference(tests::StateOf(file), company.StateAfter(end)).toStdString(), "");
    EXPECT_EQ(QDir(company.Killed()).entryList(QDir::Files).filter(schema::kDatabaseFile.toString()).size(),
              1);
}

}  // namespace
