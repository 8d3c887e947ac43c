// The ageing of one side of the journal on a day, without a screen: what each counterparty has not paid yet,
// by the age of the charges that payments have not covered, oldest first. The rows are those of the ledgers
// up to that day, in their order; ages are in days, 0 for a charge of the day itself.
//
// Always holds, to the cent and for every line: the buckets, the prepayment and the difference add up to the
// balance. A line has open buckets or a prepayment, never both.
#pragma once

#include "accounts/ledger_rows.h"
#include "platform/dao/database.h"

#include <QDate>
#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace accounts {

/// Hundredths of a yuan.
using Cents = std::int64_t;

/// The amount as the ledgers show it. Raises RuntimeError from ten trillion yuan on, where a number no longer
/// holds its cents.
Cents ToCents(double yuan);
QString CentsText(Cents amount);
/// Nothing for zero.
QString AmountText(Cents amount);

/// 0 to 30 days, then to 60, 90, 180, then above.
inline constexpr std::size_t AgeBuckets = 5;
inline constexpr std::array<int, AgeBuckets - 1> LastDayOfBucket = {30, 60, 90, 180};

/// One counterparty, or the sums over all of them.
struct AgeingLine {
    QString unit;
    Cents balance = 0;  ///< `QM` of its last row up to the day, 0 for null
    std::array<Cents, AgeBuckets> buckets{};
    Cents prepaid = 0;     ///< negative: the payments that no charge has used up
    Cents difference = 0;  ///< what the movements of these rows do not explain of the balance
    Cents overdue = 0;     ///< open charges that are older than so many days
    QDate oldest;          ///< of the oldest open charge; invalid without one
    int oldestAge = 0;     ///< its age

    Cents Open() const;
};

/// A charge that payments have not covered, or not wholly.
struct OpenCharge {
    QString voucher;
    QDate date;
    int age = 0;
    Cents amount = 0;
    Cents open = 0;
};

/// What is analysed.
struct AgeingScope {
    int LB = 0;  ///< 10 the payable side, -10 the receivable side
    QDate day;
    QString unit;  ///< with the wildcards of `like`; blank for all
    int overdueAfter = 30;
};

/// The counterparties that have a balance, a difference or both, the largest balance first, equal ones by
/// name. Names that differ in case alone are one, as in the chains. Raises DatabaseError, and RuntimeError
/// for an amount that is too large.
std::vector<AgeingLine> Age(dao::Database& db, const AgeingScope& scope);
/// Raises RuntimeError for a sum that cannot be held.
AgeingLine SumOf(const std::vector<AgeingLine>& lines);

/// One counterparty with its open charges, oldest first; their open amounts add up to its buckets.
struct UnitAgeing {
    AgeingLine line;
    std::vector<OpenCharge> charges;
};

/// Of exactly this counterparty, all 0 and without charges where it has no rows. `scope.unit` is not read.
/// Raises as Age does, for a single charge that is too large too.
UnitAgeing AgeUnit(dao::Database& db, const AgeingScope& scope, const QString& unit);

}  // namespace accounts
