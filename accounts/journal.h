// The journal of receivables and payables, table TB1, without a screen: the position of a row (`SN`,
// ascending with the date, never renumbered), its effect on its counterparty's balance (`QC` before it, `QM`
// after it), and how a row is added, edited and deleted. Amounts are in yuan, dates count by calendar day.
//
// Always holds: a chain is all rows of one counterparty's name, receivable and payable alike; a row with `SN`
// 0 belongs to no chain. This module handles no failure: DatabaseError propagates, and statements already
// executed keep their effect. Only the counter, the newest date and an edited row's `SN` are read as forms
// read (app/data_access.h): a query that fails yields no value.
#pragma once

#include "platform/dao/database.h"

#include <QDate>
#include <QString>

#include <array>

namespace accounts {

/// `LB`: the sign is the side, the magnitude distinguishes charge (9) from payment (10).
enum class LedgerKind { Receivable = -9, Payable = 9, Payment = 10, Receipt = -10 };

/// The constants of a kind of row.
struct LedgerKindInfo {
    LedgerKind kind;
    QString businessType;  ///< `S2`
    QString keyPrefix;  ///< of `F1`, before a waybill's number; a proposal only where a key is typed by hand
    QString amountField;  ///< `YF` raises the balance, `FK` lowers it
    QString release;      ///< removes a row that is being edited from every chain; its `SN` is appended
};
const LedgerKindInfo& InfoFor(LedgerKind kind);

/// The keys of a waybill's journal rows: the payable's, then the receivable's.
std::array<QString, 2> WaybillKeys(const QString& waybill);
/// What the `SN` of a waybill's payable is above its receivable's.
inline constexpr double PayableAfterReceivable = 1;

/// A row as it is written. `F6`, the second operator mark, always has the same name as `F5`.
struct LedgerEntry {
    LedgerKind kind = LedgerKind::Receivable;
    double sequence = 0;   ///< `SN`
    QString key;           ///< `F1`
    QString date;          ///< `F2`, as typed
    QString counterparty;  ///< `F3`, by name
    double amount = 0;     ///< `YF` or `FK` by the kind; a negative amount has the opposite effect
    QString handler;       ///< `S1`
    QString maker;         ///< `F5` and `F6`
    QString remark;        ///< `F10`
};

/// A date relative to the newest one in the journal.
enum class EntryDate {
    Newer = 0,    ///< after it, or the journal holds no readable date
    SameDay = 1,  ///< the same calendar day
    Older = 2     ///< before it
};

/// May write the date to `SysInfo` row 9999, which nothing reads.
EntryDate ClassifyEntryDate(dao::Database& db, QDate date);

/// The `SN` at which a row of that date belongs. The queries skip the row whose `F1` is `key`; `present` is
/// the row's `SN`, 0 for a new one. May set the counter (`SysInfo` row 100), also to a lower value. May show
/// the warning that the gap between two days is used up; the row then gets the same `SN` as the one below it.
/// A statement holds 15 digits of an `SN`, so two stored values may be equal before the warning is shown.
double SlotSequenceForDate(dao::Database& db, QDate date, const QString& key, double present);

/// Rewrites `QC` and `QM` of the counterparty's rows from that `SN` on; 0 rebuilds the whole chain. Raises
/// RuntimeError for a row whose amount is null.
void RollBalanceChain(dao::Database& db, double start, const QString& counterparty);

/// How often the allocation of a new row reads the counter. Posting a waybill also reads it right after the
/// first step, which changes nothing.
enum class CounterReading { WhenNeeded, AlsoAfterFirstStep };

/// Adding, first half: advances the counter and returns the new row's `SN`, 0 if there is no counter. The key
/// is the new row's own; posting a waybill passes the bare number, which matches no row.
double AllocateSequence(dao::Database& db, QDate date, const QString& key,
                        CounterReading reads = CounterReading::WhenNeeded);

/// Adding, second half: inserts the row and rolls its chain from there.
void PostEntry(dao::Database& db, const LedgerEntry& entry);

// Only the entry forms edit a row; editing a waybill deletes its rows and posts them again.

/// Editing, first half: removes the row with that key, and any other row with its `SN`, from its chain,
/// closes the gap and returns the `SN` for its new date. `present` and `counterparty` are those before the
/// edit. If the row was the first of its chain, its own old `QM` becomes the opening balance of the row after
/// the gap; the second half corrects that only if the row remains in the chain and before it.
double MoveSequence(dao::Database& db, LedgerKind kind, const QString& key, double present,
                    const QString& counterparty, QDate date);

/// Editing, second half: overwrites the row with that key with the entry and rolls its chain. `LB`, `S2`,
/// `F5` and `F6` are unchanged.
void UpdateEntry(dao::Database& db, const QString& key, const LedgerEntry& entry);

/// Deletes a row without rolling its chain: later balances of the chain remain stale until the next post at
/// or before that position, or a refresh.
void DeleteEntry(dao::Database& db, const QString& key);
/// The same for a waybill's receivable and payable row.
void DeleteWaybillEntries(dao::Database& db, const QString& waybill);

}  // namespace accounts
