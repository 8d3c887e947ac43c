#include "platform/dao/engine.h"

#include "platform/dao/cipher.h"
#include "platform/errors.h"

#include <optional>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

[[noreturn]] void Fail(sqlite3* db) {
    throw RuntimeError(u"数据库引擎返回：%1"_s.arg(QString::fromUtf8(sqlite3_errmsg(db))));
}

void Check(sqlite3* db, int result) {
    if (result != SQLITE_OK) Fail(db);
}

/// The next statement of the text, which is moved on behind it; empty when only blanks and comments are left.
Statement Prepare(sqlite3* db, const char*& text) {
    while (*text != '\0') {
        sqlite3_stmt* raw = nullptr;
        Check(db, sqlite3_prepare_v2(db, text, -1, &raw, &text));
        if (raw != nullptr) return Statement(raw);
    }
    return {};
}

/// Runs to the end; gives the first field of the first row, if there was one.
std::optional<int> Step(sqlite3* db, sqlite3_stmt* statement) {
    std::optional<int> first;
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
        if (!first) first = sqlite3_column_int(statement, 0);
    }
    if (result != SQLITE_DONE) Fail(db);
    return first;
}

}  // namespace

void CloseEngine::operator()(sqlite3* db) const {
    sqlite3_close_v2(db);
}

Engine OpenEngine(const QString& path, QStringView password) {
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    Engine engine(raw);
    if (!engine) throw RuntimeError(u"内存不足，无法打开数据库引擎！"_s);
    Check(raw, result);
    if (!password.isEmpty()) {
        const QByteArray key = password.toUtf8();
        Check(raw, sqlite3_key(raw, key.constData(), static_cast<int>(key.size())));
        for (const char* setting : kCipherSettings) Run(raw, setting);
    }
    Run(raw, "pragma temp_store = memory");
    return engine;
}

void Run(sqlite3* db, const QByteArray& statements) {
    const char* text = statements.constData();
    while (const Statement statement = Prepare(db, text)) Step(db, statement.get());
}

int Number(sqlite3* db, const QByteArray& statement) {
    const char* text = statement.constData();
    const Statement prepared = Prepare(db, text);
    return prepared ? Step(db, prepared.get()).value_or(0) : 0;
}

void RunWithText(sqlite3* db, const QByteArray& statement, const QString& text) {
    const char* rest = statement.constData();
    const Statement prepared = Prepare(db, rest);
    const QByteArray value = text.toUtf8();
    Check(db, sqlite3_bind_text(prepared.get(), 1, value.constData(), static_cast<int>(value.size()),
                                SQLITE_STATIC));
    Step(db, prepared.get());
}

bool GiveUpLog(sqlite3* db) {
    const int result = sqlite3_exec(db, "pragma journal_mode = delete", nullptr, nullptr, nullptr);
    return (result & 0xff) != SQLITE_BUSY;
}

void InTransaction(sqlite3* db, const QByteArray& begin, const std::function<void()>& work) {
    Run(db, begin);
    try {
        work();
        Run(db, "commit");
    } catch (...) {
        // A full disk has rolled back by itself already; the error that is on its way says why.
        if (sqlite3_get_autocommit(db) == 0) sqlite3_exec(db, "rollback", nullptr, nullptr, nullptr);
        throw;
    }
}

}  // namespace dao
