#include "tests/support/data_file.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tests {
namespace {

/// One connection of the engine, closed at the end of its scope.
class Engine {
  public:
    Engine(const QString& path, const QString& password) {
        EXPECT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &engine_,
                                  SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr),
                  SQLITE_OK);
        if (!password.isEmpty()) {
            const QByteArray key = password.toUtf8();
            EXPECT_EQ(sqlite3_key(engine_, key.constData(), static_cast<int>(key.size())), SQLITE_OK);
            Run("pragma cipher_page_size=4096");
            Run("pragma kdf_iter=64000");
        }
    }
    ~Engine() { sqlite3_close(engine_); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void Run(const QByteArray& sql) {
        EXPECT_EQ(sqlite3_exec(engine_, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sql.constData() << ": " << sqlite3_errmsg(engine_);
    }

    QStringList Rows(const QByteArray& sql) {
        QStringList rows;
        const auto take = [](void* list, int columns, char** values, char**) {
            QStringList row;
            for (int i = 0; i < columns; ++i)
                row << (values[i] ? QString::fromUtf8(values[i]) : QStringLiteral("<null>"));
            *static_cast<QStringList*>(list) << row.join(QLatin1Char('|'));
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(engine_, sql.constData(), take, &rows, nullptr), SQLITE_OK)
            << sql.constData() << ": " << sqlite3_errmsg(engine_);
        return rows;
    }

  private:
    sqlite3* engine_ = nullptr;
};

}  // namespace

DataFile::DataFile(const QStringList& statements, const QString& password)
    : path_(folder_.filePath(QStringLiteral("test.dat"))), password_(password) {
    Engine engine(path_, password_);
    engine.Run("create table TE1 (F1 TEXT COLLATE NOCASE)");
    for (const QString& statement : statements) engine.Run(statement.toUtf8());
}

QString DataFile::Connect() const {
    return password_.isEmpty() ? QString() : QStringLiteral(";PWD=") + password_;
}

void DataFile::Run(const QString& statement) const {
    Engine(path_, password_).Run(statement.toUtf8());
}

QStringList DataFile::Rows(const QString& statement) const {
    return Engine(path_, password_).Rows(statement.toUtf8());
}

QStringList DataFile::Files() const {
    return QDir(folder_.path()).entryList(QDir::Files, QDir::Name);
}

}  // namespace tests
