// What the price columns of a customer's quotes are called. A price says nothing about weight by itself: the
// pricing standard (MS1) says it by position, F1 to F19 for the columns 2 to 20.
//
// Always holds: captions are made from the standard as it is now and never stored. Weights are in kg and pass
// through single precision.
#pragma once

#include "platform/dao/database.h"

#include <QStringList>

#include <array>
#include <optional>

namespace tariffs {

constexpr int Brackets = 19;

/// F1 to F19 of the pricing standard, kg: first and continuation weight of documents and of small parcels,
/// then the lower bounds of the fifteen heavy segments.
using Standard = std::array<std::optional<double>, Brackets>;

/// Nothing when the standard has no row.
std::optional<Standard> ReadStandard(dao::Database& db);

/// "首0.5Kg", "续0.5Kg", ..., "21-45Kg", ..., "1000Kg以上", one for each bracket. A first or continuation
/// weight that is null counts as 0.5, a bound that is null as 0.
QStringList QuoteCaptions(const Standard& standard);

}  // namespace tariffs
