// The ageing by keys: opened by the palette, built for other days, printed for one customer and left.
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kFast = 20;  // milliseconds

TEST(Ageing, IsOpenedNarrowedDownAndPrintedByKeys) {
    const QString overdue = u"select F1,F4 from PRNTC04 order by F1"_s;
    for (const Pace& pace : {Pace{.milliseconds = kFast}, Pace{.milliseconds = 0, .byTab = true}}) {
        ProgramRun run;
        // Behind the day the number of days, the mark of what is overdue alone, the button.
        run.Play(LogIn() + Script{Control('k'), Type(u"zlfx"_s), Press(kReturn), ExpectIdle(), Press(kTab),
                                  MoveOn(2), Fill(u"20241123"_s), Fill(u"45"_s), Press(kSpace), MoveOn(),
                                  Press(kReturn), Alt('p'), Press(kDown), Press(kReturn),
                                  ExpectRows(overdue, {u"样例医疗|30093.98"_s}), ExpectIdle()},
                 pace);
        // Out of the preview, and the reminder with as many charges as he has not paid.
        run.Play({Alt('r'), Alt('p'), Press(kDown, 2), Press(kReturn),
                  ExpectRows(u"select count(*)>1,round(sum(F4),2) from PRNTC04"_s, {u"1|136040.01"_s}),
                  ExpectIdle(), Alt('r'), Alt('r'), Alt('a'), Type(u"6"_s), Alt('a'), Fill(u"Han"_s),
                  Type(u"Kunshan"_s), Alt('s'),
                  ExpectRows(u"select F2 from M04 where F1='Han'"_s, {u"Kunshan"_s})},
                 pace);
    }
}

}  // namespace
}  // namespace display
