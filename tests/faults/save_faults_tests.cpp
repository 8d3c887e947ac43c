// Every command that writes, on storage that fails: at each change of a file and at each reading, once and
// for ever after, with the file in memory and with hardly any of it there. Afterwards the file must hold all
// of the command or nothing, and the operator must have been informed.
#include "app/data_access.h"
#include "history/failed_command.h"
#include "platform/dao/busy.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"
#include "tests/support/data_file.h"
#include "tests/support/failing_vfs.h"

#include <QScopeGuard>
#include <QSet>

#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using tests::AltKey;
using tests::Command;
using tests::StorageFault;

namespace {

const QString Lost = u"本次操作已写入的内容未能保存，全部撤回。"_s;

/// With hardly any page in memory the engine reads and writes in the middle of the statements, and not in the
/// commit alone.
enum class Memory { Ample, Scarce };

tests::OpenWith Failing(Memory memory) {
    if (memory == Memory::Ample) return {.vfs = u"failing"_s};
    return {.vfs = u"failing"_s, .prepare = [](sqlite3* engine) {
                EXPECT_EQ(sqlite3_exec(engine, "pragma cache_size=4", nullptr, nullptr, nullptr), SQLITE_OK);
            }};
}

/// A backup for the command that restores one: a company that has nothing yet.
QString Backup() {
    static const tests::Company fresh;
    return fresh.File();
}

/// A program right before the key of a command.
class Ready : public tests::RecordedProgram {
  public:
    Ready(const Command& command, Memory memory)
        : RecordedProgram(tests::CommandMasters(), Failing(memory)), command_(command) {
        Frame().setUpdatesEnabled(false);  // nobody looks, and drawing takes longer than all the rest
        sys::seams().askFile = [](const sys::FileRequest&) { return Backup(); };
        tests::Prepare(*this, command);
        EXPECT_TRUE(boxes.empty()) << command.name;
    }
    void Give() { command_.give(*this); }
    QStringList Emitted() const {
        QStringList reported;
        for (const sys::BoxRequest& box : boxes) reported << box.text;
        return reported;
    }

  private:
    const Command& command_;
};

/// What an undisturbed command says and makes of the file.
struct Course {
    QStringList before, after, reported;
    std::optional<int> status;
};

Course Undisturbed(const Command& command, Memory memory) {
    const tests::FailingStorage storage;
    Ready program(command, memory);
    Course course;
    course.before = program.StateLeft();
    program.Give();
    course.after = program.StateLeft();
    course.reported = program.Emitted();
    course.status = program.status;
    EXPECT_NE(course.before, course.after);
    EXPECT_FALSE(EditInProgress) << course.reported.join(u' ').toStdString();
    EXPECT_NE(course.status, 1);
    return course;
}

enum class Lasting { Once, ForEver };

struct Fault {
    StorageFault kind;
    Lasting lasting;
};

constexpr Fault Faults[] = {{StorageFault::DiskFull, Lasting::ForEver},
                            {StorageFault::IoError, Lasting::Once},
                            {StorageFault::DiskFull, Lasting::Once},
                            {StorageFault::IoError, Lasting::ForEver}};

/// Looks at what a command left that met a fault; gives the statement that the report showed.
QString CheckReport(Ready& program, const Course& course, const Fault& fault) {
    EXPECT_EQ(program.status, 1) << "the program goes on";
    const sys::BoxRequest& box = program.boxes.back();
    EXPECT_EQ(program.Emitted().mid(0, program.boxes.size() - 1),
              course.reported.mid(0, program.boxes.size() - 1));
    EXPECT_EQ(box.icon, sys::BoxIcon::Critical);
    EXPECT_FALSE(box.detail.isEmpty());
    const QString words = fault.kind == StorageFault::DiskFull ? u"磁盘已满"_s : u"读写数据文件时出错"_s;
    EXPECT_TRUE(box.text.startsWith(words)) << box.text.toStdString();
    // A file that does not open again, after it was closed to be copied, has lost nothing.
    EXPECT_TRUE(box.text.contains(Lost) || box.detail == program.File())
        << box.text.toStdString() << box.detail.toStdString();
    const QStringList left = program.StateLeft();
    // Storage that dies in the commit and stays dead may hold the whole command all the same.
    const bool mayBeThere = fault.lasting == Lasting::ForEver && box.detail == u"commit";
    EXPECT_TRUE(left == course.before || (mayBeThere && left == course.after))
        << left.join(u'\n').toStdString();
    return box.detail;
}

/// The command once, its n-th change (or reading) failing. False when it has fewer; the statement that the
/// report showed joins the others.
bool FailsAt(int n, const Command& command, Memory memory, const Fault& fault, const Course& course,
             QSet<QString>& reported) {
    SCOPED_TRACE(testing::Message() << command.name << ", fault " << n);
    tests::FailingStorage storage;
    Ready program(command, memory);
    storage.FailAt(n, fault.kind, fault.lasting == Lasting::ForEver);
    program.Give();
    const bool failed = storage.HasFailed();
    storage.Heal();
    if (program.status == course.status && program.Emitted() == course.reported)
        // Untouched, or what failed was not needed: a file that is replaced need not be put in order first.
        EXPECT_EQ(program.StateLeft(), course.after);
    else if (!program.boxes.empty())
        reported << CheckReport(program, course, fault);
    else
        ADD_FAILURE() << "nobody was reported";
    return failed;
}

class OnFailingStorage : public testing::TestWithParam<std::string> {};

TEST_P(OnFailingStorage, ACommandIsKeptWholeOrNotAtAllAndSaysSo) {
    const Command& command = tests::CommandOf(GetParam());
    const Course course = Undisturbed(command, Memory::Ample);
    QSet<QString> reported;
    int n = 1;
    // The ways of failing take turns, and begin elsewhere for each command.
    const auto turn = std::hash<std::string>()(command.name);
    while (FailsAt(n, command, Memory::Ample, Faults[(turn + static_cast<size_t>(n)) % std::size(Faults)],
                   course, reported)) {
        ASSERT_LT(++n, 500);
        if (HasFailure()) return;
    }
    EXPECT_GT(n, 3);  // a page, its frame, and that it has reached the disk
    std::printf("%d writes failed\n", n - 1);
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Command& command : tests::WritingCommands()) names.emplace_back(command.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Every, OnFailingStorage, testing::ValuesIn(Names()),
                         [](const auto& each) { return each.param; });

TEST(WithScarceMemory, ACommandFailsInTheMiddleOfItsStatementsToo) {
    const Fault reading{StorageFault::ReadError, Lasting::Once};
    const struct {
        const char* command;
        Fault fault;
    } rows[] = {
        {"B01_Edit", Faults[2]},
        {"B01_Add", reading},
        {"A03_Edit", Faults[3]},
    };
    for (const auto& row : rows) {
        const Command& command = tests::CommandOf(row.command);
        const Course course = Undisturbed(command, Memory::Scarce);
        QSet<QString> reported;
        int n = 1;
        while (FailsAt(n, command, Memory::Scarce, row.fault, course, reported)) {
            ASSERT_LT(++n, 500);
            if (HasFailure()) return;
        }
        std::printf("%s: %d failed in %d statements\n", row.command, n - 1, int(reported.size()));
        EXPECT_GT(reported.size(), 2) << "the faults miss the statements";
    }
}

/// A command that fails behind its deletions; the offer to put the waybill back is accepted.
void FailAndAcceptTheOffer() {
    sys::Guarded([] {
        ::Db->Execute(u"delete from TB1 where F1='YSW1' or F1='YFW1'"_s);
        ::Db->Execute(u"delete from B01 where F1='W1'"_s);
        ::Db->Execute(u"insert into B01 (F1) VALUES ('a'b')"_s);
    });
}

TEST(TheOffer, PutsBackAllOrSaysThatItFailed) {
    const auto off = qScopeGuard([] { sys::onFailure() = {}; });
    const auto start = [] {
        auto program =
            std::make_unique<tests::RecordedProgram>(tests::CommandMasters(), Failing(Memory::Ample));
        history::WatchFailures();
        return program;
    };
    // What a process that dies at its beginning, at the report, at the question and at its end leaves.
    QList<QStringList> states;
    {
        const tests::FailingStorage storage;
        const auto program = start();
        states += program->StateLeft();
        program->whileBox = [&] { states += program->StateLeft(); };
        FailAndAcceptTheOffer();
    }
    ASSERT_EQ(states.size(), 4);
    const QStringList &before = states[0], &lost = states[1], &restored = states[3];
    EXPECT_EQ(states[2], lost);
    EXPECT_NE(before, lost);
    EXPECT_EQ(restored.filter(u"B01:"_s), before.filter(u"B01:"_s));
    EXPECT_EQ(restored.filter(u"TB1:"_s).size(), before.filter(u"TB1:"_s).size());
    int failedToPutBack = 0;
    for (int n = 1;; ++n) {
        SCOPED_TRACE(testing::Message() << "fault " << n);
        tests::FailingStorage storage;
        const auto program = start();
        const Fault& fault = Faults[static_cast<size_t>(n) % std::size(Faults)];
        storage.FailAt(n, fault.kind, fault.lasting == Lasting::ForEver);
        FailAndAcceptTheOffer();
        const bool failed = storage.HasFailed();
        storage.Heal();
        EXPECT_EQ(program->status, 1);
        const QString said = program->boxes.back().text;
        const QStringList left = program->StateLeft();
        // Storage that dies in a commit and stays dead may hold the whole command all the same.
        const bool dead = failed && fault.lasting == Lasting::ForEver;
        if (said == u"恢复完成!"_s) {
            EXPECT_EQ(left, restored);
        } else if (said.startsWith(u"恢复失败！"_s)) {
            EXPECT_TRUE(left == lost || (dead && left == restored)) << left.join(u'\n').toStdString();
            ++failedToPutBack;
        } else {
            EXPECT_TRUE(said.contains(Lost)) << said.toStdString();
            EXPECT_TRUE(left == before || (dead && left == lost)) << left.join(u'\n').toStdString();
        }
        if (!failed) break;
        ASSERT_LT(n, 500);
        if (HasFailure()) return;
    }
    EXPECT_GT(failedToPutBack, 3);
}

TEST(TheOffer, SaysThatTheFileIsBusyWhereTheOperatorGivesUp) {
    const auto off = qScopeGuard([] {
        sys::onFailure() = {};
        dao::whenBusy() = {};
    });
    const tests::FailingStorage storage;
    tests::RecordedProgram program(tests::CommandMasters(), Failing(Memory::Ample));
    history::WatchFailures();
    dao::whenBusy().handle = [](const auto&) { throw sys::CommandGivenUp{}; };
    std::unique_ptr<tests::Connection> other;
    QStringList lost;
    program.whileBox = [&] {
        if (program.boxes.size() != 1) return;
        lost = program.StateLeft();
        other = std::make_unique<tests::Connection>(program.File());
        other->Run(u"begin immediate"_s);
    };
    FailAndAcceptTheOffer();
    other.reset();
    EXPECT_EQ(program.status, 1);
    EXPECT_EQ(program.boxes.back().text, u"恢复失败！数据文件正忙"_s);
    EXPECT_EQ(program.StateLeft(), lost);
}

// Two boxes are in the middle of a save, which goes on behind them. Whoever is called away while one of
// them waits finds all of the save afterwards, or nothing.
TEST(ACommand, IsNotHalfKeptWhileABoxInItsMiddleWaits) {
    const tests::FailingStorage storage;
    tests::RecordedProgram program(tests::FaultMasters(), Failing(Memory::Ample));
    program.Open(u"B"_s, u"B01"_s);
    program.Execute(u"insert into TB1 (SN,LB,F1,F2,F3) VALUES (131,10,'FK1','2024-03-01','某')"_s);
    program.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3) VALUES (131.00000000000003,10,'FK2','2024-03-20','某')"_s);
    AltKey(u'A');
    tests::FillCard(*program.Frame().Front(), {});
    const QStringList before = program.StateLeft();
    QStringList meanwhile;
    program.whileBox = [&] { meanwhile = program.StateLeft(); };
    AltKey(u'S');
    ASSERT_EQ(program.boxes.size(), 1U);
    EXPECT_TRUE(program.boxes[0].text.startsWith(u"您历史日期中插入了过多的单据"_s));
    EXPECT_EQ(meanwhile, before);
    EXPECT_EQ(program.Rows(u"select F1 from TB1 where F1 like 'Y*'"_s).size(), 2);
    EXPECT_NE(program.StateLeft(), before);

    const QStringList saved = program.StateLeft();
    sys::Guarded([&] {
        ::Db->Execute(u"delete from B01"_s);
        EXPECT_EQ(GetStr(u"select nothing from TB1"_s), QString());
        ::Db->Execute(u"delete from TB1"_s);
    });
    ASSERT_EQ(program.boxes.size(), 2U);
    EXPECT_TRUE(program.boxes[1].text.startsWith(u"GetStr执行错误!"_s));
    EXPECT_EQ(meanwhile, saved);
    EXPECT_TRUE(program.StateLeft().filter(u"B01:"_s).isEmpty());
}

}  // namespace
