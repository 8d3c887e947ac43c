// A channel's bill beside our own waybills, line by line.
//
// Always holds: every line of the bill with a number, a weight or a cost, and every released waybill of the
// channel in the period is in one line of the result, an amount of either side once. What could not be read
// is NotRead and never counts as 0.
#pragma once

#include "reconcile/bill_columns.h"

#include <QDate>

#include <array>
#include <vector>

namespace reconcile {

enum class Outcome {
    Equal,       ///< within both tolerances
    Different,   ///< in weight or cost
    OursOnly,    ///< released and not in the bill
    TheirsOnly,  ///< in the bill, but no waybill of the channel in the period
    Twice,       ///< a number that the bill or our waybills have more than once
    NotRead      ///< a cell was not understood
};
inline constexpr std::size_t kOutcomes = 6;
QString WordOf(Outcome outcome);

using Amount = std::optional<Decimal>;  ///< kg or yuan; nullopt: not there

struct Side {
    Amount weight;
    Amount cost;
};

struct Line {
    Outcome outcome = Outcome::Equal;
    int billRow = -1;    ///< of the sheet, from 0; -1: not in the bill
    QString billNumber;  ///< as the bill has it
    QString number;      ///< ours; "" where there is no waybill
    QString forwarding;
    QString date;  ///< yyyy-MM-dd
    Side ours;
    Side theirs;
    QString remark;
};

/// Theirs less ours; nullopt where a side is missing.
Amount Difference(const Amount& ours, const Amount& theirs);

/// Of the amounts that are known.
struct Sum {
    Decimal value = 0;
    bool known = false, unknown = false;  ///< among the amounts

    void Add(const Amount& amount);
    Sum& operator+=(const Sum& other);
    /// nullopt where amounts are there and none is known.
    Amount Value() const { return unknown && !known ? Amount() : Amount(value); }
};

/// A side that is not in a line has no amounts in it, and the difference is the other side's amount.
struct Sums {
    int lines = 0;
    Sum ourWeight, theirWeight;
    Sum ourCost, theirCost;
    Sum costDifference;

    Sums& operator+=(const Sums& other);
};

struct Reconciliation {
    std::vector<Line> lines;  ///< in the order of the bill, then what is ours only, by date and number
    int passedOver = 0;       ///< rows of the bill without number, weight and cost, and those of totals
    int unnumbered = 0;       ///< lines with an amount and without a number, whose amounts no sum has
    bool weight = false, cost = false;  ///< compared

    std::array<Sums, kOutcomes> SumsOf() const;
};

/// A waybill as far as it is compared.
struct Waybill {
    QString number;
    QString forwarding;
    QString date;
    Side side;
    bool released = false;
};

/// The waybills of the channel in the period, both days included. Raises DatabaseError.
std::vector<Waybill> WaybillsOf(dao::Database& db, const QString& channel, QDate from, QDate to);

/// Numbers compare without the blanks around them, case-blind as the data file does, and full-width
/// characters as the usual ones. Columns that are not there are not compared.
Reconciliation Compare(const sheet::Sheet& bill, const BillColumns& columns,
                       const std::vector<Waybill>& ours);

/// Says in the remarks of what is theirs only where we have that number otherwise. Raises DatabaseError.
void RemarkElsewhere(dao::Database& db, Reconciliation& result, bool byForwarding);

}  // namespace reconcile
