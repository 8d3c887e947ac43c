// The ageing of 2,000 counterparties over all of 200,000 journal rows, built by the form into its grid,
// beside a bare loop that fetches the same rows and sums them up.
#include "app/main_window.h"
#include "benchmarks/subjects.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

void BareSums(BareEngine& engine) {
    BareStatement rows(engine.Handle(),
                       "select TB1.F3,TB1.F2,TB1.YF,TB1.FK,TB1.QM from TB1 where LB<0 and F6<>'' and "
                       "(not F6 is null) and K=0 and F2<'2100-01-01' order by F3,SN,rowid");
    QString unit;
    double moved = 0, balance = 0, sum = 0;
    while (rows.Step()) {
        const QString next = rows.Text(0);
        if (next != unit) {
            sum += balance - moved;
            unit = next;
            moved = 0;
        }
        Keep(rows.Text(1));
        moved += rows.Number(2) - rows.Number(3);
        balance = rows.Number(4);
    }
    Keep(sum);
}

}  // namespace

void MeasureAgeing(Bench& bench, Office& office) {
    const std::string name = "ageing: 2,000 counterparties of 200,000 rows";
    if (!bench.Wanted(name)) return;
    TheFrame().ShowChild(u"Ageing"_s);
    Office::Settle();
    ChildForm& form = *TheFrame().Front();
    form.findChild<controls::DTPicker*>(u"DTP"_s)->SetValue(LastDay());
    auto* build = form.findChild<controls::Button*>(u"Cmd"_s);
    bench.Run({.name = name,
               .limit = 1.3,
               .runsInRound = 3,
               .ours = [&] { build->click(); },
               .bare = [&] { BareSums(office.Bare()); }});
    form.Unload();
    Office::Settle();
}

}  // namespace benchmarks
