// Administration by keys at full speed: what the operators' form stores, a reset, a backup and
// its restoring. A window that opens is waited for; all else is typed ahead.
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

/// A second Return in the same moment would be a key that is held down.
constexpr Pace kByTab = {.byTab = true};
const QString kBox = u"提示"_s;
const QString kCounts =
    u"select (select count(*) from B01),(select count(*) from M03),(select count(*) from TB1)"_s;

TEST(Administration, KeepsOperatorsByKeys) {
    const QString stored = u"select F1,F2,F3,F60,F61,F67 from TE1 where F1 like '00X%'"_s;
    ProgramRun run;
    run.Play(LogIn() +
             Script{Alt('s'), Type(u"2"_s), Alt('a'), Fill(u"00x"_s), Fill(u"zhang"_s), Fill(u"pw1"_s)});
    run.Play(
        {Press(kSpace), MoveOn(), Press(kSpace), Alt('s'), ExpectRows(stored, {u"00X|ZHANG|PW1|0|0|1"_s})});
    run.Play({Alt('e'), Fill(u"00xy"_s), Fill(u"li"_s), MoveOn(), Press(kSpace), Alt('s')});
    run.Play({ExpectRows(stored, {u"00XY|LI|PW1|1|0|1"_s}), Alt('d'), Answer(kBox, kEscape)});
    run.Play({ExpectWindow(u"Korvane"_s), ExpectRows(stored, {u"00XY|LI|PW1|1|0|1"_s})});
    run.Play({Alt('d'), Answer(kBox), ExpectRows(stored, {})});
}

TEST(Administration, ResetsAfterItsQuestions) {
    ProgramRun run;
    const QString all = run.Rows(kCounts).value(0);
    const Script clear = {ExpectWindow(u"清除数据"_s), Press(kReturn), ExpectWindow(u"警告"_s)};
    run.Play(
        LogIn() +
            Script{Alt('s'), Type(u"3"_s), ExpectWindow(u"清除数据"_s), MoveOn(), Press(kSpace), MoveOn(3)} +
            clear + Script{Answer(u"警告"_s, kEscape)} + clear +
            // Customers do not go alone.
            Script{Answer(u"警告"_s), Answer(kBox), ExpectWindow(u"清除数据"_s), ExpectRows(kCounts, {all}),
                   MoveBack(2), Press(kSpace), MoveOn(2), CloseFile()} +
            clear +
            Script{Answer(u"警告"_s), Answer(kBox), ExpectWindow(u"清除数据"_s), Press(kTab), Press(kReturn),
                   ExpectNoWindow(u"清除数据"_s), ExpectRows(kCounts, {u"0|0|"_s + all.section(u'|', 2)})},
        kByTab);
}

TEST(Administration, RestoresWhatItHasBackedUp) {
    const QTemporaryDir folder;
    const QString backup = folder.filePath(u"copy.dat"_s);
    QStringList before;
    {
        ProgramRun run;
        before = run.Rows(kCounts);
        run.Play({CloseFile()});
        run.Play(LogIn() + Script{Alt('s'), Type(u"4"_s), ExpectWindow(u"系统数据备份至"_s), Control('a'),
                                  Type(backup), Press(kReturn), Answer(kBox), ExpectEnd()});
        EXPECT_EQ(tests::Connection(backup).Rows(kCounts), before);
    }
    ProgramRun run({.statements = {u"delete from B01"_s, u"delete from TB1"_s}});
    run.Play({CloseFile()});
    run.Play(LogIn() + Script{Alt('s'), Type(u"5"_s), ExpectWindow(u"数据恢复"_s), MoveBack(), Press(kReturn),
                              ExpectWindow(u"恢复业务数据"_s), Type(backup), Press(kReturn),
                              ExpectNoWindow(u"恢复业务数据"_s), Answer({}), ExpectEnd()});
    EXPECT_EQ(run.Rows(kCounts), before);
}

}  // namespace
}  // namespace display
