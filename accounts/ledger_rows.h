// The lines of the two ledgers, without a screen: what is asked of the journal, and how its rows become lines
// with totals. Amounts are in yuan and shown with two decimals. Nothing is computed that the journal does not
// hold but the sums: opening and closing balances are the stored ones.
//
// Always holds: rows come in the order of counterparty and `SN`; a counterparty without a row in the period
// does not appear, even with an open balance.
#pragma once

#include "platform/dao/database.h"

#include <QDate>
#include <QString>

namespace accounts {

/// Columns of both ledgers. Name2, Blank1 and Blank2 are always empty.
enum LedgerColumn { Unit, Name2, Voucher, Business, Blank1, Blank2, Opening, Raised, Lowered, Closing };
inline constexpr int LedgerColumns = Closing + 1;

/// What a ledger shows.
struct LedgerScope {
    int LB = 0;    ///< 10 the payable side, -10 the receivable side
    QDate from;    ///< invalid: from the journal's beginning
    QDate to;      ///< the day itself included
    QString unit;  ///< the counterparty's name, with the wildcards of `like`; blank for all
};

/// A name as a pattern of `like` that matches this name, whatever its case. It holds no apostrophe: where the
/// name has one, names with another character there match too.
QString PatternOf(const QString& unit);

/// The two derive the side from LB in different ways; required by the business.
QString DetailStatement(const LedgerScope& scope);
QString SummaryStatement(const LedgerScope& scope);
/// Those fields of the rows of the summary ledger, in its order.
QString LedgerRowsStatement(const QString& fields, const LedgerScope& scope);

/// Where lines go, one after the other from 0.
class LedgerLines {
  public:
    virtual ~LedgerLines() = default;
    virtual void Cell(int line, int col, QString text) = 0;
    /// The line sums up those above it.
    virtual void Total(int line) = 0;
};

/// A line for each row, a total behind each counterparty.
void BuildDetail(dao::Recordset& rows, LedgerLines& lines);
/// A line for each counterparty, then the sums over all of them, which add opening and closing balances as
/// well as movements. The set must not be empty.
void BuildSummary(dao::Recordset& rows, LedgerLines& lines);

}  // namespace accounts
