// The command palette under fast hands: keys behind Ctrl+K get into its text box and nowhere else.
#include "tests/display/input_method.h"
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

/// A courier and a place of origin.
const QString kStored =
    u"select F1||F2 from M04 where F1 like 'Pal%' union all "
    u"select F1||F2 from M05 where F1 like 'Pal%'"_s;

TEST(Palette, OpensFormsAtFullSpeed) {
    for (const int pace : {0, 20}) {
        ProgramRun run;
        run.Play(LogIn() + Script{Control('k'), Type(u"wwyzl"_s), Press(kReturn), Alt('a'), Type(u"Pa"_s),
                                  // During an edit it opens nothing; Escape goes back into the text box.
                                  Control('k'), Type(u"a05"_s), Press(kReturn), Press(kEscape), Fill(u"l"_s),
                                  Type(u"1"_s), Alt('s'), Control('k'), Type(u"a05"_s), Press(kReturn),
                                  Alt('a'), Fill(u"Pal"_s), Type(u"2"_s), Alt('s'),
                                  ExpectRows(kStored, {u"Pal1"_s, u"Pal2"_s})},
                 {.milliseconds = pace});
    }
}

TEST(Palette, SearchesForWhatIsComposed) {
    const InputMethod pinyin;
    ProgramRun run({.environment = pinyin.Environment()});
    const Step compose{.keys = {}, .wait = [&](ProgramRun& waiting) {
                           waiting.WaitUntilIdle();
                           if (!WaitUntil([&] { return pinyin.IsOn(); }))
                               waiting.Fail(u"the input method is off"_s);
                       }};
    // The first Return confirms the letters, the second opens.
    run.Play(LogIn() +
                 Script{Alt('a'),       Type(u"6"_s),       ExpectIdle(),   Alt('a'),
                        Fill(u"Pal"_s), Control(' '),       compose,        Alt('c'),
                        Control('k'),   Type(u"shifadi"_s), Press(kReturn), Press(kReturn),
                        ExpectIdle(),   Alt('a'),           Control(' '),   ExpectIdle(),
                        Fill(u"Pal"_s), Type(u"2"_s),       Alt('s'),       ExpectRows(kStored, {u"Pal2"_s})},
             {.milliseconds = 100});
}

}  // namespace
}  // namespace display
