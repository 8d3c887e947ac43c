#include "tests/support/data_file.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tests {

Connection::Connection(const QString& path, const QString& password) {
    EXPECT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &engine_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                              nullptr),
              SQLITE_OK);
    if (password.isEmpty()) return;
    const QByteArray key = password.toUtf8();
    EXPECT_EQ(sqlite3_key(engine_, key.constData(), static_cast<int>(key.size())), SQLITE_OK);
    Run(QStringLiteral("pragma cipher_page_size=4096"));
    Run(QStringLiteral("pragma kdf_iter=64000"));
}

Connection::~Connection() {
    Close();
}

void Connection::Close() {
    sqlite3_close(engine_);
    engine_ = nullptr;
}

bool Connection::Takes(const QString& statement) {
    return sqlite3_exec(engine_, statement.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

void Connection::Run(const QString& statement) {
    EXPECT_TRUE(Takes(statement)) << statement.toStdString() << ": " << sqlite3_errmsg(engine_);
}

QStringList Connection::Rows(const QString& statement) {
    QStringList rows;
    const auto take = [](void* list, int columns, char** values, char**) {
        QStringList row;
        for (int i = 0; i < columns; ++i)
            row << (values[i] ? QString::fromUtf8(values[i]) : QStringLiteral("<null>"));
        *static_cast<QStringList*>(list) << row.join(QLatin1Char('|'));
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(engine_, statement.toUtf8().constData(), take, &rows, nullptr), SQLITE_OK)
        << statement.toStdString() << ": " << sqlite3_errmsg(engine_);
    return rows;
}

DataFile::DataFile(const QStringList& statements) : path_(folder_.filePath(QStringLiteral("test.dat"))) {
    Connection engine(path_);
    engine.Run(QStringLiteral("create table TE1 (F1 TEXT COLLATE NOCASE)"));
    for (const QString& statement : statements) engine.Run(statement);
}

void DataFile::Run(const QString& statement) const {
    Connection(path_).Run(statement);
}

QStringList DataFile::Rows(const QString& statement) const {
    return Connection(path_).Rows(statement);
}

QStringList DataFile::Files() const {
    return QDir(folder_.path()).entryList(QDir::Files, QDir::Name);
}

}  // namespace tests
