#include "platform/dao/file_check.h"

#include "platform/dao/cipher.h"
#include "platform/dao/engine.h"
#include "platform/dao/engine_words.h"
#include "platform/errors.h"

#include <QUrl>

#include <memory>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// The engine with the path of its file, for what its errors say.
struct OpenFile {
    Engine engine;
    QString path;

    [[noreturn]] void Fail(const QString& statement) const {
        const int code = sqlite3_extended_errcode(engine.get());
        throw DatabaseError(EngineText(code, sqlite3_errmsg(engine.get()), path), statement);
    }

    /// The first field of the first row; "" if there is none.
    QString Answer(const QString& statement) const {
        sqlite3_stmt* raw = nullptr;
        const int code = sqlite3_prepare_v2(engine.get(), statement.toUtf8().constData(), -1, &raw, nullptr);
        const std::unique_ptr<sqlite3_stmt, Finalize> prepared(raw);
        if (code != SQLITE_OK) Fail(statement);
        const int step = sqlite3_step(raw);
        if (step != SQLITE_ROW && step != SQLITE_DONE) Fail(statement);
        if (step == SQLITE_DONE) return {};
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(raw, 0)));
    }

    QStringList Answers(const QStringList& selects) const {
        QStringList answers;
        for (const QString& select : selects) answers += Answer(select);
        return answers;
    }
};

OpenFile OpenToRead(const QString& path, const QString& connect) {
    QByteArray address = QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded);
    address += "?immutable=1";
    sqlite3* raw = nullptr;
    const int code =
        sqlite3_open_v2(address.constData(), &raw, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    OpenFile file{Engine(raw), path};
    if (code != SQLITE_OK) throw DatabaseError(EngineText(code, sqlite3_errstr(code), path), path);
    const QByteArray password = PasswordIn(connect);
    if (!password.isEmpty()) {
        if (sqlite3_key(raw, password.constData(), static_cast<int>(password.size())) != SQLITE_OK)
            file.Fail(path);
        for (const char* setting : kCipherSettings) file.Answer(QString::fromLatin1(setting));
    }
    file.Answer(u"pragma temp_store=memory"_s);
    return file;
}

}  // namespace

QStringList ReadFile(const QString& path, const QString& connect, const QStringList& selects) {
    return OpenToRead(path, connect).Answers(selects);
}

QStringList CheckFile(const QString& path, const QString& connect, Depth depth, const QStringList& selects) {
    const OpenFile file = OpenToRead(path, connect);
    const QString check = depth == Depth::Whole ? u"pragma integrity_check(1)"_s : u"pragma quick_check(1)"_s;
    const QString found = file.Answer(check);
    if (found != u"ok") throw DatabaseError(found, check);
    return file.Answers(selects);
}

}  // namespace dao
