// The journal of receivables and payables, table TB1, without a screen: where a row stands (`SN`, ascending
// with the date, never renumbered), what it does to its counterparty's balance (`QC` before it, `QM` after
// it), and the three ways in which a row comes, changes and goes. Amounts are in yuan, dates count by
// calendar day.
//
// Always holds: a chain is all rows of one counterparty's name, receivable and payable alike; a row with `SN`
// 0 is out of every chain. Nothing here mends a failure: DatabaseError goes up, what was executed stays. Only
// the counter, the newest date and an edited row's `SN` are asked as forms ask (app/data_access.h): a
// question that fails has no answer.
#pragma once

#include "platform/dao/database.h"

#include <QDate>
#include <QString>

namespace accounts {

/// `LB`: the sign is the side, the magnitude tells charge (9) from payment (10).
enum class LedgerKind { Receivable = -9, Payable = 9, Payment = 10, Receipt = -10 };

/// What goes with a kind of row.
struct LedgerKindInfo {
    LedgerKind kind;
    QString businessType;  ///< `S2`
    QString keyPrefix;  ///< of `F1`, before a waybill's number; a proposal only where a key is typed by hand
    QString amountField;  ///< `YF` raises the balance, `FK` lowers it
    QString release;      ///< takes a row that is being edited out of every chain; its `SN` follows
};
const LedgerKindInfo& InfoFor(LedgerKind kind);

/// A row as it is written. `F6`, the second operator mark, always takes the same name as `F5`.
struct LedgerEntry {
    LedgerKind kind = LedgerKind::Receivable;
    double sequence = 0;   ///< `SN`
    QString key;           ///< `F1`
    QString date;          ///< `F2`, as typed
    QString counterparty;  ///< `F3`, by name
    double amount = 0;     ///< `YF` or `FK` by the kind; negative amounts work the other way
    QString handler;       ///< `S1`
    QString maker;         ///< `F5` and `F6`
    QString remark;        ///< `F10`
};

/// Where a date lies, seen from the newest one in the journal.
enum class EntryDate {
    Newer = 0,    ///< after it, or the journal holds no readable date
    SameDay = 1,  ///< the same calendar day
    Older = 2     ///< before it
};

/// May note the date in `SysInfo` row 9999, which nothing reads.
EntryDate ClassifyEntryDate(dao::Database& db, QDate date);

/// The `SN` at which a row of that date belongs. The searches skip the row whose `F1` is `key`; `present` is
/// the row's `SN`, 0 for a new one. May set the counter (`SysInfo` row 100), lower too; may show the warning
/// that the gap between two days has run out, after which the row gets the same `SN` as the one below it. A
/// statement holds 15 digits of an `SN`, so two that were stored may be equal before the warning comes.
double SlotSequenceForDate(dao::Database& db, QDate date, const QString& key, double present);

/// Rewrites `QC` and `QM` of the counterparty's rows from that `SN` on; 0 rebuilds the whole chain. Raises
/// RuntimeError for a row whose amount is null.
void RollBalanceChain(dao::Database& db, double start, const QString& counterparty);

/// How often a new row's allocation reads the counter. The waybill's post also reads it right after the first
/// step, which changes nothing.
enum class CounterReading { WhenNeeded, AlsoAfterFirstStep };

/// Adding, first half: moves the counter and gives the new row's `SN`, 0 if there is no counter. The key is
/// the new row's own; the waybill's post hands the bare number, which matches no row.
double AllocateSequence(dao::Database& db, QDate date, const QString& key,
                        CounterReading reads = CounterReading::WhenNeeded);

/// Adding, second half: inserts the row and rolls its chain from there.
void PostEntry(dao::Database& db, const LedgerEntry& entry);

// Editing is the entry forms' way; a waybill that is edited takes its rows away and posts them anew.

/// Editing, first half: takes the row with that key, and whatever else has its `SN`, out of its chain, closes
/// the hole and gives the `SN` for its new date. `present` and `counterparty` are those before the edit.
/// Where the row was the first of its chain, its own old `QM` opens the hole's successor; the second half
/// mends that only if the row stays in the chain and before it.
double MoveSequence(dao::Database& db, LedgerKind kind, const QString& key, double present,
                    const QString& counterparty, QDate date);

/// Editing, second half: writes the entry over the row with that key and rolls its chain. `LB`, `S2`, `F5`
/// and `F6` stay as they are.
void UpdateEntry(dao::Database& db, const QString& key, const LedgerEntry& entry);

/// Takes a row out and rolls nothing: later balances of the chain stay stale until the next post at or before
/// that place, or a refresh.
void DeleteEntry(dao::Database& db, const QString& key);
/// The same for a waybill's receivable and payable row.
void DeleteWaybillEntries(dao::Database& db, const QString& waybill);

}  // namespace accounts
