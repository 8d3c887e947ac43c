#include "schema/definition.h"

#include "schema/engine.h"
#include "schema/history.h"
#include "schema_texts.h"

namespace schema {

QByteArray TablesSql() {
    return QByteArray(texts::kTables);
}

QByteArray FirstRowsSql() {
    return QByteArray(texts::kFirstRows);
}

void CreateTables(sqlite3* db) {
    InTransaction(db, "begin immediate", [&] {
        Run(db, TablesSql());
        CompleteHistory(db);
        Run(db, "pragma user_version = " + QByteArray::number(kVersion));
    });
}

void InsertFirstRows(sqlite3* db) {
    InTransaction(db, "begin immediate", [&] { Run(db, FirstRowsSql()); });
}

}  // namespace schema
