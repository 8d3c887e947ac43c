// The list of all waybills: the form's own loading of its grid beside the bare fetch of the same rows into
// plain strings; and what the loaded grid takes in memory.
#include "benchmarks/bench.h"
#include "benchmarks/subjects.h"

#include <unordered_set>
#include <vector>

namespace benchmarks {
namespace {

constexpr int Columns = 11;

void Bare(BareEngine& engine) {
    BareStatement rows(
        engine.Handle(),
        "select "
        "B01.F1,B01.F101,B01.F2031,B01.F301,B01.F401,B01.F501,M01.F2,M03.F2,B01.F602,B01.F604,B01.F103 "
        "FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1) left join M01 on M01.f1=B01.f202 ORDER BY "
        "B01.F101,B01.rowid");
    std::vector<QString> texts;
    while (rows.Step())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Text(i));
    Keep(texts.data());
}

}  // namespace

double OverheadOf(const controls::FlexGrid& grid) {
    std::unordered_set<const void*> counted;
    std::size_t characters = 0;
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
            const QString& text = grid.TextMatrix(row, col);
            if (counted.insert(text.constData()).second) characters += static_cast<std::size_t>(text.size());
        }
    }
    const double cells = static_cast<double>(grid.Rows()) * grid.Cols();
    return (static_cast<double>(grid.MatrixBytes()) - 2.0 * static_cast<double>(characters)) / cells;
}

void MeasureList(Bench& bench, Office& office) {
    bench.Run({.name = "list: 100,000 waybills into the grid",
               .limit = 1.5,
               .runsInRound = 3,  // the first of them clears away what the other side left behind
               .ours = [&] { office.Form().LoadAll(); },
               .bare = [&] { Bare(office.Bare()); }});
    bench.State("list: memory beyond the texts", OverheadOf(office.Form().Grid()), "B/cell", 80);
}

}  // namespace benchmarks
