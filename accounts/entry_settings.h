// What sets the two entry forms apart, side by side: charges (zhLst) and payments (PayLst), each for the
// payable and the receivable side.
#pragma once

#include "accounts/journal.h"
#include "records/query.h"

#include <QString>
#include <QStringList>

namespace accounts {

/// One kind of row that a form enters.
struct EntrySide {
    LedgerKind kind;
    QString names;        ///< asks for the counterparties, in the order of their list
    QStringList headers;  ///< of the shown and the hidden columns; Sequence has none
};

struct EntrySettings {
    QString form;
    QString caption;  ///< until the menu gives the one of the kind
    QString load;     ///< the oldest thousand rows; the search is the way to later ones
    SearchTable search;
    EntrySide payable;
    EntrySide receivable;
};

/// Columns of the entry grid.
enum EntryColumn { Key, Date, Party, Document, Summary, Amount, Handler, Maker, Remark, Sequence };
inline constexpr int EntryColumns = Sequence + 1;

extern const EntrySettings ChargeEntry;
extern const EntrySettings PaymentEntry;

}  // namespace accounts
