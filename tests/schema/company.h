// A freshly made database in a folder of its own, and a look into it past the system's own ways.
#pragma once

#include "platform/errors.h"
#include "schema/data_files.h"
#include "schema/engine.h"
#include "schema/names.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <sqlite3.h>
#include <vector>

namespace tests {

/// The rows of a query, null as "NULL".
inline std::vector<QStringList> Rows(sqlite3* db, const QString& query) {
    using namespace Qt::StringLiterals;
    sqlite3_stmt* raw = nullptr;
    const int result = sqlite3_prepare_v2(db, query.toUtf8().constData(), -1, &raw, nullptr);
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(raw, sqlite3_finalize);
    EXPECT_EQ(result, SQLITE_OK) << query.toStdString() << ": " << sqlite3_errmsg(db);
    std::vector<QStringList> rows;
    while (result == SQLITE_OK && sqlite3_step(raw) == SQLITE_ROW) {
        QStringList row;
        for (int field = 0; field < sqlite3_column_count(raw); ++field) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(raw, field));
            row += text != nullptr ? QString::fromUtf8(text) : u"NULL"_s;
        }
        rows.push_back(row);
    }
    return rows;
}

/// The only row of a query, its fields joined by "|".
inline std::string Row(sqlite3* db, const QString& query) {
    const auto rows = Rows(db, query);
    if (rows.size() != 1) return std::to_string(rows.size()) + " rows";
    return rows[0].join(u'|').toStdString();
}

inline bool Runs(sqlite3* db, const QString& statement) {
    try {
        schema::Run(db, statement.toUtf8());
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

inline QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

class Company : public testing::Test {
  protected:
    Company() {
        schema::MakeDatabase(Path(schema::kDatabaseFile.toString()));
        engine_ = schema::OpenEngine(Path(schema::kDatabaseFile.toString()), schema::kPassword);
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }
    sqlite3* db() const { return engine_.get(); }

  private:
    QTemporaryDir folder_;
    schema::Engine engine_;
};

}  // namespace tests
