// Charges are typed over the cells of their list.
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

const QString kDay = u"2024-11-25"_s;  // behind all others of the sample company

Script OpenCharges() {
    return {ExpectIdle(), Alt('d'), ExpectIdle(), Type(u"2"_s), ExpectIdle()};
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

/// The keys that are proposed differ by the second in which a row begins.
TEST(Entry, TwoProposedKeysOfOneSecondAreRefusedAndTypingGoesOn) {
    constexpr int enough = 20;  // rows, of which two begin in one second
    const QString untitled;
    ProgramRun run;
    run.Play(LogIn() + OpenCharges() + Script{Alt('a')});
    for (int row = 0; row < enough && !run.HasWindow(untitled); ++row)
        run.Play(TypeRow({}, u"Acme"_s, u"1"_s, u"first"_s) + Script{ExpectIdle()});
    // The refused row goes on at its date; it gets a key of its own.
    run.Play(Script{Answer(untitled), ExpectWindow(u"Korvane"_s), MoveBack()} +
             TypeRow(u"R900"_s, u"Acme"_s, u"2"_s, u"second"_s) + Save() +
             Script{ExpectRows(
                 u"select F1,cast(YF as int),F10 from TB1 where F3='Acme' order by SN desc limit 1"_s,
                 {u"R900|2|second"_s})});
    EXPECT_EQ(run.Rows(u"select F1 from TB1 where F3='Acme' group by F1 having count(*)>1"_s), QStringList());
}

}  // namespace
}  // namespace display
