// The way of a statement from the system's dialect to the engine's.
#pragma once

#include "platform/dao/dialect/statement.h"

namespace dao::dialect {

struct Translation {
    Verb verb;
    std::string sql;
    std::string table;  ///< for a dynaset: the table to write to; its row number is the last column
};

/// Raises Refusal for what cannot be translated. Costs microseconds, whatever the statement.
Translation Translate(std::string_view statement, const Tables& tables, bool forDynaset = false);

}  // namespace dao::dialect
