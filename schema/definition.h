// The database definition built into the program: the texts of tables.sql and first_rows.sql.
#pragma once

#include <QByteArray>

struct sqlite3;

namespace schema {

/// The version of tables.sql, stored in the file as user_version. A change to a table increments it and adds
/// a step to UpgradeSteps(), which upgrades older files to the same tables.
inline constexpr int kVersion = 4;

/// Several statements, in UTF-8.
QByteArray TablesSql();
QByteArray FirstRowsSql();

/// Creates every table, index and trigger in an empty file and sets its user_version to kVersion. Raises
/// RuntimeError.
void CreateTables(sqlite3* db);
/// Inserts the initial rows of a new company. Raises RuntimeError.
void InsertFirstRows(sqlite3* db);

}  // namespace schema
