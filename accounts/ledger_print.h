// The prints of the two ledgers: each fills its work table from the grid and runs its report.
#pragma once

#include "platform/controls/flex_grid.h"

#include <QDate>

namespace accounts {

/// What is printed: the lines of the grid as they are, under the period that the date boxes show now.
struct LedgerPrint {
    const controls::FlexGrid& grid;
    int LB = 0;  ///< 10 the payable side, -10 the receivable side
    QDate from;
    QDate to;
};

/// All lines but the last total into `Plist`, then kuanmx.rpt. Nothing is escaped: a cell with an apostrophe
/// raises DatabaseError. Raises what RunReport raises.
void PrintDetail(const LedgerPrint& print);
/// All lines and the sums into `PrTA1`, then kuanhz.rpt, which gets the grid's headers. Raises like the
/// above.
void PrintSummary(const LedgerPrint& print);

}  // namespace accounts
