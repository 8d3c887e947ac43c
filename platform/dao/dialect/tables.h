// The table definitions that the translations use: which columns hold dates and which hold text.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace dao::dialect {

enum class ColumnKind {
    Text,
    Other,     ///< numbers and booleans, as the engine stores them
    Date,      ///< declared DATE: written as yyyy-MM-dd[ HH:mm:ss] or null
    DateText,  ///< a text column that holds dates written by a picker, or ''
};

struct Column {
    std::string name;
    ColumnKind kind;
};

struct Table {
    std::vector<Column> columns;

    bool HasDates() const {
        return std::any_of(columns.begin(), columns.end(),
                           [](const Column& column) { return column.kind == ColumnKind::Date; });
    }
    /// Case-insensitive; null if there is no such column.
    const Column* Find(std::string_view column) const;
};

class Tables {
  public:
    virtual ~Tables() = default;
    /// Case-insensitive; null if there is no such table.
    virtual const Table* Find(std::string_view table) const = 0;
    /// Whether the column is the first one of an index. Case-insensitive.
    virtual bool LeadsIndex(std::string_view /*table*/, std::string_view /*column*/) const { return false; }
};

}  // namespace dao::dialect
