// The weight brackets of the company's own price list: what a price column is called. A price says nothing
// about weight by itself, its weight is found in the pricing standard (table MS1) by position, and every
// selling price in the system is lined up with these positions. What a channel gets goes by its own brackets.
//
// Always holds: captions are made from the standard as it is now and never stored, so that a changed standard
// shows at the next opening of a form. Weights are in kg; they pass through single precision and are printed
// in general form where no format is named. A lower bound that is null counts as 0. Raises RuntimeError for a
// weight too large for a single.
#pragma once

#include "platform/dao/database.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace tariffs {

/// F1 to F19 and P888 of MS1, in the order in which the captions here and the customer charge read them.
extern const QString StandardStatement;
constexpr int StandardFields = 20;

/// Price brackets count from 0: first weight and continuation of documents, the same of small parcels, then
/// the fifteen heavy segments. Bracket b is field b of the standard.
constexpr int Brackets = 19;
constexpr int FirstHeavy = 4;
/// Kilograms: what a first or continuation weight that is null counts as.
constexpr double WeightIfNull = 0.5;

using Standard = std::array<std::optional<double>, StandardFields>;

/// A channel's brackets of its own: the columns of M01 that hold first weight and step of documents and of
/// small parcels, the number of heavy segments, and their ten lower bounds.
extern const QString ChannelBracketColumns;

/// Nothing when the standard has no row.
std::optional<Standard> ReadStandard(dao::Database& db);

/// For the list prices (A02): the caption as designed with its tail of five characters ("0.5Kg") replaced by
/// the standard's weight, or "21Kg~~45Kg" and "1000Kg以上" for a heavy segment. Presumes exactly that tail,
/// so it may be given a caption as designed and no other.
QString ListPriceCaption(const Standard& standard, int bracket, const QString& designed);

/// For the quotes (A03): "首0.5Kg", "续0.5Kg", ..., "21-45Kg", ..., "1000Kg以上", one for each bracket.
QStringList QuoteCaptions(const Standard& standard);

}  // namespace tariffs
