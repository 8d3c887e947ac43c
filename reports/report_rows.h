// The rows of a list report and those of its work table, without a screen.
#pragma once

#include "platform/dao/database.h"
#include "reports/report_settings.h"

#include <functional>

namespace reports {

/// A cell of the list for the current row of the report's statement.
QString CellOf(const dao::Recordset& row, const Column& column, int index);

/// The row below the last.
class Sums {
  public:
    explicit Sums(const std::vector<Column>& columns) : columns_(columns), sums_(columns.size()) {}
    /// A cell counts by the number at its start. Raises RuntimeError on one that is too large.
    void Add(int column, const QString& cell);
    /// "" where the column is not summed up.
    QString Text(int column) const;

  private:
    const std::vector<Column>& columns_;
    std::vector<double> sums_;
};

/// Empties the work table and inserts the rows, cells read by row (from 0) and column of the list. Nothing is
/// escaped: a cell with an apostrophe raises DatabaseError.
void FillWorkTable(dao::Database& db, const WorkTable& table, int rows,
                   const std::function<QString(int row, int column)>& cell);

}  // namespace reports
