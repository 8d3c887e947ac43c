#include "schema/definition.h"

#include "platform/dao/engine.h"
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
    dao::InTransaction(db, "begin immediate", [&] {
        dao::Run(db, TablesSql());
        CompleteHistory(db);
        dao::Run(db, "pragma user_version = " + QByteArray::number(kVersion));
    });
}

void InsertFirstRows(sqlite3* db) {
    dao::InTransaction(db, "begin immediate", [&] { dao::Run(db, FirstRowsSql()); });
}

}  // namespace schema
