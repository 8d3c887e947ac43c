// The only interface to the database file: statements are text in the system's own dialect, translated by
// tokens for the engine underneath.
//
// Always holds: the first write opens a commit group; the end of the command closes it (sys::CloseCommand). A
// group is never rolled back because a statement failed: what was executed before it remains. A full disk, an
// I/O error or a failed commit loses the group, and the DatabaseError says so (GroupLost). A group waits for
// its turn while another program is writing to the file (busy.h).
#pragma once

#include "platform/dao/recordset.h"

#include <QString>

#include <functional>
#include <memory>

struct sqlite3;

namespace dao {

class Database {
  public:
    /// Opens an existing file; connect is ";PWD=..." or "". Raises DatabaseError with the engine's words for
    /// a file that is missing, empty, damaged, read-only, locked, without the operator table (asked where
    /// there is a password), or of another password. One that another program is working with opens. From
    /// here on the file can be read by its owner alone. vfs names the engine's storage layer, for tests (""
    /// is the engine's own). prepare gets the engine's handle once the file has passed all this, before the
    /// file gets its log and the first statement comes: for the upgrade of an older file. What it raises,
    /// Open raises, and the file is closed.
    static std::unique_ptr<Database> Open(const QString& path, const QString& connect,
                                          const QString& vfs = {},
                                          const std::function<void(sqlite3*)>& prepare = {});
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs an INSERT, UPDATE or DELETE. Raises DatabaseError.
    void Execute(const QString& statement) { Execute(statement, statement); }
    /// The same; `reported` is what an error shows in place of the statement, for one that holds a secret.
    void Execute(const QString& statement, const QString& reported);
    /// Runs a SELECT. Raises DatabaseError; a forward-only set may do so at each move.
    Recordset OpenRecordset(const QString& statement, RecordsetType type = RecordsetType::Snapshot);

    // The same two in the engine's own words, untranslated, for what belongs to this program and not to the
    // system's statements.
    void ExecuteEngine(const QString& statement);
    Recordset ReadEngine(const QString& select);

    /// Commits what is open. Raises DatabaseError (GroupLost) if it cannot be kept.
    void CloseGroup();
    bool InGroup() const;

    /// Whether no other program has the file open. Commits first. Where it is so, the next call is Close or
    /// WhileClosed.
    bool IsAlone();
    /// Commits, checkpoints into one single file, unless other programs have it open, and lets go of it.
    /// Every later call raises.
    void Close();

    /// Closes the file, runs work, which must not raise, and opens the file again, as Close and Open do. Rows
    /// copied before stay readable. Where the file does not open any more it stays closed.
    void WhileClosed(const std::function<void()>& work);

    struct Impl;

  private:
    explicit Database(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace dao
