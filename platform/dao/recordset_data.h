// The data of a Recordset: all rows with their texts in one arena, and for a dynaset the writer that updates
// its table.
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

/// One value. A text is UTF-8 in the arena.
struct Cell {
    union {
        std::uint32_t offset = 0;
        double real;
        std::int64_t whole;
    };
    CellKind kind = CellKind::Null;
    std::uint32_t length = 0;  ///< of a text, in bytes
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

    /// Puts the text into the arena.
    Cell TextCell(std::string_view value);

    std::string_view TextOf(const Cell& cell) const {
        return std::string_view(arena).substr(cell.offset, cell.length);
    }
};

/// Runs a SELECT and reads all its rows.
std::unique_ptr<RecordsetData> ReadRows(const std::shared_ptr<Connection>& connection, Prepared& prepared,
                                        const QString& statement);

}  // namespace dao
