// A few steps on the bare engine, for making and upgrading files; statements here are the engine's own, not
// the system's dialect. All raise RuntimeError with the engine's words.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

struct sqlite3;

namespace dao {

struct CloseEngine {
    void operator()(sqlite3* db) const;
};
using Engine = std::unique_ptr<sqlite3, CloseEngine>;

/// Opens a file, creating it. password "" leaves it readable for everyone.
Engine OpenEngine(const QString& path, QStringView password);

/// Runs the statements of a text one after the other, up to the first that fails.
void Run(sqlite3* db, const QByteArray& statements);
/// The first field of the first row; 0 if there is none.
int Number(sqlite3* db, const QByteArray& statement);
/// Runs one statement with its only parameter filled in.
void RunWithText(sqlite3* db, const QByteArray& statement, const QString& text);

/// Takes the write-ahead log into the file. The engine does that only where nobody else has the file open:
/// false if somebody has.
bool GiveUpLog(sqlite3* db);
/// Runs work as one transaction, which begins with this statement: all of it or, when it raises, nothing.
void InTransaction(sqlite3* db, const QByteArray& begin, const std::function<void()>& work);

}  // namespace dao
