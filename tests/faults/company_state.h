// What a company's data file holds, read past the program by the engine's own calls: for comparing it with
// what it should hold, and for finding contradictions between the waybills and the journal.
#pragma once

#include <QString>
#include <QStringList>

namespace tests {

/// The rows of all tables but those of the history, one line each, sorted within their table.
QStringList StateOf(const QString& file);

/// Everything that cannot be right whatever was saved: a damaged file, a waybill without its journal rows or
/// the other way round, amounts and dates that differ, balances that do not add up, a counter below the
/// journal. Empty when all is well. The chains of steady counterparties, of which no row was ever taken away,
/// must be linked row by row.
QStringList ContradictionsIn(const QString& file, const QStringList& steady);

/// Copies a data file with what a process that died here would leave beside it: its log, but not its shared
/// memory. `to` is a folder; gives the copy's path.
QString CopyAsLeft(const QString& file, const QString& to);

}  // namespace tests
