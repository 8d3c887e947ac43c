// Which columns of a channel's bill hold the numbers, weights and costs: chosen once, kept for the channel in
// table M012, and found by their headings where nothing is kept.
#pragma once

#include "platform/dao/database.h"
#include "platform/sheet/sheet.h"
#include "reconcile/decimals.h"

namespace reconcile {

struct BillColumns {
    bool byForwarding = false;  ///< the bill names the forwarding number and not ours
    int number = -1;            ///< columns count from 0; -1: none
    int weight = -1;
    int cost = -1;
    int firstRow = 1;  ///< with a line of the bill; the one before holds the headings
    Decimal weightTolerance = 0;
    Decimal costTolerance = 0;

    bool kept = false;  ///< for the channel

    bool operator==(const BillColumns&) const = default;
};

/// The headings are the texts of the row before the first line.
QString HeadingOf(const sheet::Sheet& bill, int firstRow, int column);

/// By the words of the headings among the first rows; without any of them the first row and no columns.
BillColumns Guess(const sheet::Sheet& bill);

/// What is kept for the channel, as far as this bill has it: a column whose heading has moved is looked for
/// by it. Guesses the rest. Raises DatabaseError.
BillColumns ColumnsFor(dao::Database& db, const QString& channel, const sheet::Sheet& bill);

/// Replaces what is kept. Raises DatabaseError.
void Keep(dao::Database& db, const QString& channel, const BillColumns& columns, const sheet::Sheet& bill);

}  // namespace reconcile
