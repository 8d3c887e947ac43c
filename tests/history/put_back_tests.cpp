// 恢复: what the commands of the real forms took or overwrote comes back, with nulls, apostrophes and journal
// rows; what is refused.
#include "app/history_groups.h"
#include "app/main_window.h"
#include "history/failed_command.h"
#include "history/put_back.h"
#include "platform/dao/busy.h"
#include "platform/errors.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"
#include "tests/faults/waybill_entry.h"
#include "tests/history/state.h"
#include "tests/support/data_file.h"
#include "tests/support/gui.h"
#include "waybills/waybill_fields.h"

#include <QScopeGuard>

#include <gtest/gtest.h>

namespace tests {
namespace {

using history::Action;
using history::Entry;

QString One(const QString& select) {
    auto rows = Db->ReadEngine(select);
    return rows.Eof() ? QString() : rows.Fields(0).Text();
}

std::vector<Entry> LastCommand() {
    Db->CloseGroup();
    return history::OfGroup(*Db, One(u"select N-1 from HNow"_s).toLongLong());
}

/// The entry of the last command for that record.
Entry EntryFor(const QByteArray& table, const QString& key) {
    for (const Entry& entry : LastCommand())
        if (entry.object->table == table && entry.key == key) return entry;
    ADD_FAILURE() << "no entry for " << key.toStdString();
    return {};
}

void PutBack(const Entry& entry) {
    ASSERT_EQ(history::Refusal(*Db, entry), QString());
    ASSERT_EQ(history::PutBack(*Db, entry, u"neu"_s), QString());
    Db->CloseGroup();
}

class UndoneCommand : public testing::TestWithParam<std::string> {};

TEST_P(UndoneCommand, HasItsRecordsBackEntryByEntry) {
    const Command& command = CommandOf(GetParam());
    RecordedProgram program(CommandMasters());
    Prepare(program, command);
    const QStringList before = KeptState(false);
    command.give(program);
    ASSERT_NE(KeptState(false), before);
    for (const Entry& entry : LastCommand()) {
        SCOPED_TRACE((entry.caption + entry.key).toStdString());
        if (entry.action != Action::Added) {
            PutBack(entry);
        } else {
            EXPECT_FALSE(history::Refusal(*Db, entry).isEmpty());
        }
    }
    EXPECT_EQ(KeptState(false), before);
    if (GetParam() != "B01_Delete" && GetParam() != "B01_Edit") return;
    EXPECT_EQ(One(u"select b.SN-a.SN from TB1 a join TB1 b on a.F1='YSW1' and b.F1='YFW1'"_s), u"1"_s);
    EXPECT_EQ(One(u"select count(*) from TB1 where F1 in ('YSW1','YFW1') and QC+YF-FK=QM"_s), u"2"_s);
    EXPECT_EQ(One(u"select QC from TB1 where F1='YFW1'"_s), One(u"select QM from TB1 where F1='FK1'"_s));
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Command& command : WritingCommands()) {
        const QByteArray name = command.name;
        if (name.contains("Edit") || name.contains("Delete") || name == "B01_Release" || name == "S01_Save")
            names.push_back(name.toStdString());
    }
    return names;
}

INSTANTIATE_TEST_SUITE_P(History, UndoneCommand, testing::ValuesIn(Names()),
                         [](const auto& each) { return each.param; });

class PuttingBack : public RecordedProgram, public testing::Test {
  public:
    PuttingBack() : RecordedProgram(CommandMasters()) {}
    /// One command on the file.
    static void Run(const QString& statement) {
        Db->CloseGroup();
        Db->ExecuteEngine(statement);
        Db->CloseGroup();
    }
    static QString RefusalOf(const Entry& entry) { return history::Refusal(*Db, entry); }
};

TEST_F(PuttingBack, KeepsNullsApostrophesAndExactNumbers) {
    Run(u"insert into M03 (F1,F2,F5,F9,P888) values ('O''H','O''Hara',null,'',0.1)"_s);
    Run(u"insert into M031 (F0,F1,F2,F3) values ('O''H','Z''1',1.0/3,null)"_s);
    const QStringList before = KeptState();
    Db->ExecuteEngine(u"delete from M03 where F1='O''H'"_s);
    Db->ExecuteEngine(u"delete from M031 where F0='O''H'"_s);
    PutBack(EntryFor("M03", u"O'H"_s));
    EXPECT_EQ(KeptState(), before);
    EXPECT_EQ(One(u"select (F2=1.0/3)||typeof(F3) from M031 where F0='O''H'"_s), u"1null"_s);
    EXPECT_EQ(One(u"select typeof(F5)||typeof(F9) from M03 where F1='O''H'"_s), u"nulltext"_s);
}

TEST_F(PuttingBack, RefusesAKeyThatIsInUseAgain) {
    Run(u"delete from M04 where F1='乙'"_s);
    const Entry deleted = EntryFor("M04", u"乙"_s);
    Run(u"insert into M04 (F1) values ('乙')"_s);
    EXPECT_EQ(RefusalOf(deleted), u"[乙]已经重新使用，不能恢复!"_s);
}

TEST_F(PuttingBack, GoesBackOverLaterChangesOfTheSameRecord) {
    const auto states = [&] { return KeptState(false); };
    const QStringList before = states();
    WriteBefore("History_Overwrite");
    const Entry edit = EntryFor("B01", u"W1"_s);
    const QStringList edited = states();
    Run(u"update B01 set F604='管理员' where F1='W1'"_s);
    const Entry release = EntryFor("B01", u"W1"_s);
    for (const auto& statement :
         {u"delete from TB1 where F1='YSW1'"_s, u"delete from B01 where F1='W1'"_s,
          u"insert into B01 (F1,F504) values ('W5',70)"_s, u"delete from B011 where F1='W1'"_s,
          u"insert into TB1 (SN,LB,F1,F2,F3,YF) values (131,-9,'YSW5','2024-03-16','恒丰',70)"_s})
        Db->ExecuteEngine(statement);
    Db->CloseGroup();
    EXPECT_TRUE(history::Question(*Db, edit).contains(
        u"。\r此后的 2 次改动也一并撤销，但仍保留在操作记录中。\r同时恢复 2 笔帐款。"_s));
    PutBack(edit);
    EXPECT_EQ(states(), before);
    EXPECT_EQ(RefusalOf(release), QString()) << "what was undone is in the history";
    PutBack(release);
    EXPECT_EQ(states(), edited);
    // Over a deletion only where 操作记录 has undone it.
    for (const auto& from : {u"TB1 where F1='YSW1'"_s, u"B01 where F1='W1'"_s, u"B011 where F1='W1'"_s})
        Db->ExecuteEngine(u"delete from "_s + from);
    const Entry deletion = EntryFor("B01", u"W1"_s);
    EXPECT_EQ(RefusalOf(edit), u"[W1]此后已被删除，请先恢复该删除!"_s);
    PutBack(deletion);
    EXPECT_EQ(states(), edited);
    OperatorCode = u"8"_s;
    EXPECT_EQ(RefusalOf(edit), u"已出货的速递单只有管理员才能恢复!"_s);
    OperatorCode = u"001"_s;
    PutBack(edit);
    EXPECT_EQ(states(), before);
}

TEST_F(PuttingBack, RemovesStepsThatTheEditHasStoredFirst) {
    for (const auto& statement : {u"delete from B01 where F1='W2'"_s, u"insert into B01 (F1) values ('W2')"_s,
                                  u"insert into B011 (F1,F5) values ('W2','11 0 0 9')"_s})
        Db->ExecuteEngine(statement);
    PutBack(EntryFor("B01", u"W2"_s));
    EXPECT_EQ(One(u"select count(*) from B011 where F1='W2'"_s), u"0"_s);
    Run(u"insert into B01 (F1) values ('W3')"_s);
    EXPECT_EQ(One(u"select count(*) from H_B011 where F1='W3'"_s), u"0"_s);
    // Steps that were stored under a later number do not come back without their waybill.
    Run(u"insert into B011 (F1,F5) values ('W5','11 0 0 9')"_s);
    Run(u"update B01 set F1='W5' where F1='W3'"_s);
    const Entry renamed = EntryFor("B01", u"W3"_s);
    for (const auto& statement : {u"delete from B01 where F1='W5'"_s, u"delete from B011 where F1='W5'"_s,
                                  u"insert into B01 (F1) values ('W5')"_s})
        Db->ExecuteEngine(statement);
    PutBack(renamed);
    EXPECT_EQ(One(u"select count(*) from B011 where F1='W5'"_s), u"0"_s);
}

TEST_F(PuttingBack, RefusesWhatItsOwnGroupRemovesFromTheHistory) {
    const auto limits = qScopeGuard([] { historyLimits() = {}; });
    Run(u"update M04 set F2='neu' where F1='乙'"_s);
    const Entry changed = EntryFor("M04", u"乙"_s);
    const QStringList before = KeptState();
    historyLimits().rows = 0;
    EXPECT_EQ(RefusalOf(changed), QString());
    EXPECT_EQ(history::PutBack(*Db, changed), u"该记录的内容已不在操作记录中，不能恢复!"_s);
    EXPECT_EQ(KeptState(), before);
}

TEST_F(PuttingBack, LeavesJournalRowsThatNoneOfTheChangesHasTaken) {
    const QString journal = u"select group_concat(F1||' '||SN) from TB1"_s;
    const QString rows = One(journal);
    Run(u"update B01 set F604='未审核' where F1='W1'"_s);
    const QStringList before = KeptState(false);
    Run(u"update B01 set F604='管理员' where F1='W1'"_s);
    const Entry release = EntryFor("B01", u"W1"_s);
    Run(u"delete from B01 where F1='W1'"_s);
    PutBack(EntryFor("B01", u"W1"_s));
    PutBack(release);
    EXPECT_EQ(KeptState(false), before);
    EXPECT_EQ(One(journal), rows) << "in their places";
    WriteBefore("History_Overwrite");
    PutBack(release);
    EXPECT_EQ(KeptState(false), before);
}

TEST_F(PuttingBack, TakesNoOtherRecordThatHasTheKeyNow) {
    Run(u"delete from M04 where F1='乙'"_s);
    const Entry first = EntryFor("M04", u"乙"_s);
    Run(u"insert into M04 (F1,F2) values ('乙','neu')"_s);
    Run(u"update M04 set F2='y' where F1='乙'"_s);
    const Entry changed = EntryFor("M04", u"乙"_s);
    Run(u"delete from M04 where F1='乙'"_s);
    PutBack(first);
    EXPECT_EQ(RefusalOf(changed), u"[乙]此后已被删除，请先恢复该删除!"_s);
}

TEST_F(PuttingBack, RollsTheBalancesBehindTheOldPlacesToo) {
    const auto balances = [](const QString& party) {
        return One(
            u"select group_concat(F1||' '||QC||' '||QM) from (select * from TB1 where F3='%1' "
            u"order by SN)"_s.arg(party));
    };
    Run(u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values (200,-9,'A','2024-03-16','新',10,0,10,'甲'),"
        u"(202,-9,'B','2024-03-16','新',5,10,15,'甲')"_s);
    Run(u"delete from TB1 where F1='A'"_s);
    PutBack(EntryFor("TB1", u"A"_s));
    EXPECT_EQ(balances(u"新"_s), u"B 0.0 5.0,A 5.0 15.0"_s);
    Run(u"update TB1 set F3='旧' where F1='A'"_s);
    const Entry moved = EntryFor("TB1", u"A"_s);
    Run(u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values (300,-9,'C','2024-03-16','旧',7,10,17,'甲')"_s);
    PutBack(moved);
    EXPECT_EQ(balances(u"旧"_s), u"C 0.0 7.0"_s);
    EXPECT_EQ(balances(u"新"_s), u"B 0.0 5.0,A 5.0 15.0"_s);
    Run(u"delete from TB1 where F1='A'"_s);
    const Entry deleted = EntryFor("TB1", u"A"_s);
    Run(u"update TB1 set FK=null where F1='B'"_s);
    EXPECT_EQ(RefusalOf(deleted), u"关系单位的帐款中有空的金额，不能恢复!"_s);
}

TEST_F(PuttingBack, IsFoundBehindMoreEntriesThanAreShown) {
    Run(u"delete from M04 where F1='乙'"_s);
    Run(u"with recursive n(i) as (select 1 union all select i+1 from n where i<1001) "
        u"insert into M04 (F1) select 'Z'||i from n"_s);
    const QDate day(2024, 3, 15);
    bool cut = true;
    const history::Object& couriers = *std::ranges::find(history::Objects(), "M04", &history::Object::table);
    history::Search search{
        .object = &couriers, .menus = {couriers.menu}, .from = day, .to = day, .text = u"乙"_s};
    const auto found = history::Find(*Db, search, &cut);
    EXPECT_EQ(found.size(), 2U) << "added and deleted";
    EXPECT_FALSE(cut);
    search.text.clear();
    EXPECT_EQ(history::Find(*Db, search, &cut).size(), 1000U);
    EXPECT_TRUE(cut);
}

TEST_F(PuttingBack, LeavesAJournalRowThatItsWaybillHasWrittenSince) {
    Run(u"update TB1 set YF=55 where F1='YSW1'"_s);
    const Entry byHand = EntryFor("TB1", u"YSW1"_s);
    WriteBefore("History_Overwrite");
    EXPECT_EQ(RefusalOf(byHand), u"[YSW1]随速递单[W1]一起恢复，请恢复该速递单!"_s);
}

TEST_F(PuttingBack, ShowsWhatOneCommandInsertedAndDeletedAsBoth) {
    for (const auto& statement : {u"insert into M04 (F1) values ('丁')"_s, u"delete from M04 where F1='丁'"_s,
                                  u"delete from M04 where F1='乙'"_s, u"insert into M04 (F1) values ('乙')"_s,
                                  u"delete from M04 where F1='乙'"_s})
        Db->ExecuteEngine(statement);
    QStringList words;
    for (const Entry& entry : LastCommand()) words += history::WordOf(entry.action) + entry.key;
    EXPECT_EQ(words.join(u' '), u"新增丁 删除丁 删除乙"_s);
    PutBack(EntryFor("M04", u"乙"_s));
    EXPECT_EQ(One(u"select F2 from M04 where F1='乙'"_s), u"二"_s);
}

TEST_F(PuttingBack, SaysThatAnotherProgramHasWritten) {
    Connection other(File());
    other.Run(u"delete from M04 where F1='乙'"_s);
    other.Run(u"insert into M04 (F1) values ('己')"_s);
    const auto entries = history::OfGroup(*Db, One(u"select N from HNow"_s).toLongLong());
    ASSERT_EQ(entries.size(), 2U) << "not one that was renamed";
    EXPECT_EQ(entries[0].operatorName, history::OtherProgram);
    EXPECT_EQ(history::Find(*Db, {.menus = {u"Menu_A"_s},
                                  .operatorName = history::OtherProgram,
                                  .from = QDate(2024, 3, 15),
                                  .to = QDate(2024, 3, 15)})
                  .size(),
              2U);
    PutBack(entries[0]);
}

TEST_F(PuttingBack, LeavesTheStandardToTheAdministrator) {
    Run(u"delete from MS1"_s);
    const auto change = [](int price) {
        Db->ExecuteEngine(u"delete from MS1"_s);
        Db->ExecuteEngine(u"insert into MS1 (F1) values (%1)"_s.arg(price));
        return LastCommand().front();
    };
    Run(u"insert into MS1 (F1) values (1)"_s);
    const Entry first = change(2);
    const Entry second = change(3);
    OperatorCode = u"8"_s;
    EXPECT_EQ(RefusalOf(second), u"只有管理员才能恢复计价标准!"_s);
    OperatorCode = u"001"_s;
    PutBack(second);
    EXPECT_EQ(One(u"select group_concat(F1) from MS1"_s), u"2.0"_s);
    PutBack(first);
    EXPECT_EQ(One(u"select group_concat(F1) from MS1"_s), u"1.0"_s);
}

TEST_F(PuttingBack, TakesNoOtherRecordThatHasTheRowNumberNow) {
    Run(u"update M04 set F2='a' where F1='乙'"_s);
    const Entry changed = EntryFor("M04", u"乙"_s);
    for (const QByteArray& trigger : schema::FindKept("M04")->Triggers())
        Db->ExecuteEngine(u"drop trigger "_s + QString::fromLatin1(trigger));
    Run(u"update M04 set F1='丙' where F1='乙'"_s);
    EXPECT_EQ(RefusalOf(changed), u"[乙]已不是同一条记录，不能恢复!"_s);
    EXPECT_FALSE(history::ImagesOf(*Db, changed).after);
    EXPECT_EQ(history::PutBack(*Db, changed), u"[乙]已不是同一条记录，不能恢复!"_s);
    EXPECT_EQ(One(u"select group_concat(F1||F2) from M04 where F1='丙'"_s), u"丙a"_s);
}

TEST_F(PuttingBack, RefusesAnEntryOfAListFromBeforeTheHistoryWasEmptied) {
    Run(u"update M04 set F2='a' where F1='乙'"_s);
    const Entry stale = EntryFor("M04", u"乙"_s);
    Db->ExecuteEngine(u"delete from H_M04"_s);
    Db->CloseGroup();
    for (qint64 row = 0; row < stale.before; ++row)
        Db->ExecuteEngine(u"update M04 set F2='b' where F1='甲'"_s);
    ASSERT_EQ(One(u"select count(*) from H_M04 where rowid="_s + QString::number(stale.before)), u"1"_s);
    EXPECT_EQ(RefusalOf(stale), u"该记录的内容已不在操作记录中，不能恢复!"_s);
}

TEST_F(PuttingBack, RefusesAChangedPasswordSinceNoneIsKept) {
    Run(u"update TE1 set F3='neu' where F1='乙'"_s);
    const Entry password = EntryFor("TE1", u"乙"_s);
    EXPECT_EQ(RefusalOf(password), u"操作记录不保存密码，密码的改动不能恢复!"_s);
    Run(u"update TE1 set F67=1-ifnull(F67,0) where F1='乙'"_s);
    EXPECT_EQ(RefusalOf(password), u"操作记录不保存密码，密码的改动不能恢复!"_s);
    Run(u"update TE1 set F2='neu' where F1='乙'"_s);
    PutBack(EntryFor("TE1", u"乙"_s));
}

TEST_F(PuttingBack, RefusesARenameWhoseNewKeyIsUsed) {
    Run(u"update M05 set F1='丙' where F1='乙'"_s);
    const Entry renamed = EntryFor("M05", u"乙"_s);
    EXPECT_EQ(RefusalOf(renamed), QString());
    Run(u"update B01 set F201='丙' where F1='W2'"_s);
    EXPECT_EQ(RefusalOf(renamed), u"[丙]已经使用，不能恢复为[乙]!"_s);
}

TEST_F(PuttingBack, LeavesTheJournalRowOfAWaybillToTheWaybill) {
    Run(u"delete from TB1 where F1='YSW2'"_s);
    EXPECT_EQ(RefusalOf(EntryFor("TB1", u"YSW2"_s)), QString());
    Db->ExecuteEngine(u"delete from B01 where F1='W1'"_s);
    Db->ExecuteEngine(u"delete from TB1 where F1='YSW1'"_s);
    Db->CloseGroup();
    const history::Object& journal = *std::ranges::find(history::Objects(), "TB1", &history::Object::table);
    const QDate day = QDate(2024, 3, 15);
    const auto rows =
        history::Find(*Db, {.object = &journal, .menus = {journal.menu}, .from = day, .to = day});
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(RefusalOf(rows.front()), u"[YSW1]随速递单[W1]一起恢复，请恢复该速递单!"_s);
}

TEST_F(PuttingBack, LeavesTheZonesOfAChannelThatWasEdited) {
    Run(u"insert into M02 (F1,F3) values ('Z8','乙')"_s);
    Db->ExecuteEngine(u"delete from M01 where F1='乙'"_s);
    Db->ExecuteEngine(u"insert into M01 (F1,F2) values ('乙','neu')"_s);
    PutBack(EntryFor("M01", u"乙"_s));
    EXPECT_EQ(One(u"select F2 from M01 where F1='乙'"_s), u"二"_s);
    EXPECT_EQ(One(u"select count(*) from M02 where F1='Z8'"_s), u"1"_s);
}

/// An edit whose insert fails: a text with an apostrophe breaks the statement after the row was deleted.
class FailedEdit : public Program, public testing::Test {
  public:
    FailedEdit() : Program(CommandMasters()) { history::WatchFailures(); }
    ~FailedEdit() override { sys::onFailure() = {}; }
    void Fail(bool putBack) {
        Open(u"B"_s, u"B01"_s);
        Select(*this, u"W1"_s);
        AltKey(u'E');
        FillCard(*Frame().Front(), {.number = u"W1"_s});
        Find<controls::LineBox>(*Frame().Front(), u"Txt(%1)"_s.arg(waybills::ConsigneeCompany))
            .SetText(u"O'Hara"_s);
        script.BoxContaining(u"程序即将结束"_s);
        script.Question(u"失败的操作已删除：速递单W1。\r\r是否立即恢复?"_s, Title, putBack);
        if (putBack) script.Box(u"恢复完成!"_s, Title);
        script.End(1);
        AltKey(u'S');
        sys::ClearEnd();
        EditInProgress = false;
    }
};

TEST_F(FailedEdit, IsPutBackAtOnce) {
    const QStringList before = KeptState(false);
    Fail(true);
    EXPECT_EQ(KeptState(false), before);
    const QString panel = Status();
    history::SayWhatWasLost();
    EXPECT_EQ(Status(), panel) << "nothing is missing";
}

TEST_F(FailedEdit, IsSaidOnceAtTheNextStart) {
    const QStringList before = KeptState(false);
    Fail(false);
    history::SayWhatWasLost();
    EXPECT_EQ(Status(), u"上次操作失败，已删除：速递单W1，可在“操作记录”中恢复"_s);
    Frame().SetPanel(4, {});
    history::SayWhatWasLost();
    EXPECT_EQ(Status(), QString());
    PutBack(history::OfGroup(*Db, One(u"select max(N) from H_B01"_s).toLongLong()).front());
    EXPECT_EQ(KeptState(false), before);
}

TEST_F(FailedEdit, IsLeftToTheNextStartWhereTheFileIsBusy) {
    Fail(false);
    const auto off = qScopeGuard([] { dao::whenBusy() = {}; });
    dao::whenBusy().handle = [](const auto&) { throw sys::CommandGivenUp{}; };
    const QString panel = Status();
    {
        Connection other(File());
        other.Run(u"begin immediate"_s);
        history::SayWhatWasLost();
        EXPECT_EQ(Status(), panel);
    }
    history::SayWhatWasLost();
    EXPECT_TRUE(Status().contains(u"速递单W1"_s));
}

TEST_F(FailedEdit, OffersNothingForACommandThatTookNothing) {
    Db->Execute(u"delete from M04 where F1='乙'"_s);
    Db->CloseGroup();
    script.BoxContaining(u"程序即将结束"_s);
    script.End(1);
    sys::Guarded([] { Db->Execute(u"insert into M04 (F1) values ('a'b')"_s); });
    EXPECT_TRUE(script.Done());
    sys::ClearEnd();
}

TEST_F(FailedEdit, SaysWhenWhatItTookCannotBePutBack) {
    Db->ExecuteEngine(u"create trigger refuses before insert on M04 begin select raise(fail,'nein'); end"_s);
    Db->CloseGroup();
    script.BoxContaining(u"程序即将结束"_s);
    script.Question(u"失败的操作已删除：外务员乙。\r\r是否立即恢复?"_s, Title, true);
    script.BoxContaining(u"恢复失败！"_s);
    script.End(1);
    sys::Guarded([] {
        Db->Execute(u"delete from M04 where F1='乙'"_s);
        Db->Execute(u"insert into M05 (F1) values ('a'b')"_s);
    });
    EXPECT_TRUE(script.Done());
    sys::ClearEnd();
}

struct HalfDone {
    QStringList statements;
    QString name;
};
class FailedHalfway : public FailedEdit, public testing::WithParamInterface<HalfDone> {};

TEST_P(FailedHalfway, IsOfferedForTheRowsThatDidNotComeBack) {
    const QStringList before = KeptState(false);
    script.BoxContaining(u"程序即将结束"_s);
    script.Question(u"失败的操作已删除：%1。\r\r是否立即恢复?"_s.arg(GetParam().name), Title, true);
    script.Box(u"恢复完成!"_s, Title);
    script.End(1);
    sys::Guarded([] {
        for (const QString& statement : GetParam().statements) Db->Execute(statement);
        Db->Execute(u"insert into M04 (F1) values ('a'b')"_s);
    });
    EXPECT_TRUE(script.Done());
    sys::ClearEnd();
    EXPECT_EQ(KeptState(false), before);
}

INSTANTIATE_TEST_SUITE_P(
    History, FailedHalfway,
    testing::Values(HalfDone{{u"delete from M02 where F1='乙'"_s, u"delete from M021 where F0='乙'"_s,
                              u"insert into M02 (F1,F2) values ('乙','neu')"_s},
                             u"本司分区乙"_s},
                    HalfDone{{u"delete from B01 where F1='W1'"_s, u"delete from TB1 where F1='YSW1'"_s,
                              u"delete from TB1 where F1='YFW1'"_s,
                              u"insert into B01 (F1,F604) values ('W1','管理员')"_s},
                             u"速递单W1"_s}));

TEST_F(PuttingBack, NeedsTheRightOfTheFormAndTheAdministratorForWhatIsReleased) {
    Run(u"delete from B01 where F1='W1'"_s);
    const Entry released = EntryFor("B01", u"W1"_s);
    Run(u"delete from B01 where F1='W2'"_s);
    const Entry open = EntryFor("B01", u"W2"_s);
    Run(u"delete from TE1 where F1='乙'"_s);
    const Entry account = EntryFor("TE1", u"乙"_s);
    Run(u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values (200,-9,'A','2024-03-16','新',10,0,10,'甲')"_s);
    Run(u"delete from TB1 where F1='A'"_s);
    const Entry ledger = EntryFor("TB1", u"A"_s);
    CanEditLedger = false;
    EXPECT_EQ(RefusalOf(ledger), u"你没有权限恢复帐款记录!"_s);
    CanEditLedger = true;
    EXPECT_EQ(RefusalOf(ledger), QString());
    OperatorCode = u"8"_s;
    Frame().SetMenuVisible(u"Menu_A"_s, false);
    EXPECT_EQ(RefusalOf(open), QString()) << "no form has given the command";
    EXPECT_EQ(RefusalOf(released), u"已出货的速递单只有管理员才能恢复!"_s);
    EXPECT_EQ(RefusalOf(account), u"只有管理员才能恢复操作员!"_s);
    Frame().SetMenuVisible(u"Menu_b"_s, false);
    EXPECT_EQ(RefusalOf(open), u"你没有权限恢复该记录!"_s);
    OperatorCode = u"001"_s;
    for (const QString& password : {QString(), u"it's"_s}) {
        EXPECT_FALSE(history::PasswordRefusal(password).isEmpty());
        EXPECT_THROW((void)history::PutBack(*Db, account, password), RuntimeError);
    }
    EXPECT_EQ(One(u"select count(*) from TE1 where F1='乙'"_s), u"0"_s);
    PutBack(account);
    EXPECT_EQ(One(u"select F3 from TE1 where F1='乙'"_s), u"neu"_s) << "with the new password";
}

}  // namespace
}  // namespace tests
