// The database's definition as the program carries it: the texts of tables.sql and first_rows.sql.
#pragma once

#include <QByteArray>

struct sqlite3;

namespace schema {

/// The version of tables.sql, kept in the file as user_version. A changed table raises it by one and adds a
/// step to UpgradeSteps(), which brings older files to the same shape.
inline constexpr int kVersion = 1;

/// UTF-8, several statements.
QByteArray TablesSql();
QByteArray FirstRowsSql();

/// Creates every table and index in an empty file and stamps it with kVersion. Raises RuntimeError.
void CreateTables(sqlite3* db);
/// The rows that a new company starts with. Raises RuntimeError.
void InsertFirstRows(sqlite3* db);

}  // namespace schema
