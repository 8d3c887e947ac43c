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
constexpr int kToConsignee = 13;  // boxes from the number on
const QString kConsignee = u"select F2061 from B01 where F1='YL24092301'"_s;
const QStringList kAllUnreleased = {u"update B01 set F604='未审核'"_s};
const QString kReleased = u"select count(*) from B01 where F604<>'未审核'"_s;

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
