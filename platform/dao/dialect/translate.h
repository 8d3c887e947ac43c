// Translates a statement from the system's dialect to the engine's.
#pragma once

#include "platform/dao/dialect/statement.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace dao::dialect {

/// A literal that is bound to a parameter of the statement.
using Value = std::variant<std::string, double, std::int64_t>;

struct Translation {
    Verb verb;
    std::string sql;
    std::string table;  ///< for a dynaset: the table to write to; its row number is the last column
    /// The values of the parameters (?) in sql, in order. Inserts into the same table and columns thus share
    /// one sql text.
    std::vector<Value> values = {};
};

/// Raises Refusal for what cannot be translated. Takes microseconds for any statement.
Translation Translate(std::string_view statement, const Tables& tables, bool forDynaset = false);

}  // namespace dao::dialect
