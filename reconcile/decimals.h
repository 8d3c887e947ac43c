// Weights and amounts as exact decimals, read from the texts of a bill.
#pragma once

#include <QString>

#include <optional>

namespace reconcile {

/// In units of 1/10000: of a kg or of a yuan.
using Decimal = qint64;

/// Understands "1,234.50", "¥12", "１２．５元", "(3.00)", "12-", "0.5 kg"; below 100,000,000, so that the sum
/// of as many as a sheet has rows is exact; digits behind the fourth are rounded half away from zero. nullopt
/// for anything else, an empty text, blanks between digits and raised digits too.
std::optional<Decimal> ReadDecimal(const QString& text);

/// At least two digits behind the point, more only where they are not zero: "12.50", "0.125".
QString DecimalText(Decimal value);

}  // namespace reconcile
