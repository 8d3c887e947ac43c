// A command runs once, however it is called, and on what is in the boxes.
#include "tests/display/input_method.h"
#include "tests/display/waybill_scripts.h"

#include <QThread>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kTypist = 100;  // milliseconds
constexpr unsigned long kHeld =
    1300;                         // milliseconds; the server repeats a key from the 660th on, 25 a second
constexpr int kRelease = 4;       // C.出货 among the entries of the waybills' bar
constexpr int kToConsignee = 13;  // boxes from the number on
const QString kConsignee = u"select F2061 from B01 where F1='YL24092301'"_s;
const QRect kMenuBar(0, 20, 1366, 30);
const QStringList kAllUnreleased = {u"update B01 set F604='未审核'"_s};
const QString kReleased = u"select count(*) from B01 where F604<>'未审核'"_s;

/// Where a picture differs from another one of the same size.
QRect Difference(const QImage& one, const QImage& other) {
    QRect area;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y)) area |= QRect(x, y, 1, 1);
    return area;
}

/// What is lit up on the menu bar, once two pictures in a row agree about it and it is not what was lit up
/// before.
QRect LitUp(ProgramRun& run, const QImage& atRest, const QRect& before) {
    QRect lit;
    const bool moved = WaitUntil([&] {
        run.WaitUntilIdle();
        const QRect now = Difference(atRest, run.Client().Picture(kMenuBar));
        const bool settled = now == lit && !now.isEmpty() && now != before;
        lit = now;
        return settled;
    });
    if (!moved) run.Fail(u"no entry of the menu bar lights up"_s);
    return lit;
}

/// The middle of an entry of the menu bar: the keys move there, and what lights up is looked for.
QPoint PlaceOnBar(ProgramRun& run, int entry) {
    const QImage atRest = run.Client().Picture(kMenuBar);
    QRect lit;
    for (int step = 0; step < entry; ++step) {
        run.Play({Press(step == 0 ? kAlt : kRight)});
        lit = LitUp(run, atRest, lit);
    }
    run.Play({Press(kEscape), ExpectIdle()});
    return kMenuBar.topLeft() + lit.center();
}

TEST(Commands, RunOnceForAHeldKey) {
    ProgramRun run({.statements = kAllUnreleased});
    run.Play(LogIn() + OpenWaybills());
    run.Client().Key(kAlt, true);
    run.Client().Key('c', true);
    run.Client().Flush();
    QThread::msleep(kHeld);
    run.Client().Key('c', false);
    run.Client().Key(kAlt, false);
    run.Play({ExpectRows(kReleased, {u"1"_s})});
}

TEST(Commands, RunOnceForADoubleClick) {
    ProgramRun run({.statements = kAllUnreleased});
    run.Play(LogIn() + OpenWaybills());
    run.Client().MoveTo(PlaceOnBar(run, kRelease));
    for (const bool down : {true, false, true, false}) run.Client().LeftButton(down);
    run.Play({ExpectRows(kReleased, {u"1"_s})});
}

/// The box shows "ni hao" while that is composed, so this is what is stored.
TEST(Composition, IsStoredByTheCommandThatEndsIt) {
    const InputMethod pinyin;
    const Step compose{.keys = {}, .wait = [&](ProgramRun& run) {
                           run.WaitUntilIdle();
                           if (!WaitUntil([&] { return pinyin.IsOn(); }))
                               run.Fail(u"the input method is off"_s);
                       }};
    ProgramRun run({.environment = pinyin.Environment()});
    // The operator's own switch, in the second box of a courier.
    run.Play(LogIn() + Script{Alt('a'), Type(u"6"_s), ExpectIdle(), Alt('a'), Fill(u"Newc"_s), Control(' '),
                              compose, Type(u"nihao"_s), Alt('s'),
                              ExpectRows(u"select F2 from M04 where F1='Newc'"_s, {u"ni hao"_s}), Alt('r')},
             {.milliseconds = kTypist});
    // Off again, and on by the program, in the consignee of the first waybill of the list.
    run.Play(OpenWaybills() + Script{Alt('e'), Control(' '), MoveOn(kToConsignee), compose, Type(u"nihao"_s),
                                     Alt('s'), ExpectRows(kConsignee, {u"ni hao"_s})},
             {.milliseconds = kTypist});
}

}  // namespace
}  // namespace display
