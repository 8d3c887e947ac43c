// The packing table among 100,000 waybills: from the Return of a scanned number to its committed release and
// its row in the list, and the list of what is not released beside the bare statement.
#include "app/main_window.h"
#include "benchmarks/subjects.h"
#include "platform/controls/box.h"

#include <QApplication>
#include <QKeyEvent>

#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Scans = 60;
constexpr int Every = 10;  // waybill that is not released
constexpr double FrameMilliseconds = 16;
constexpr int Columns = 10;
constexpr int LongestPeriod = 9999;  // days

void MarkUnreleased(BareEngine& engine) {
    engine.Run("update B01 set F604='未审核' where rowid%" + QByteArray::number(Every) + "=0");
}

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "release: %s\n", what);
    std::exit(2);
}

void MeasureScan(Bench& bench, BareEngine& engine) {
    const std::string name = "release: a scanned number to its row";
    if (!bench.Wanted(name)) return;
    ChildForm& form = TheFrame().ShowChild(u"ScanRelease"_s);
    Office::Settle();
    auto& box = *form.findChild<controls::LineBox*>(u"Txt(0)"_s);
    auto& grid = *form.findChild<controls::FlexGrid*>(u"GD"_s);
    int scanned = 0;
    const double seconds = BestOf(
        Scans,
        [&] {
            ++scanned;
            box.SetText(
                engine.Answer("select F1 from B01 where F604='未审核' order by rowid limit 1 offset " +
                              QByteArray::number(7 * scanned)));
        },
        [&] {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
            QApplication::sendEvent(&box, &press);
            form.repaint();
        });
    for (int row = 1; row <= Scans; ++row)
        Require(grid.TextMatrix(row, 5) == u"已出货", "a number is refused");
    bench.State(name, seconds * 1e3, "ms", FrameMilliseconds);
    form.Unload();
    Office::Settle();
}

void BareList(BareEngine& engine) {
    BareStatement rows(engine.Handle(),
                       "select B01.F1,B01.F101,M03.F2,B01.F2061,M01.F2,B01.F402,B01.F604,M01.F1,B01.F2021,"
                       "B01.F507 FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1) left join M01 on "
                       "M01.F1=B01.F202 where (B01.F604='未审核' or B01.F604='未出货') and "
                       "B01.F101>='1999-01-01' order by B01.F101,B01.rowid");
    std::vector<QString> texts;
    while (rows.Step())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Text(i));
    Keep(texts.data());
}

void MeasureUnreleased(Bench& bench, Office& office) {
    const std::string name = "release: unreleased among 100,000 waybills";
    if (!bench.Wanted(name)) return;
    ChildForm& form = TheFrame().ShowChild(u"Unreleased"_s);
    Office::Settle();
    form.findChild<controls::LineBox*>(u"Txt(0)"_s)->SetText(QString::number(LongestPeriod));
    auto* refresh = form.findChild<controls::Button*>(u"Cmd"_s);
    bench.Run({.name = name,
               .limit = 1.5,
               .runsInRound = 3,
               .ours = [&] { refresh->click(); },
               .bare = [&] { BareList(office.Bare()); }});
    const auto& grid = *form.findChild<controls::FlexGrid*>(u"GD"_s);
    Require(office.Bare().Answer("select count(*) from B01 where F604='未审核'").toInt() == grid.Rows() - 1,
            "the list is not whole");
    form.Unload();
    Office::Settle();
}

}  // namespace

void MeasureRelease(Bench& bench, MadeCompany& company) {
    if (!bench.Wanted("release: a scanned number to its row") &&
        !bench.Wanted("release: unreleased among 100,000 waybills"))
        return;
    Office office(company);
    MarkUnreleased(office.Bare());
    MeasureScan(bench, office.Bare());
    MeasureUnreleased(bench, office);
}

}  // namespace benchmarks
