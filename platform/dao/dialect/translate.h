// The way of a statement from the system's dialect to the engine's.
#pragma once

#include "platform/dao/dialect/statement.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace dao::dialect {

/// A literal that goes to the engine beside its statement.
using Value = std::variant<std::string, double, std::int64_t>;

struct Translation {
    Verb verb;
    std::string sql;
    std::string table;  ///< for a dynaset: the table to write to; its row number is the last column
    /// For the question marks in sql, in their order. Inserts into one table have the same words then,
    /// whatever they insert.
    std::vector<Value> values = {};
};

/// Raises Refusal for what cannot be translated. Costs microseconds, whatever the statement.
Translation Translate(std::string_view statement, const Tables& tables, bool forDynaset = false);

}  // namespace dao::dialect
