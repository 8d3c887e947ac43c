// Charges are typed over the cells of their list: what is typed is what is stored, at any speed.
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kRows = 50;
const QString kDay = u"2024-11-25"_s;  // behind all others of the sample company

/// Through a menu, which holds the keyboard while it is open.
Script OpenCharges() {
    return {Alt('d'), Type(u"2"_s)};
}

/// The cells of a row as Enter reaches them; the key "" is the proposed one. Behind the last of them the next
/// row begins.
Script TypeRow(const QString& key, const QString& party, const QString& amount, const QString& remark) {
    return {key.isEmpty() ? MoveOn() : Fill(key),
            Fill(kDay),
            Fill(party),
            Fill(amount),
            Fill(u"Lee"_s),
            Fill(remark)};
}

/// Without the row that has only just begun.
Script Save() {
    return {Press(kEscape), Alt('s')};
}

/// Two counterparties in turn; row n is n and a half yuan.
QString PartyOf(int row) {
    return row % 2 == 0 ? u"Acme"_s : u"Borealis"_s;
}

struct FiftyRows {
    Script script{Alt('a')};
    QStringList stored;  ///< F1, F2, F3, twice QC, YF and QM, S1, F10
};

FiftyRows MakeRows(const QString& letter) {
    FiftyRows rows;
    int balances[2] = {};
    for (int row = 0; row < kRows; ++row) {
        const QString key = letter + QString::number(100 + row);
        const QString remark = u"%1 pcs"_s.arg(row);
        rows.script = rows.script + TypeRow(key, PartyOf(row), QString::number(row) + u".5"_s, remark);
        int& balance = balances[row % 2];
        const int before = balance;
        balance += 2 * row + 1;
        rows.stored += QStringList{key,
                                   kDay,
                                   PartyOf(row),
                                   QString::number(before),
                                   QString::number(2 * row + 1),
                                   QString::number(balance),
                                   u"Lee"_s,
                                   remark}
                           .join(u'|');
    }
    // The last remark is still open: its "s", then Alt+S in the same millisecond.
    rows.script.back().keys.pop_back();
    rows.script.push_back(Alt('s'));
    return rows;
}

TEST(Entry, FiftyRowsAtFullSpeedStoreWhatIsTyped) {
    for (const bool byTab : {false, true}) {
        SCOPED_TRACE(byTab ? "by Tab" : "by Return");
        const FiftyRows rows = MakeRows(u"R"_s);
        ProgramRun run;
        run.Play(LogIn());
        run.Play(OpenCharges() + rows.script, {.milliseconds = 0, .byTab = byTab});
        run.Play(
            {ExpectRows(u"select F1,F2,F3,cast(2*QC as int),cast(2*YF as int),cast(2*QM as int),S1,F10 "
                        "from TB1 where F1 like 'R1__' order by SN"_s,
                        rows.stored)});
    }
}

/// The keys that are proposed differ by the second in which a row begins.
TEST(Entry, TwoProposedKeysOfOneSecondAreRefusedAndTypingGoesOn) {
    constexpr int enough = 20;  // rows, of which two begin in one second
    const QString untitled;
    ProgramRun run;
    run.Play(LogIn() + OpenCharges() + Script{Alt('a')});
    for (int row = 0; row < enough && !run.HasWindow(untitled); ++row)
        run.Play(TypeRow({}, u"Acme"_s, u"1"_s, u"first"_s) + Script{ExpectIdle()});
    // The refused row goes on at its date; it gets a key of its own. Alt+X is no command and types nothing.
    run.Play(Script{Answer(untitled), ExpectWindow(u"Korvane"_s), MoveBack(), Type(u"R900"_s), Alt('x')} +
             TypeRow({}, u"Acme"_s, u"2"_s, u"second"_s) + Save() +
             Script{ExpectRows(
                 u"select F1,cast(YF as int),F10 from TB1 where F3='Acme' order by SN desc limit 1"_s,
                 {u"R900|2|second"_s})});
    EXPECT_EQ(run.Rows(u"select F1 from TB1 where F3='Acme' group by F1 having count(*)>1"_s), QStringList());
}

}  // namespace
}  // namespace display
