// A save on storage that fails: at each change of a file and at each reading, once and for ever after, with
// the file in memory and with hardly any of it there. Afterwards the file must hold all of the save or
// nothing, and the operator must have been told.
#include "app/data_access.h"
#include "tests/faults/recorded_program.h"
#include "tests/support/failing_vfs.h"

#include <QSet>

#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using tests::AltKey;
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

/// A program that stands right before a save.
class Ready : public tests::RecordedProgram {
  public:
    explicit Ready(Memory memory) : RecordedProgram(Failing(memory)) {}
};

void Add(Ready& program, const tests::WaybillEntry& entry) {
    AltKey(u'A');
    tests::FillCard(*program.Frame().Front(), entry);
}

/// Each leaves the program right before the Alt+S that is meant.
void ReleasedWaybill(Ready& program) {
    program.Open(u"B"_s, u"B01"_s);
    Add(program, {.number = u"W0"_s, .date = QDate(2024, 3, 16)});
    AltKey(u'S');
    Add(program, {.number = u"W1"_s, .date = QDate(2024, 3, 15)});
}

void EditOfReleasedWaybill(Ready& program) {
    program.Open(u"B"_s, u"B01"_s);
    for (const QString& number : {u"W1"_s, u"W2"_s}) {
        Add(program, {.number = number});
        AltKey(u'S');
    }
    AltKey(u'E');
    tests::FillCard(*program.Frame().Front(),
                    {.number = u"W3"_s, .customer = u"C3"_s, .date = QDate(2024, 3, 17), .total = 99.5});
}

void EditOfCourier(Ready& program) {
    program.Open(u"A6"_s, u"A04"_s);
    AltKey(u'E');
    program.SetBox(1, u"夜班"_s);
}

using Save = void (*)(Ready&);

enum class Lasting { Once, ForEver };

struct Case {
    const char* name;
    Save prepare;
    Memory memory;
    StorageFault fault;
    Lasting lasting;
};

constexpr Case Cases[] = {
    {"Released1", ReleasedWaybill, Memory::Ample, StorageFault::DiskFull, Lasting::ForEver},
    {"Released2", ReleasedWaybill, Memory::Ample, StorageFault::IoError, Lasting::Once},
    {"Released3", ReleasedWaybill, Memory::Scarce, StorageFault::DiskFull, Lasting::Once},
    {"Released4", ReleasedWaybill, Memory::Scarce, StorageFault::IoError, Lasting::ForEver},
    {"Released5", ReleasedWaybill, Memory::Scarce, StorageFault::ReadError, Lasting::Once},
    {"Edit1", EditOfReleasedWaybill, Memory::Ample, StorageFault::DiskFull, Lasting::Once},
    {"Edit2", EditOfReleasedWaybill, Memory::Scarce, StorageFault::DiskFull, Lasting::ForEver},
    {"Edit3", EditOfReleasedWaybill, Memory::Scarce, StorageFault::ReadError, Lasting::ForEver},
    {"Courier1", EditOfCourier, Memory::Ample, StorageFault::DiskFull, Lasting::Once},
    {"Courier2", EditOfCourier, Memory::Ample, StorageFault::IoError, Lasting::ForEver},
    {"Courier3", EditOfCourier, Memory::Scarce, StorageFault::IoError, Lasting::Once},
    {"Courier4", EditOfCourier, Memory::Scarce, StorageFault::ReadError, Lasting::Once},
};

void PrintTo(const Case& each, std::ostream* out) {
    *out << each.name;
}

struct States {
    QStringList before, after;
};

/// What an undisturbed save makes of the file.
States Undisturbed(Save prepare, Memory memory) {
    const tests::FailingStorage storage;
    Ready program(memory);
    prepare(program);
    States states;
    states.before = program.StateLeft();
    AltKey(u'S');
    states.after = program.StateLeft();
    EXPECT_TRUE(program.boxes.empty());
    EXPECT_FALSE(EditInProgress);
    EXPECT_NE(states.before, states.after);
    return states;
}

/// Looks at what a save left that met a fault; gives the statement that the report showed.
QString CheckReport(Ready& program, const States& states, const Case& each) {
    EXPECT_EQ(program.status, 1) << "the program goes on";
    EXPECT_EQ(program.boxes.size(), 1U);
    if (program.boxes.empty()) return {};
    const sys::BoxRequest& box = program.boxes.front();
    EXPECT_EQ(box.icon, sys::BoxIcon::Critical);
    EXPECT_FALSE(box.detail.isEmpty());
    const QString words =
        each.fault == StorageFault::DiskFull ? u"database or disk is full"_s : u"disk I/O error"_s;
    EXPECT_TRUE(box.text.startsWith(words)) << box.text.toStdString();
    EXPECT_TRUE(box.text.contains(Lost)) << box.text.toStdString() << box.detail.toStdString();
    const QStringList left = program.StateLeft();
    // Storage that dies in the commit and stays dead may hold the whole command all the same.
    const bool mayBeThere = each.lasting == Lasting::ForEver && box.detail == u"commit";
    EXPECT_TRUE(left == states.before || (mayBeThere && left == states.after))
        << left.join(u'\n').toStdString();
    return box.detail;
}

class SaveOnFailingStorage : public testing::TestWithParam<Case> {};

TEST_P(SaveOnFailingStorage, KeepsAllOrNothingAndSaysSo) {
    const Case& each = GetParam();
    const States states = Undisturbed(each.prepare, each.memory);
    QSet<QString> reported;
    for (int n = 1;; ++n) {
        ASSERT_LT(n, 500);
        SCOPED_TRACE(testing::Message() << "fault " << n);
        tests::FailingStorage storage;
        Ready program(each.memory);
        each.prepare(program);
        storage.FailAt(n, each.fault, each.lasting == Lasting::ForEver);
        AltKey(u'S');
        const bool failed = storage.HasFailed();
        storage.Heal();
        if (!failed) {
            EXPECT_FALSE(program.status);
            EXPECT_EQ(program.StateLeft(), states.after);
            break;
        }
        reported << CheckReport(program, states, each);
        if (HasFailure()) return;
    }
    if (each.memory == Memory::Scarce && each.prepare != EditOfCourier) {
        EXPECT_GT(reported.size(), 5) << "the faults miss the statements";
    }
}

INSTANTIATE_TEST_SUITE_P(Every, SaveOnFailingStorage, testing::ValuesIn(Cases),
                         [](const auto& each) { return std::string(each.param.name); });

TEST(ASave, IsThereOrNotWheneverTheProcessDies) {
    for (const Save prepare : {ReleasedWaybill, EditOfReleasedWaybill, EditOfCourier}) {
        for (const Memory memory : {Memory::Ample, Memory::Scarce}) {
            const States states = Undisturbed(prepare, memory);
            tests::FailingStorage storage;
            Ready program(memory);
            prepare(program);
            const QTemporaryDir copies;
            std::vector<QString> left;
            const auto look = [&] {
                const QString folder = copies.filePath(QString::number(left.size()));
                QDir().mkpath(folder);
                left.push_back(tests::CopyAsLeft(program.File(), folder));
            };
            storage.BeforeEachChange(look);
            AltKey(u'S');
            ::Db->Close();  // brings the log into the file
            storage.BeforeEachChange({});
            look();
            EXPECT_GT(left.size(), 5U);
            bool there = false;
            for (const QString& file : left) {
                const QStringList state = tests::StateOf(file);
                EXPECT_TRUE(state == states.after || (!there && state == states.before))
                    << state.join(u'\n').toStdString();
                there = state == states.after;
            }
            EXPECT_TRUE(there);
        }
    }
}

// Two boxes stand in the middle of a save, which goes on behind them. Whoever is called away while one of
// them waits finds all of the save afterwards, or nothing.
TEST(ASave, IsNotHalfKeptWhileABoxInItsMiddleWaits) {
    const tests::FailingStorage storage;
    Ready program(Memory::Ample);
    program.Open(u"B"_s, u"B01"_s);
    program.Execute(u"insert into TB1 (SN,LB,F1,F2,F3) VALUES (131,10,'FK1','2024-03-01','某')"_s);
    program.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3) VALUES (131.00000000000003,10,'FK2','2024-03-20','某')"_s);
    Add(program, {});
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
