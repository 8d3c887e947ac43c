// What is typed is what is stored: the waybill, at any speed, on a machine at rest and on a busy one.
#include "tests/display/waybill_scripts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kFast = 20;  // milliseconds

/// Slow typing stores what the tariffs say. All that is typed faster is compared with it.
TEST(Typing, SlowlyStoresTheRightFigures) {
    for (const QString& value : {u"B01.F2042 = Shanghai Sample Electronics Co., Ltd."_s, u"B01.F202 = Q1"_s,
                                 u"B01.F2021 = Q1-4"_s, u"B01.F402 = 12.5"_s, u"B01.F502 = 1707.6"_s,
                                 u"B01.F504 = 2015.28"_s, u"B01.F507 = 166.88"_s, u"TB1.YF = 2015.28"_s})
        EXPECT_TRUE(Reference().contains(value)) << value.toStdString();
}

TEST(Typing, AtAnySpeedStoresTheSame) {
    const struct {
        Pace pace;
        bool busy;
    } waybills[] = {
        {{.milliseconds = 20, .byTab = false}, false}, {{.milliseconds = 20, .byTab = true}, true},
        {{.milliseconds = 5, .byTab = false}, true},   {{.milliseconds = 5, .byTab = true}, false},
        {{.milliseconds = 1, .byTab = false}, true},   {{.milliseconds = 1, .byTab = true}, false},
        {{.milliseconds = 0, .byTab = false}, false},  {{.milliseconds = 0, .byTab = true}, false},
        {{.milliseconds = 0, .byTab = false}, true},   {{.milliseconds = 0, .byTab = true}, true},
    };
    WaybillTyping typing;
    for (const auto& [pace, busy] : waybills) {
        std::unique_ptr<BusyProcessors> load;
        if (busy) load = std::make_unique<BusyProcessors>();
        EXPECT_EQ(typing.Differences(pace).toStdString(), "")
            << pace.milliseconds << " ms, by " << (pace.byTab ? "Tab" : "Return") << (busy ? ", busy" : "");
    }
}

/// F1 comes between the keys of the amounts; the panel takes none of them, and no message box comes up.
TEST(Typing, WithExplanationsInBetween) {
    ProgramRun run;
    run.Play(LogIn() + OpenWaybills());
    // A new card keeps some text boxes of the waybill before.
    run.Play(AddWaybill(u"EX0000"_s) + Script{ExpectWaybill(u"EX0000"_s)}, {.milliseconds = kFast});
    const Pace paces[] = {{.milliseconds = 5, .byTab = false},
                          {.milliseconds = 0, .byTab = false},
                          {.milliseconds = 0, .byTab = true}};
    int typed = 0;
    for (const Pace& pace : paces) {
        const QString number = u"EX000%1"_s.arg(++typed);
        run.Play(BeginWaybill() + Script{Fill(number)} + FillWaybill(u"12.5"_s) + FinishExplained() +
                     Script{ExpectWaybill(number), Press(kF1), Press(kEscape)},
                 pace);
        EXPECT_EQ(DifferenceFromReference(run, number).toStdString(), "") << pace.milliseconds << " ms";
        EXPECT_EQ(run.Rows(u"select F2,F3,F6,F7 from B011 where F1='%1'"_s.arg(number)),
                  QStringList{u"SH001|D01|Q1|Q1-4"_s});
    }
}

/// While a machine stalls, all keys of a waybill arrive in one piece.
TEST(Typing, IntoAProgramThatIsStopped) {
    ProgramRun run;
    run.Play(LogIn() + OpenWaybills());
    run.Process().Stop();
    run.Play(AddWaybill(u"ST0001"_s));
    run.Process().Continue();
    run.Play({ExpectWaybill(u"ST0001"_s)});
    EXPECT_EQ(DifferenceFromReference(run, u"ST0001"_s).toStdString(), "");
}

/// The box comes up on entering the basic charge, since there is no weight; everything behind is typed ahead.
TEST(Boxes, AreNotAnsweredByWhatIsTypedAhead) {
    const QString number = u"BX0001"_s;
    ProgramRun run;
    run.Play(LogIn() + OpenWaybills());
    run.Play(BeginWaybill() + Script{Fill(number)} + FillWaybill(u""_s) + FinishWaybill() +
             Script{ExpectWindow(u"提示"_s), ExpectIdle()});
    EXPECT_TRUE(run.HasWindow(u"提示"_s));
    run.Play({Answer(u"提示"_s), ExpectWindow(u"Korvane"_s)});
    EXPECT_EQ(run.Rows(u"select count(*) from B01 where F1='BX0001'"_s), QStringList{u"0"_s});
    // Back to the weight, and through the boxes once more.
    run.Play(Script{MoveBack(7), Fill(u"12.5"_s), MoveOn(6)} + FinishWaybill() +
             Script{ExpectWaybill(number)});
    EXPECT_EQ(DifferenceFromReference(run, number).toStdString(), "");
}

TEST(Boxes, ThatAskAreNotAnsweredByWhatIsTypedAhead) {
    ProgramRun run;
    run.Play(LogIn() + OpenWaybills());
    const QStringList before = run.Rows(u"select count(*) from B01"_s);
    run.Play({Alt('d'), Type(u"y"_s), Press(kReturn), Alt('y'), ExpectWindow(u"警告"_s), ExpectIdle()});
    EXPECT_TRUE(run.HasWindow(u"警告"_s));
    EXPECT_EQ(run.Rows(u"select count(*) from B01"_s), before);
    run.Play({Answer(u"警告"_s, kEscape), ExpectWindow(u"Korvane"_s)});
    EXPECT_EQ(run.Rows(u"select count(*) from B01"_s), before);
}

}  // namespace
}  // namespace display
