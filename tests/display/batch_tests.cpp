// The statements of all customers by keys: chosen, written into a folder that is typed, and stopped by Esc.
#include "tests/display/program_run.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

const QString kBox = u"提示"_s;
constexpr Pace kByTab{.milliseconds = 0, .byTab = true};
constexpr int kMore = 150;  // customers, so that there is time to stop

/// Opens the window, lists November and types the folder.
Script Prepared(const QTemporaryDir& folder) {
    return LogIn() + Script{Control('k'),        Type(u"pldzd"_s),    Press(kReturn), ExpectIdle(),
                            Fill(u"20241101"_s), Fill(u"20241123"_s), Press(kReturn), ExpectIdle(),
                            Press(kTab),         Press(kSpace),       Press(kTab),    Control('a'),
                            Type(folder.path()), Press(kTab, 2)};
}

QStringList Files(const QTemporaryDir& folder, const QString& pattern) {
    return QDir(folder.path()).entryList({pattern}, QDir::Files | QDir::Hidden);
}

TEST(BatchStatements, AreWrittenForTheChosenCustomers) {
    QTemporaryDir folder;
    ProgramRun run;
    run.Play(Prepared(folder) + Script{Press(kReturn), Answer(kBox)}, kByTab);
    EXPECT_EQ(Files(folder, u"*.pdf"_s).size(), 11) << "space has taken the first of twelve away";
    EXPECT_EQ(Files(folder, u"*.xls"_s).size(), 12);
}

TEST(BatchStatements, StopByEscAndTakeNoOtherKeyMeanwhile) {
    QTemporaryDir folder;
    Start start;
    for (int i = 0; i < kMore; ++i)
        start.statements +=
            u"insert into B01 (F1,F101,F603,F501,F504) values ('X%1','2024-11-20','X%1','月结',10)"_s.arg(i);
    ProgramRun run(start);
    run.Play(Prepared(folder) + Script{Press(kReturn)}, kByTab);
    if (!WaitUntil([&] { return !Files(folder, u"*.pdf"_s).isEmpty(); })) run.Fail(u"no statement comes"_s);
    // Alt+R would leave the form, Alt+N take all marks away.
    run.Play({Alt('r'), Alt('n'), Press(kEscape), Answer(kBox)});
    const auto written = Files(folder, u"*.pdf"_s).size();
    EXPECT_LT(written, kMore);
    EXPECT_EQ(Files(folder, u"*"_s).size(), 2 * written + 1) << "no half file";
    run.Play({Press(kReturn), Answer(kBox)});
    EXPECT_EQ(Files(folder, u"*.pdf"_s).size(), written + kMore + 11);
}

}  // namespace
}  // namespace display
