// A channel's bill by keys, from the palette to the result, with its file chosen in the toolkit's dialog.
#include "tests/display/program_run.h"
#include "tests/support/files.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace display {
namespace {

TEST(ChannelBill, IsChosenComparedAndItsColumnsAreKeptByKeys) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"bill.csv"_s);
    tests::Write(path, u"单号,重量,运费\nYL24111101,2.5,283.05\nyl24111102,2,150\n"_s.toUtf8());
    const QString kept = u"select F1,F2,F3,F4,F5,F6,F7,F8 from M012"_s;
    for (const Pace& pace : {Pace{.milliseconds = 20}, Pace{.milliseconds = 0, .byTab = true}}) {
        ProgramRun run;
        run.Play(LogIn() + Script{Control('k'), Type(u"qdzd"_s), Press(kReturn), ExpectIdle(), Fill(u"Q1"_s),
                                  Fill(u"20241111"_s), Fill(u"20241111"_s), MoveOn(), Press(kReturn),
                                  ExpectWindow(u"选择渠道帐单"_s), Type(path), Press(kReturn),
                                  ExpectNoWindow(u"选择渠道帐单"_s), ExpectIdle(),
                                  // The headings have guessed the columns; on to the tolerance of the cost.
                                  MoveOn(5), Fill(u"6"_s), Press(kReturn),
                                  ExpectRows(kept, {u"Q1|0|0|1|2|1|0.0|6.0"_s}), Alt('r'), ExpectIdle()},
                 pace);
    }
}

}  // namespace
}  // namespace display
