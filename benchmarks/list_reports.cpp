// The margin table over all waybills, built by its form, beside the bare statement; and the work table of a
// statement, filled as a print fills it, beside bare inserts in one transaction.
#include "app/main_window.h"
#include "app/session.h"
#include "benchmarks/subjects.h"
#include "platform/controls/box.h"
#include "reports/report_rows.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int PrintedRows = 5'000;
constexpr int Columns = 6;

void BareMargins(BareEngine& engine) {
    BareStatement rows(engine.Handle(),
                       "select m03.f2,sum(B01.XJ) AS MXJ,SUM(B01.YJ) AS MYJ,SUM(B01.DF) AS MDF,SUM(B01.F504) "
                       "AS ZZ,sum(B01.F507) AS CB,SUM(B01.F506) AS CF,SUM(B01.F508) AS HY,SUM(B01.F509) AS "
                       "QK,SUM(B01.F510) AS KP,0 AS ML,M03.F8 AS YW FROM B01,M03 WHERE M03.F1=B01.F603 AND "
                       "B01.F101>='2000-01-01' and B01.F101<'2100-01-01' group by M03.F2,M03.F8 "
                       "ORDER BY M03.F8");
    double sum = 0;
    while (rows.Step()) {
        Keep(rows.Text(0));
        for (int column = 1; column < rows.Columns() - 1; ++column) sum += rows.Number(column);
    }
    Keep(sum);
}

void MeasureMargins(Bench& bench, Office& office) {
    const std::string name = "report: margins of 100,000 waybills";
    if (!bench.Wanted(name)) return;
    TheFrame().MenuItem(u"Menu_C06"_s)->trigger();
    Office::Settle();
    ChildForm& form = *TheFrame().Front();
    form.findChild<controls::DTPicker*>(u"DTP(0)"_s)->SetValue(QDate(2000, 1, 1));
    form.findChild<controls::DTPicker*>(u"DTP(1)"_s)->SetValue(LastDay());
    auto* refresh = form.findChild<controls::Button*>(u"Cmd"_s);
    bench.Run({.name = name,
               .limit = 1.3,
               .ours = [&] { refresh->click(); },
               .bare = [&] { BareMargins(office.Bare()); }});
    form.Unload();
    Office::Settle();
}

QString Cell(int row, int column) {
    switch (column) {
        case 0:
            return u"2024-11-%1"_s.arg(1 + row % 28, 2, 10, QChar(u'0'));
        case 1:
            return u"KV24%1"_s.arg(row, 8, 10, QChar(u'0'));
        case 2:
            return u"S"_s;
        case 3:
            return u"洛杉矶"_s;
        default:
            return QString::number(row % 90 + 0.5);
    }
}

void BareFill(BareEngine& engine) {
    engine.Run("begin immediate");
    engine.Run("DELETE FROM PRNTC023");
    {
        BareStatement insert(engine.Handle(), "insert into prntc023 (F1,F2,F3,F4,F5,F6) VALUES(?,?,?,?,?,?)");
        for (int row = 0; row < PrintedRows; ++row) {
            for (int column = 0; column < Columns; ++column)
                insert.Bind(column + 1, Cell(row, column).toUtf8());
            insert.Step();
            insert.Reset();
        }
    }
    engine.Run("commit");
}

}  // namespace

void MeasureListReports(Bench& bench, Office& office) {
    MeasureMargins(bench, office);
    BareEngine engine(office.Engine());
    bench.Run({.name = "report: a work table of 5,000 rows",
               .limit = 2,
               .runsInRound = 5,
               .ours =
                   [] {
                       reports::FillWorkTable(*Db, reports::CustomerStatementReport.work, PrintedRows, Cell);
                       Db->CloseGroup();
                   },
               .bare = [&] { BareFill(engine); }});
}

}  // namespace benchmarks
