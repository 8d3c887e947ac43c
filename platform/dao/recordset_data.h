// The data of a Recordset: its rows, copied with their texts in one arena or read as they come, and for a
// dynaset the writer that updates its table.
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

/// One value of the current row. A text is UTF-8 and is there until the cursor moves or the file is closed.
struct Value {
    CellKind kind = CellKind::Null;
    union {
        double real = 0;
        std::int64_t whole;
    };
    std::string_view text{};
};

/// One value of a copied row. A text is UTF-8 in the arena.
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

/// A SELECT as it runs.
class RowReader {
  public:
    /// `statement` is also what an error report shows. Raises DatabaseError, as Next does.
    RowReader(std::shared_ptr<Connection> connection, const QString& statement, Wording wording);

    dialect::Verb Verb() const { return prepared_.Translation().verb; }
    /// Call before the first row.
    void Begin();
    std::vector<QString> Names() const;
    /// Goes to the next row. False behind the last one.
    bool Next();
    Value Read(int column) const;

    /// For a dynaset: what updates its table, and the number of the row in it.
    std::unique_ptr<RowWriter> Writer() const;
    std::int64_t RowNumber() const { return sqlite3_column_int64(prepared_, columns_); }

  private:
    bool Writable() const { return !prepared_.Translation().table.empty(); }

    std::shared_ptr<Connection> connection_;
    const QString statement_;
    Prepared prepared_;
    bool begun_ = false;
    int columns_ = 0;            ///< without the row number of a dynaset
    std::vector<bool> boolean_;  ///< which columns are declared BOOLEAN
};

struct RecordsetData {
    std::vector<QString> names;
    int rows = 0;
    int row = 0;
    bool reachedLast = false;
    bool closed = false;
    std::vector<Cell> cells;
    std::string arena;

    // A forward-only set has the reader's row as its only one; which is let go behind the last row.
    bool forwardOnly = false;
    std::unique_ptr<RowReader> reader;

    // Only for a writable dynaset.
    std::unique_ptr<RowWriter> writer;
    std::vector<std::int64_t> rowNumbers;
    bool editing = false;
    std::vector<RowWriter::Value> pending;

    int ColumnCount() const { return static_cast<int>(names.size()); }
    /// The column of that name. Raises RuntimeError if there is none.
    int ColumnOf(QStringView name) const;
    /// A value of the current row. Raises RuntimeError if there is no current row.
    Value Current(int column) const;
    void RequireRow() const;
    /// Goes to the next row of a forward-only set.
    void ReadOn();
    /// A cell that holds the value, its text in the arena.
    Cell Copied(const Value& value);
};

/// Runs a SELECT and reads all its rows, or the first of a forward-only set.
std::unique_ptr<RecordsetData> ReadRows(std::unique_ptr<RowReader> reader, bool forwardOnly);

}  // namespace dao
