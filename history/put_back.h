// 恢复: one command's change of one record is undone, and with it the later changes of the same record; with
// the record's family and, of a waybill, the journal rows that the command took and the steps of its amounts.
// Rows are copied from the mirrors inside the engine, so that nulls and
// apostrophes are what they were; journal rows get a new place by the protocol of adding.
//
// Always holds: a refused entry changes no record; everything is one commit group, which the history keeps
// like any other.
#pragma once

#include "history/entries.h"

namespace history {

/// Why the entry cannot be put back now; "" where it can. Asks the operator's rights.
QString Refusal(dao::Database& db, const Entry& entry);

/// What it asks before.
QString Question(dao::Database& db, const Entry& entry);

/// Whether putting back adds an operator's account, which needs a new password.
bool NeedsPassword(dao::Database& db, const Entry& entry);
/// Why no account can have this password; "" where one can.
QString PasswordRefusal(const QString& password);

/// Gives why the entry could not be put back after all; "" where it was. `password` is an operator's new one;
/// one that PasswordRefusal refuses raises RuntimeError before anything is written. Raises DatabaseError.
[[nodiscard]] QString PutBack(dao::Database& db, const Entry& entry, const QString& password = {});

}  // namespace history
