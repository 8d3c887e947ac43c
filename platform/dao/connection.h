// The engine's handle with its commit group, shared by the Database and the sets that read and write through
// it.
//
// Always holds: at most one transaction is open, and it is the commit group. After a group was lost, every
// statement of the same command fails like the one that lost it, so that no half of a command is kept.
#pragma once

#include "platform/dao/group_start.h"
#include "platform/dao/statements.h"
#include "platform/errors.h"

#include <QString>

#include <functional>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace dao {

/// The kinds of columns and what the indexes begin with, read once per table.
class TableCache : public dialect::Tables {
  public:
    void SetEngine(sqlite3* engine) { engine_ = engine; }
    const dialect::Table* Find(std::string_view table) const override;
    bool LeadsIndex(std::string_view table, std::string_view column) const override;

  private:
    sqlite3* engine_ = nullptr;
    mutable std::unordered_map<std::string, dialect::Table> known_;
    mutable std::unordered_map<std::string, std::vector<std::string>> leading_;
};

class Connection {
  public:
    /// prepare as in Database::Open.
    Connection(const QString& path, const QString& connect, const QString& vfs,
               const std::function<void(sqlite3*)>& prepare);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool IsOpen() const { return engine_ != nullptr; }
    /// Raises when the file is closed. When this command has lost its group, raises once more what lost it.
    sqlite3* Engine(const QString& statement) const;

    /// reported is the text for an error report.
    dialect::Translation Translate(const QString& statement, Wording wording, const QString& reported) const;
    StatementCache& Kept() { return kept_; }

    bool InGroup() const { return inGroup_; }
    /// Waits for another program that is writing (busy.h). Raises what busy.h says.
    void BeginGroup(const QString& statement);
    void CloseGroup();
    /// Raises what the engine says of its last call, and gives the group up where the engine did or must.
    [[noreturn]] void Fail(int code, const QString& statement);

    /// Before the file is closed, or the program ends: brings everything into the one file, as far as other
    /// programs that have it open let it.
    void Checkpoint();
    /// As Database::IsAlone.
    bool IsAlone();
    void Close();
    /// Rolls back what is not committed and closes.
    void Abandon();

  private:
    void Open(const QString& path, const QString& connect, const QString& vfs,
              const std::function<void(sqlite3*)>& prepare);
    void Unlock(const QString& path, const QString& connect);
    void Inspect(const QString& path, bool withPassword);
    void RequireWritable(const QString& path);
    bool KeepsLog();
    int TryToBegin();
    int WaitAndBegin();
    void StartGroup(const QString& statement);
    void EndReads();
    void Run(const char* sql, const QString& statement);
    void DropEngine();

    QString path_;
    sqlite3* engine_ = nullptr;
    TableCache tables_;
    StatementCache kept_;
    std::unique_ptr<GroupStart> start_;
    bool startMade_ = false;
    bool inGroup_ = false;
    struct Loss {
        QString words;
        QString statement;
    };
    std::optional<Loss> lost_;  ///< why this command's group is gone
};

}  // namespace dao
