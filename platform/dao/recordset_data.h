// The data of a Recordset: all rows in one arena, and for a dynaset the writer that updates its table.
#pragma once

#include "platform/dao/connection.h"
#include "platform/dao/recordset.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dao {

enum class CellKind : std::uint32_t { Null, Text, Real, Whole };

/// One value in the arena: text as UTF-8, a number as its eight bytes.
struct Cell {
    std::uint32_t offset = 0;
    std::uint32_t kind : 2 = 0;
    std::uint32_t length : 30 = 0;

    CellKind Kind() const { return static_cast<CellKind>(kind); }
};

/// Updates rows by their row number. Reuses one prepared statement while the same fields are set.
class RowWriter {
  public:
    RowWriter(std::shared_ptr<Connection> connection, std::string table, QString statement);

    struct Value {
        int column;
        double value;
    };
    void Write(std::int64_t row, const std::vector<Value>& values, const std::vector<QString>& names);

  private:
    void Prepare(const std::vector<Value>& values, const std::vector<QString>& names);

    std::shared_ptr<Connection> connection_;
    std::string table_;
    QString statement_;
    std::vector<int> columns_;  ///< the columns that prepared_ sets
    std::unique_ptr<Prepared> prepared_;
};

struct RecordsetData {
    std::vector<QString> names;
    int rows = 0;
    int row = 0;
    bool reachedLast = false;
    bool closed = false;
    std::vector<Cell> cells;
    std::string arena;

    // Only for a writable dynaset.
    std::unique_ptr<RowWriter> writer;
    std::vector<std::int64_t> rowNumbers;
    bool editing = false;
    std::vector<RowWriter::Value> pending;

    int ColumnCount() const { return static_cast<int>(names.size()); }
    /// The column of that name. Raises RuntimeError if there is none.
    int ColumnOf(QStringView name) const;
    /// A cell of the current row. Raises RuntimeError if there is no current row.
    const Cell& CurrentCell(int column) const;
    void RequireRow() const;

    void AddText(std::string_view value);
    void AddReal(double value);
    void AddWhole(std::int64_t value);
    Cell PutNumber(CellKind kind, const void* bytes);

    std::string_view TextOf(const Cell& cell) const {
        return std::string_view(arena).substr(cell.offset, cell.length);
    }
    double RealOf(const Cell& cell) const;
    std::int64_t WholeOf(const Cell& cell) const;
};

/// Runs a SELECT and reads all its rows.
std::unique_ptr<RecordsetData> ReadRows(const std::shared_ptr<Connection>& connection, Prepared& prepared,
                                        const QString& statement);

}  // namespace dao
