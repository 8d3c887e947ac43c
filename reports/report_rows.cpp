#include "reports/report_rows.h"

#include "app/data_access.h"
#include "platform/text/numbers.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace reports {
namespace {

/// Total charge less shipping cost less carriage.
QString Margin(const dao::Recordset& row) {
    return text::FormatFixed(
        row.Fields(u"ZZ").Number() - row.Fields(u"CB").Number() - row.Fields(u"CF").Number(), 2);
}

}  // namespace

QString CellOf(const dao::Recordset& row, const Column& column, int index) {
    if (column.kind == Column::Kind::Blank) return {};
    if (column.kind == Column::Kind::Margin) return Margin(row);
    return row.Fields(index).Text();
}

void Sums::Add(int column, const QString& cell) {
    const auto index = static_cast<std::size_t>(column);
    if (columns_[index].sum != Column::Sum::None) sums_[index] += text::Val(cell);
}

QString Sums::Text(int column) const {
    const auto index = static_cast<std::size_t>(column);
    switch (columns_[index].sum) {
        case Column::Sum::Plain:
            return text::GeneralText(sums_[index]);
        case Column::Sum::TwoDecimals:
            return text::FormatFixed(sums_[index], 2);
        case Column::Sum::None:
            break;
    }
    return {};
}

void ReadList(dao::Recordset& rows, int count, const std::vector<Column>& columns,
              const std::function<void(int row, int column, QString cell)>& put) {
    const int cols = static_cast<int>(columns.size());
    Sums sums(columns);
    for (int row = 0; row < count; ++row, rows.MoveNext()) {
        for (int col = 0; col < cols; ++col) {
            QString cell = CellOf(rows, columns[static_cast<std::size_t>(col)], col);
            sums.Add(col, cell);
            put(row, col, std::move(cell));
        }
    }
    for (int col = 0; col < cols; ++col) put(count, col, sums.Text(col));
}

void FillWorkTable(dao::Database& db, const WorkTable& table, int rows,
                   const std::function<QString(int row, int column)>& cell) {
    db.Execute(u"DELETE FROM "_s + table.name);
    QStringList cells;
    for (int row = 0; row < rows; ++row) {
        cells.clear();
        for (const int column : table.columns) cells += cell(row, column);
        if (table.take && !table.take(cells)) continue;
        db.Execute(table.insert % u'\'' % cells.join(u"','"_s) % u"')"_s);
    }
}

QStringList PreparePrint(dao::Database& db, const Settings& settings, const Print& print, const Scope& scope,
                         int rows, const std::function<QString(int row, int column)>& cell) {
    FillWorkTable(db, settings.work, rows, cell);
    if (!print.formulas) return {};
    const QString& table = settings.choice.table;
    return print.formulas(scope, table.isEmpty() ? QString() : NameOf(db, table, scope.code));
}

}  // namespace reports
