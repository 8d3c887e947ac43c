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

/// Reads the rows of the report's statement, `count` of them, and gives every cell to `put`, rows counting
/// from 0; row `count` is that of the sums. Raises as the set and Sums::Add do.
void ReadList(dao::Recordset& rows, int count, const std::vector<Column>& columns,
              const std::function<void(int row, int column, QString cell)>& put);

/// Empties the work table and inserts the rows, cells read by row (from 0) and column of the list. Nothing is
/// escaped: a cell with an apostrophe raises DatabaseError.
void FillWorkTable(dao::Database& db, const WorkTable& table, int rows,
                   const std::function<QString(int row, int column)>& cell);

/// What a print does before its layout runs: fills the work table with the rows, that of the sums among them.
/// Returns the formulas. Raises as FillWorkTable does.
QStringList PreparePrint(dao::Database& db, const Settings& settings, const Print& print, const Scope& scope,
                         int rows, const std::function<QString(int row, int column)>& cell);

}  // namespace reports
