// One function per difference between the system's dialect and the engine's. Each changes the statement in
// place and touches no literal that is not its own. Raises Refusal.
#pragma once

#include "platform/dao/dialect/statement.h"
#include "platform/dao/dialect/translate.h"

namespace dao::dialect {

/// select ... into ... in: no way yet to write rows into another file.
void RefuseSelectInto(const Statement& statement);

/// "abc" is a text, never a name.
void DoubleQuotesToText(Statement& statement);

/// The words True and False are 1 and 0. A stored 1 reads back as -1.
void TrueAndFalse(Statement& statement);

/// Dates in datediff are checked and written in full; a day difference between a date and a column that is
/// compared with a whole number becomes a half-open range on the column, which an index can serve.
void DatediffToRange(Statement& statement, const Tables& tables);

/// like without wildcards is an equality, like with a plain beginning also a range; both keep the case-blind
/// comparison. Everything else stays a call of our own like.
void LikeToRange(Statement& statement, const Tables& tables);

/// Dates that are written to a DATE column take the form yyyy-MM-dd[ HH:mm:ss].
void DatesInWrites(Statement& statement, const Tables& tables);

/// What is reckoned in a value that is written (1e308*10) must come out as a number that can be held; the
/// engine would store infinity.
void FiniteWrites(Statement& statement);

/// The literals in the values of an insert leave the statement and go beside it.
std::vector<Value> TakeValues(Statement& statement);

/// Rows come in the order in which they were written, and rows that an order leaves equal too.
void OrderByRow(Statement& statement);

/// select top n: exactly n rows.
void TopToLimit(Statement& statement);

/// For a dynaset: the row's own number as a further column. Returns the table that can be written to, "" if
/// the statement is of several tables or sums up.
std::string AddRowNumber(Statement& statement);

}  // namespace dao::dialect
