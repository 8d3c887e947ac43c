// Statements ready for the engine: translated, prepared, and kept a while, since a save asks the same
// questions several times and the next save asks them again.
//
// Always holds: a kept statement stands at its beginning and holds nothing locked; one that failed is not
// kept.
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
    SystemDynaset,  ///< the same, with the row's number as a further column
    Engine,         ///< the engine's own; not translated
};

struct ReadyStatement {
    QString text;
    Wording wording;
    std::size_t hash;
    dialect::Translation translation;
    sqlite3_stmt* prepared = nullptr;
};

/// The statements that came more than once, those that ran last. They end with their engine.
class StatementCache {
  public:
    /// Has a statement of that hash come lately? It counts as come from now on.
    bool IsRepeated(std::size_t hash);
    /// Takes the statement out, so that nobody else runs it meanwhile; nothing if it is not there.
    std::optional<ReadyStatement> Take(const QString& text, Wording wording, std::size_t hash);
    void Keep(ReadyStatement statement);
    void Clear() { kept_.clear(); }

  private:
    std::array<std::size_t, 128> seen_{};
    std::size_t nextSeen_ = 0;
    std::list<ReadyStatement> kept_;  ///< the one that was kept last stands in front
};

/// One statement on its way through the engine.
class Prepared {
  public:
    /// Translates, unless that was done before. told is the text for an error report.
    Prepared(Connection& connection, const QString& text, Wording wording, const QString& reported);
    ~Prepared();
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    const dialect::Translation& Translation() const { return statement_.translation; }
    /// Before the first step. Raises DatabaseError.
    void Prepare();
    /// It ran to its end, so it can be kept.
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
