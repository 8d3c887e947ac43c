// The records of changes by keys: what was deleted is put back with all that was typed.
#include "tests/display/program_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

const QString kBox = u"提示"_s;

TEST(History, PutsBackByKeysWhatWasDeleted) {
    const QString stored = u"select F1,F2 from M04 where F1='Hist'"_s;
    ProgramRun run;
    run.Play(LogIn() + Script{Alt('a'), Type(u"6"_s), ExpectIdle(), Alt('a'), Fill(u"Hist"_s),
                              Type(u"night"_s), Alt('s'), ExpectRows(stored, {u"Hist|night"_s}), Alt('d'),
                              Answer(kBox), ExpectRows(stored, {}),
                              // The newest change is the chosen one; Tab goes over the strips to 恢复.
                              Control('k'), Type(u"czjl"_s), Press(kReturn), ExpectIdle(), Press(kTab, 8),
                              Press(kReturn), Answer(kBox), ExpectRows(stored, {u"Hist|night"_s}),
                              Answer(kBox)});
}

}  // namespace
}  // namespace display
