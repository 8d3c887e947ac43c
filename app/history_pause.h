// Clearing whole tables without keeping their rows: what belongs to a cleared table goes from the history
// too.
#pragma once

#include "platform/dao/database.h"

#include <QStringList>

/// RAII guard: from here on the tables' changes are not kept, which lets the engine empty a table at once.
/// All of it belongs to the commit group of the command. Where the command fails in between, the destructor
/// turns the history on again.
class HistoryPause {
  public:
    /// Tables that are not kept are passed over. Raises DatabaseError.
    HistoryPause(dao::Database& db, const QStringList& tables);
    ~HistoryPause();
    HistoryPause(const HistoryPause&) = delete;
    HistoryPause& operator=(const HistoryPause&) = delete;

    /// Empties the tables' history and goes on keeping them. Raises DatabaseError.
    void Forget();

  private:
    void Resume();

    dao::Database& db_;
    QStringList mirrors_;
    QStringList triggers_;  ///< the statements that create them, until they are there again
};
