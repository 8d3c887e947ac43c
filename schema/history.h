// The history of the file: every row of the kept tables that is inserted (its key), overwritten or deleted
// (whole) is written to a mirror table by triggers, so that no form can forget it and other tools can still
// write the file.
//
// The mirror of table T is H_T. Its first columns are the group's of HNow (N, At, Operator, Command), Op and
// R, the row number in T; then come the columns of T, without checks and without secrets. Op is
//   I  a row was inserted; only its key is kept
//   D  a row was deleted; as it was
//   U  a row was overwritten; as it was before
//   K  the overwrite before it has changed the key; the new one
// What a row looked like after I or U is what its next D or U holds, or the row itself.
//
// HNow has one row: the number of the last group, and while a group is open its time, operator and form. At
// its end the number is counted once more and operator and form are null, so that what another tool writes is
// no command of ours.
//
// The times of the groups ascend but for steps of the clock. HClock has a row for each group whose time is
// more than an hour before that of the last one, or more than kStepDays behind it: from that number on times
// are Ahead days ahead of a clock that goes on from where it was. That clock counts for the age of a row, the
// times as they were are what is shown and searched for.
//
// An index of each mirror finds the rows of a key but those of inserts, which every save adds.
//
// Always holds: rows are added to a mirror at its end with ascending N and removed from its beginning, so row
// numbers of a mirror are without gaps in between.
#pragma once

#include <QByteArrayList>

#include <vector>

struct sqlite3;

namespace schema {

struct KeptTable {
    QByteArray name;
    QByteArrayList key = {"F1"};   ///< what an insert keeps
    QByteArray insertsIf = {};     ///< condition for an insert to be kept
    QByteArrayList secret = {};    ///< never kept
    QByteArrayList computed = {};  ///< an update of these alone is not kept

    QByteArray Mirror() const { return "H_" + name; }
    QByteArrayList Triggers() const;
};

const std::vector<KeptTable>& KeptTables();
/// Null for a table that is not kept; case-blind.
const KeptTable* FindKept(const QByteArray& table);

/// The columns of a kept table that its mirror has too, in their order.
QByteArrayList KeptColumns(sqlite3* db, const KeptTable& table);

/// The statements that create the triggers of the table, one each.
QByteArrayList TriggerStatements(const KeptTable& table, const QByteArrayList& columns);

/// The statements that create HNow and HClock where they are missing.
QByteArray HNowSql();
QByteArray HClockSql();
/// A longer pause of the company counts as that many days.
constexpr int kStepDays = 31;

/// Creates what the file lacks of the history: HNow and its row, HClock, mirrors, columns, indexes, and
/// triggers, which are created anew where they differ. A file that has everything is only read. A file
/// without HNow of a version that had no history is left alone. Raises RuntimeError.
void CompleteHistory(sqlite3* db);

}  // namespace schema
