// The scanner at the packing table types at any speed: every number gets its row, in its order, and no key is
// lost while a release is being stored.
#include "tests/display/waybill_scripts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kNumbers = 30;

/// Every third is released already; every fifth is not there.
bool IsReleased(int index) {
    return index % 3 == 0;
}
bool IsThere(int index) {
    return index % 5 != 4;
}
QString Number(int index) {
    return u"SCAN%1"_s.arg(index, 2, 10, QChar(u'0'));
}

struct Scans {
    QStringList waybills;  ///< statements
    Script script;
    QStringList marks;     ///< afterwards
    QStringList commands;  ///< the kept releases: key, operator, form; each in a group of its own
};

Scans MakeScans() {
    Scans scans;
    for (int i = 0; i < kNumbers; ++i) {
        scans.script = scans.script + Script{Fill(i % 2 == 0 ? Number(i) : Number(i).toLower())};
        if (!IsThere(i)) continue;
        scans.waybills +=
            u"insert into B01 (F1,F101,F202,F603,F604) values ('%1','2024-11-25','Q1','SH001','%2')"_s.arg(
                Number(i), IsReleased(i) ? u"Lee"_s : u"未审核"_s);
        scans.marks += Number(i) + (IsReleased(i) ? u"|Lee"_s : u"|管理员"_s);
        if (!IsReleased(i)) scans.commands += Number(i) + u"|管理员|ScanRelease|1"_s;
        if (i % 4 == 0) scans.script = scans.script + Script{Fill(Number(i))};  // twice
    }
    return scans;
}

const QString kMarks = u"select F1,F604 from B01 where F1 like 'SCAN%' order by F1"_s;
const QString kKept =
    u"select F1,Operator,Command,(select count(*) from H_B01 b where b.N=a.N) from H_B01 a "
    u"where F1 like 'SCAN%' and Command='ScanRelease' order by rowid"_s;

TEST(ScanRelease, TakesEveryNumberAtAnySpeed) {
    const Scans scans = MakeScans();
    for (const Pace& pace : {Pace{}, Pace{.milliseconds = 0, .byTab = true}, Pace{.milliseconds = 15}}) {
        ProgramRun run({.statements = scans.waybills});
        run.Play(LogIn() + Script{Control('k'), Type(u"smch"_s), Press(kReturn)} + scans.script, pace);
        run.Play({ExpectRows(kMarks, scans.marks), ExpectRows(kKept, scans.commands)});
        // The print takes them from the list: every released one, once and in the order of the scans.
        QStringList printed;
        for (const QString& row : scans.commands) printed += row.section(u'|', 0, 0);
        run.Play({Alt('p'), Press(kReturn), ExpectRows(u"select F1 from PRNTC01 order by rowid"_s, printed)});
    }
}

TEST(NumberInUse, TakesNoKeyOfWhatIsTypedBehindIt) {
    for (const Pace& pace : {Pace{}, Pace{.milliseconds = 0, .byTab = true}}) {
        ProgramRun run;
        run.Play(LogIn() + OpenWaybills() + AddWaybill(u"NU1"_s) + Script{ExpectWaybill(u"NU1"_s)}, pace);
        run.Play(AddWaybill(u"nu1"_s) + Script{Answer(u"提示"_s), Control('a'), Fill(u"NU2"_s), Alt('s')},
                 pace);
        run.Play({ExpectWaybill(u"NU2"_s)});
        EXPECT_EQ(DifferenceFromReference(run, u"NU2"_s).toStdString(), "");
    }
}

}  // namespace
}  // namespace display
