// The cache of translated and prepared statements. A save runs the same queries several times, and the next
// save runs them again.
//
// Always holds: a cached statement is reset and holds no lock; a statement that failed is not cached.
#pragma once

#include "platform/dao/dialect/translate.h"

#include <QString>

#include <array>
#include <cstddef>
#include <list>
#include <optional>
#include <sqlite3.h>

namespace dao {

class Connection;

enum class Wording {
    System,         ///< the system's dialect
    SystemDynaset,  ///< the same, with the row number as an additional column
    Engine,         ///< the engine's dialect; not translated
};

struct ReadyStatement {
    QString text;
    Wording wording;
    std::size_t hash;
    dialect::Translation translation;
    sqlite3_stmt* prepared = nullptr;
};

/// LRU cache of the statements that ran more than once. Closing the engine finalizes them.
class StatementCache {
  public:
    /// Whether a statement of that hash is among the last 128 different ones. Records the hash.
    bool IsRepeated(std::size_t hash);
    /// Removes and returns the statement, so that no other caller runs it meanwhile; std::nullopt if not
    /// cached.
    std::optional<ReadyStatement> Take(const QString& text, Wording wording, std::size_t hash);
    void Keep(ReadyStatement statement);
    void Clear() { kept_.clear(); }

  private:
    std::array<std::size_t, 128> seen_{};
    std::size_t nextSeen_ = 0;
    std::list<ReadyStatement> kept_;  ///< most recently kept first
};

/// RAII guard of one running statement: the destructor returns it to the cache or finalizes it.
class Prepared {
  public:
    /// Translates the statement unless the cache has it. `reported` is the text shown in an error report.
    Prepared(Connection& connection, const QString& text, Wording wording, const QString& reported);
    ~Prepared();
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    const dialect::Translation& Translation() const { return statement_.translation; }
    /// Call before the first step. Raises DatabaseError.
    void Prepare();
    /// Call after the last step: the statement ran to its end, so it can be cached.
    void Done() { done_ = true; }
    operator sqlite3_stmt*() const { return statement_.prepared; }

  private:
    bool TakeCached(const QString& text, Wording wording, std::size_t hash);
    void BindValues();

    Connection& connection_;
    const QString& reported_;
    ReadyStatement statement_;
    std::vector<dialect::Value> values_;
    bool repeated_ = true;
    bool done_ = false;
};

}  // namespace dao
