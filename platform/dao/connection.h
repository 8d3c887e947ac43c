// The engine's handle with its commit group, shared by the Database and the dynasets that write through it.
//
// Always holds: at most one transaction is open, and it is the commit group. After a group was lost, every
// statement of the same command fails like the one that lost it, so that no half of a command is kept.
#pragma once

#include "platform/dao/dialect/translate.h"
#include "platform/errors.h"

#include <QString>

#include <optional>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <unordered_map>

namespace dao {

/// The kinds of columns, read once per table.
class TableCache : public dialect::Tables {
  public:
    void SetEngine(sqlite3* engine) { engine_ = engine; }
    const dialect::Table* Find(std::string_view table) const override;

  private:
    sqlite3* engine_ = nullptr;
    mutable std::unordered_map<std::string, dialect::Table> known_;
};

class Connection {
  public:
    Connection(const QString& path, const QString& connect, const QString& vfs);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool IsOpen() const { return engine_ != nullptr; }
    /// Raises when the file is closed. When this command has lost its group, raises once more what lost it.
    sqlite3* Engine(const QString& statement) const;

    dialect::Translation Translate(const QString& statement, bool forDynaset) const;
    /// The caller owns what it gets, best as a Prepared.
    sqlite3_stmt* Prepare(const std::string& sql, const QString& statement);

    bool InGroup() const { return inGroup_; }
    void BeginGroup(const QString& statement);
    void CloseGroup();
    /// Raises what the engine says of its last call, and gives the group up where the engine did or must.
    [[noreturn]] void Fail(int code, const QString& statement);

    /// Brings everything into the one file.
    void Checkpoint();
    void Close();

  private:
    void Open(const QString& path, const QString& connect, const QString& vfs);
    void Unlock(const QString& path, const QString& connect);
    void Inspect(const QString& path, bool withPassword);
    void Run(const char* sql, const QString& statement);
    void LetGo();

    sqlite3* engine_ = nullptr;
    TableCache tables_;
    bool inGroup_ = false;
    struct Loss {
        QString words;
        QString statement;
    };
    std::optional<Loss> lost_;  ///< why this command's group is gone
};

/// A prepared statement; ends with its connection at the latest.
class Prepared {
  public:
    Prepared(const Connection& connection, sqlite3_stmt* statement)
        : connection_(&connection), statement_(statement) {}
    ~Prepared() {
        // A closed connection has finished its statements itself.
        if (connection_->IsOpen()) sqlite3_finalize(statement_);
    }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;
    operator sqlite3_stmt*() const { return statement_; }

  private:
    const Connection* connection_;
    sqlite3_stmt* statement_;
};

}  // namespace dao
