// The reports by keys: a statement built, printed into the preview, paged and left; the notice of a problem
// typed at any speed.
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr Keysym kEnd = 0xff57;
constexpr Keysym kHome = 0xff50;
constexpr int kFast = 20;  // milliseconds
const QRect kPages(300, 130, 700, 500);

/// What is in the file of the customer, and the row of sums.
const QString kPrinted =
    u"select (select count(*) from PRNTC023) - (select count(*) from B01 where F603='SH001' and "
    u"F501='月结' and F101>='2024-10-01')"_s;

/// A key turns the pages of the preview to what that picture shows, or to something else.
void ExpectPages(ProgramRun& run, Keysym key, const QImage& picture, bool same) {
    run.Play({Press(key)});
    const bool turned = WaitUntil([&] {
        run.WaitUntilIdle();
        return (run.Client().Picture(kPages) == picture) == same;
    });
    if (!turned) run.Fail(u"the key turns no page"_s);
}

TEST(Statement, IsBuiltPrintedPagedAndLeftByKeys) {
    for (const Pace& pace : {Pace{.milliseconds = kFast}, Pace{.milliseconds = 0, .byTab = true}}) {
        ProgramRun run;
        run.Play(LogIn() + Script{Alt('c'), Type(u"2"_s), Fill(u"SH001"_s), Fill(u"20241001"_s), MoveOn(),
                                  Press(kReturn), Alt('p'), ExpectRows(kPrinted, {u"1"_s}), ExpectIdle()},
                 pace);
        const QImage first = run.Client().Picture(kPages);
        ExpectPages(run, kEnd, first, false);
        ExpectPages(run, kHome, first, true);
        // Out of the preview and the statement; the menus are there again.
        run.Play({Alt('r'), Alt('r'), Alt('a'), Type(u"6"_s), Alt('a'), Fill(u"Han"_s), Type(u"Kunshan"_s),
                  Alt('s'), ExpectRows(u"select F2 from M04 where F1='Han'"_s, {u"Kunshan"_s})});
    }
}

TEST(Notice, IsPrintedAsItWasTypedAtAnySpeed) {
    const QString line(36, u'a');
    for (const Pace& pace : {Pace{.milliseconds = kFast}, Pace{}, Pace{.milliseconds = 0, .byTab = true}}) {
        ProgramRun run;
        // The number is looked up when it is left; the full line moves on by itself.
        run.Play(LogIn() + Script{Alt('c'), Type(u"5"_s), Fill(u"YL24112101"_s), MoveOn(3),
                                  Type(line + u"bcd"_s), MoveOn(), Type(u"end"_s), Alt('p')},
                 pace);
        run.Play({ExpectRows(u"select F1,F3,F4,F5,F6,F7 from PRNTC05"_s,
                             {u"YL24112101|外箱破损一处|航班延误|"_s + line + u"|bcd|end"_s})});
    }
}

}  // namespace
}  // namespace display
