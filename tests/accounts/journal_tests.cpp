#include "accounts/journal.h"
#include "platform/errors.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "tests/support/company.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using accounts::EntryDate;
using accounts::LedgerEntry;
using accounts::LedgerKind;

namespace {

const QString GapWarning =
    u"您历史日期中插入了过多的单据,可能会造成单据排序混乱!\r\r"
    u"请您以001用户身份进入[综合报表]--[货品进出存明细表]中,点击[维护]菜单,刷新单据排序!"_s;

QDate Day(int day) {
    return QDate(2024, 3, day);
}

class Journal : public testing::Test {
  protected:
    Journal() { SetCounter(100); }

    void SetCounter(int value) {
        company_.Run({u"delete from SysInfo where ID=100"_s,
                      u"insert into SysInfo (ID,SetVal) VALUES (100,"_s + QString::number(value) + u')'});
    }
    std::string Counter() { return Answer(u"select SetVal from SysInfo where ID=100"_s); }
    std::string Answer(const QString& select) { return company_.Answer(select).toStdString(); }
    std::string FieldOf(const QString& key, const QString& field) {
        return Answer(u"select "_s + field + u" from TB1 where F1='"_s + key + u'\'');
    }

    /// A row as it lies in the file already, posted and without balances.
    void Lay(const QString& key, int day, const QString& sequence, const QString& party = u"甲"_s,
             double amount = 0) {
        company_.Run(u"insert into TB1 (SN,LB,F1,F2,F3,YF,F5,F6) VALUES ("_s + sequence + u",-9,'"_s + key +
                     u"','"_s + text::DateText(Day(day)) + u"','"_s + party + u"',"_s +
                     text::GeneralText(amount) + u",'管理员','管理员')"_s);
    }

    /// Adds a row as the entry forms do; gives its `SN`.
    double Add(const QString& key, int day, double amount, const QString& party = u"甲"_s,
               LedgerKind kind = LedgerKind::Receivable) {
        LedgerEntry entry{.kind = kind,
                          .key = key,
                          .date = text::DateText(Day(day)),
                          .counterparty = party,
                          .amount = amount,
                          .maker = u"管理员"_s};
        entry.sequence = accounts::AllocateSequence(company_.Db(), Day(day), key);
        accounts::PostEntry(company_.Db(), entry);
        return entry.sequence;
    }

    /// Changes a row as the entry forms do; gives its new `SN`.
    double Change(const QString& key, int day, double amount, const QString& before, const QString& after) {
        auto& db = company_.Db();
        LedgerEntry entry{
            .key = key, .date = text::DateText(Day(day)), .counterparty = after, .amount = amount};
        const double present = text::Val(company_.Answer(u"select SN from TB1 where F1='"_s + key + u'\''));
        entry.sequence = accounts::MoveSequence(db, entry.kind, key, present, before, Day(day));
        accounts::UpdateEntry(db, key, entry);
        return entry.sequence;
    }

    /// Key, opening and closing balance of a counterparty's rows in their order.
    std::string Chain(const QString& party = u"甲"_s) {
        return Answer(u"select F1,QC,QM from TB1 where F3='"_s + party + u"' order by SN"_s);
    }

    tests::Script script_;
    tests::Company company_;
};

TEST_F(Journal, ClassifiesByTheNewestDay) {
    auto& db = company_.Db();
    const QString note = u"select setStr from sysinfo where ID=9999"_s;
    company_.Run(
        {u"delete from sysinfo where ID=9999"_s, u"insert into sysinfo (ID,setStr) values (9999,'')"_s});
    EXPECT_EQ(accounts::ClassifyEntryDate(db, Day(5)), EntryDate::Newer) << "an empty journal";
    company_.Run(u"insert into TB1 (SN,F1) VALUES (1,'无日期')"_s);
    EXPECT_EQ(accounts::ClassifyEntryDate(db, Day(5)), EntryDate::Newer) << "no readable date";
    EXPECT_EQ(Answer(note), "") << "neither is noted";

    company_.Run(u"insert into TB1 (SN,F1,F2) VALUES (2,'晚间','2024-03-05 21:30:00')"_s);
    EXPECT_EQ(accounts::ClassifyEntryDate(db, Day(5)), EntryDate::SameDay) << "by calendar day";
    EXPECT_EQ(accounts::ClassifyEntryDate(db, Day(4)), EntryDate::Older);
    EXPECT_EQ(Answer(note), "");
    EXPECT_EQ(accounts::ClassifyEntryDate(db, Day(6)), EntryDate::Newer);
    EXPECT_EQ(Answer(note), "2024-03-06");
}

TEST_F(Journal, SlotsByDateAndPresentPlace) {
    Lay(u"A"_s, 3, u"40"_s);
    Lay(u"B1"_s, 5, u"100"_s);
    Lay(u"B2"_s, 5, u"102.5"_s);
    Lay(u"C"_s, 9, u"131"_s);
    const struct {
        int day;
        QString key;
        double present;
        double slot;
        const char* counter;  // what the counter shows afterwards; it was at 100
        const char* why;
    } rows[] = {
        {5, u"新"_s, 0, 102.5 + (131 - 102.5) / 4, "100", "between its own day and the next"},
        {5, u"新"_s, 40, 102.5 + (131 - 102.5) / 4, "100", "the place of an older row is none of its own"},
        {5, u"新"_s, 40.5, 40.5, "100", "strictly above the older day it may stay"},
        {5, u"新"_s, 130.5, 130.5, "100", "and strictly below the newer one"},
        {5, u"新"_s, 131, 102.5 + (131 - 102.5) / 4, "100", "the place of the newer row is taken"},
        {5, u"B2"_s, 0, 100 + (131 - 100) / 4.0, "100", "the row itself is skipped"},
        {5, u"b2"_s, 0, 100 + (131 - 100) / 4.0, "100", "whatever the letters' case"},
        {2, u"新"_s, 0, 10, "100", "before all others"},
        {2, u"新"_s, 39, 39, "100", "before all others, staying"},
        {7, u"C"_s, 0, 132, "132", "at the end, new day: 30 above, whole again"},
        {5, u"C"_s, 0, 104, "104", "at the end, same day: 2 above, whole again"},
        {9, u"C"_s, 131, 131, "100", "at the end it may stay"},
        {9, u"C"_s, 102.5, 132, "132", "not in the place of an older row"},
        {12, u"新"_s, 0, 161, "161", "after all others"},
        {9, u"新"_s, 0, 133, "133", "on the newest day"},
    };
    for (const auto& row : rows) {
        SetCounter(100);
        EXPECT_EQ(accounts::SlotSequenceForDate(company_.Db(), Day(row.day), row.key, row.present), row.slot)
            << row.why;
        EXPECT_EQ(Counter(), row.counter) << row.why;
    }
    SetCounter(500);
    accounts::SlotSequenceForDate(company_.Db(), Day(9), u"新"_s, 0);
    EXPECT_EQ(Counter(), "133") << "the counter is set, lower too";
    // A newer row that is below the place is passed over: places ascend from the highest of the day.
    Lay(u"D"_s, 10, u"50"_s);
    EXPECT_EQ(accounts::SlotSequenceForDate(company_.Db(), Day(9), u"新"_s, 0), 133);
}

TEST_F(Journal, WarnsWhenTheGapRunsOutAndPostsAllTheSame) {
    Lay(u"YS1"_s, 5, u"100"_s, u"甲"_s, 7);
    Lay(u"YS2"_s, 9, u"100.00000000000001421"_s, u"甲"_s, 1);
    script_.Box(GapWarning, u""_s);
    EXPECT_EQ(Add(u"YS3"_s, 5, 2), 100);
    EXPECT_TRUE(script_.LastBox().keepsGroup);
    EXPECT_TRUE(company_.Db().InGroup());
    EXPECT_EQ(FieldOf(u"YS3"_s, u"SN"_s), "100");
    EXPECT_EQ(FieldOf(u"YS2"_s, u"QM"_s), "10") << "the chain goes through both rows of that place";
}

TEST_F(Journal, WritesTheRowOfEachKind) {
    const struct {
        LedgerKind kind;
        const char* row;  // S2, LB, YF, FK, QM
    } rows[] = {
        {LedgerKind::Receivable, "增加应收|-9|12.5|0|12.5"},
        {LedgerKind::Payable, "增加应付|9|12.5|0|12.5"},
        {LedgerKind::Payment, "付款|10|0|12.5|-12.5"},
        {LedgerKind::Receipt, "收款|-10|0|12.5|-12.5"},
    };
    for (const auto& row : rows) {
        company_.Run(u"delete from TB1"_s);
        accounts::PostEntry(company_.Db(), {row.kind, 31, u"K1"_s, u"2024-3-5"_s, u"甲"_s, 12.5, u"张三"_s,
                                            u"管理员"_s, u"备注"_s});
        EXPECT_EQ(Answer(u"select S2,LB,YF,FK,QM from TB1"_s), row.row);
        EXPECT_EQ(Answer(u"select SN,F1,F2,F3,S1,F5,F6,F10,H8,K from TB1"_s),
                  "31|K1|2024-03-05|甲|张三|管理员|管理员|备注|2024-03-15 10:00:00|0");
    }
}

TEST_F(Journal, SequenceTextsHaveFifteenDigits) {
    LedgerEntry entry{.sequence = 100 + 1.0 / 3,
                      .key = u"YS1"_s,
                      .date = u"2024-03-05"_s,
                      .counterparty = u"甲"_s,
                      .amount = 9,
                      .maker = u"管理员"_s};
    accounts::PostEntry(company_.Db(), entry);
    EXPECT_EQ(FieldOf(u"YS1"_s, u"SN"_s), "100.333333333333");
    EXPECT_EQ(Chain(), "YS1|0|9") << "the roll starts at the stored place, not above it";
}

TEST_F(Journal, RollsOnlyFromTheStartAndOnlyThatCounterparty) {
    Lay(u"YS1"_s, 1, u"10"_s, u"甲"_s, 100);
    Lay(u"YS2"_s, 2, u"20"_s, u"甲"_s, 50);
    Lay(u"YS3"_s, 2, u"20"_s, u"乙"_s, 5);
    Lay(u"YS4"_s, 3, u"0"_s, u"甲"_s, 1000);
    auto& db = company_.Db();
    accounts::RollBalanceChain(db, 20, u"甲"_s);
    EXPECT_EQ(Answer(u"select F1,QC,QM from TB1 order by F1"_s),
              "YS1|<null>|<null> YS2|0|50 YS3|<null>|<null> YS4|<null>|<null>")
        << "a null closing balance opens with 0; a row at 0 is in no chain";
    accounts::RollBalanceChain(db, 0, u"甲"_s);
    EXPECT_EQ(Chain(), "YS4|<null>|<null> YS1|0|100 YS2|100|150");
    EXPECT_EQ(Chain(u"乙"_s), "YS3|<null>|<null>");
}

TEST_F(Journal, RowsWithoutSecondMarkDoNotOpenButAreRewritten) {
    for (const QString& mark : {u"''"_s, u"null"_s}) {
        company_.Run(u"delete from TB1"_s);
        Lay(u"YS1"_s, 1, u"10"_s, u"甲"_s, 100);
        Lay(u"YS2"_s, 2, u"20"_s, u"甲"_s, 50);
        Lay(u"YS3"_s, 3, u"30"_s, u"甲"_s, 7);
        company_.Run(u"update TB1 set F6="_s + mark + u" where F1='YS2'"_s);
        accounts::RollBalanceChain(company_.Db(), 0, u"甲"_s);
        EXPECT_EQ(Chain(), "YS1|0|100 YS2|100|150 YS3|150|157");
        accounts::RollBalanceChain(company_.Db(), 30, u"甲"_s);
        EXPECT_EQ(FieldOf(u"YS3"_s, u"QM"_s), "107") << mark.toStdString();
    }
}

TEST_F(Journal, CustomerAndChannelOfOneNameShareAChain) {
    Add(u"YS1"_s, 5, 100, u"顺达"_s);
    Add(u"YF1"_s, 5, 30, u"顺达"_s, LedgerKind::Payable);
    Add(u"SK1"_s, 6, 120, u"顺达"_s, LedgerKind::Receipt);
    EXPECT_EQ(Chain(u"顺达"_s), "YS1|0|100 YF1|100|130 SK1|130|10");
    Add(u"SK2"_s, 2, 30, u"顺达"_s, LedgerKind::Receipt);
    EXPECT_EQ(Chain(u"顺达"_s), "SK2|0|-30 YS1|-30|70 YF1|70|100 SK1|100|-20") << "paid before the charge";
}

TEST_F(Journal, AWaybillPostsUnderItsBareNumber) {
    auto& db = company_.Db();
    Add(u"YS8000"_s, 5, 1);
    Add(u"YS9000"_s, 9, 1);
    const auto reads = accounts::CounterReading::AlsoAfterFirstStep;
    // The bare number skips nothing, not even the waybill's own row of before.
    EXPECT_EQ(accounts::AllocateSequence(db, Day(5), u"8000"_s, reads), 131 + 31 / 4.0);
    EXPECT_EQ(Counter(), "163");
    EXPECT_EQ(Add(u"YS9001"_s, 9, 1), 165);
    Add(u"YF8000"_s, 9, 1);
    Add(u"YS80000"_s, 9, 1);
    accounts::DeleteWaybillEntries(db, u"8000"_s);
    EXPECT_EQ(Answer(u"select F1 from TB1 order by F1"_s), "YS80000 YS9000 YS9001");
}

TEST_F(Journal, AnEditedFirstRowOpensItsSuccessorWithItsOwnBalance) {
    const struct {
        int day;
        QString party;
        const char* chain;
        const char* why;
    } rows[] = {
        {5, u"甲"_s, "YS1|0|100 YS2|100|150", "mended where the row stays before its successor"},
        {5, u"乙"_s, "YS2|100|150", "offset where it leaves the chain"},
        {7, u"甲"_s, "YS2|100|150 YS1|150|250", "offset where it goes behind its successor"},
    };
    for (const auto& row : rows) {
        company_.Run(u"delete from TB1"_s);
        Add(u"YS1"_s, 5, 100);
        Add(u"YS2"_s, 6, 50);
        Change(u"YS1"_s, row.day, 100, u"甲"_s, row.party);
        EXPECT_EQ(Chain(), row.chain) << row.why;
    }
    accounts::RollBalanceChain(company_.Db(), 0, u"甲"_s);
    EXPECT_EQ(Chain(), "YS2|0|50 YS1|50|150") << "a refresh mends it";
}

TEST_F(Journal, ARowEditedRightAfterItsEntryStays) {
    // With 0 for its present place, as a form has that has lost it: nothing is taken out, the row may stay.
    Add(u"YS1"_s, 5, 100);
    Add(u"YS2"_s, 5, 50);
    EXPECT_EQ(accounts::MoveSequence(company_.Db(), LedgerKind::Receivable, u"YS1"_s, 0, u"甲"_s, Day(5)),
              131);
    EXPECT_EQ(Chain(), "YS1|0|100 YS2|100|150");
}

TEST_F(Journal, ADeletedRowLeavesStaleBalances) {
    Add(u"YS1"_s, 5, 100);
    Add(u"YS2"_s, 5, 50);
    Add(u"YS3"_s, 5, 7);
    accounts::DeleteEntry(company_.Db(), u"YS2"_s);
    EXPECT_EQ(Chain(), "YS1|0|100 YS3|150|157");
    Add(u"YS4"_s, 5, 1);
    EXPECT_EQ(Chain(), "YS1|0|100 YS3|150|157 YS4|157|158");
    Add(u"YS5"_s, 4, 1);
    EXPECT_EQ(Chain(), "YS5|0|1 YS1|1|101 YS3|101|108 YS4|108|109")
        << "a post at or before the place repairs the chain";
}

TEST_F(Journal, WithoutACounterRowsAreInvisibleToTheChains) {
    Lay(u"YS1"_s, 5, u"50"_s, u"甲"_s, 100);
    accounts::RollBalanceChain(company_.Db(), 0, u"甲"_s);
    company_.Run(u"delete from SysInfo where ID=100"_s);
    EXPECT_EQ(Add(u"YS2"_s, 5, 7), 0);
    EXPECT_EQ(Chain(), "YS2|<null>|<null> YS1|0|100");
}

TEST_F(Journal, AFailingPostKeepsWhatRan) {
    Add(u"YS1"_s, 5, 100);
    EXPECT_THROW(Add(u"YS2"_s, 5, 50, u"O'Neil"_s), DatabaseError);
    EXPECT_EQ(Counter(), "133");
    EXPECT_EQ(Chain(), "YS1|0|100");

    Lay(u"YS3"_s, 6, u"200"_s);
    company_.Run(u"update TB1 set FK=null where F1='YS3'"_s);
    EXPECT_THROW(accounts::RollBalanceChain(company_.Db(), 0, u"甲"_s), RuntimeError);
}

}  // namespace
