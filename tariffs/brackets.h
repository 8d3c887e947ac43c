// The weight brackets of the company's own price list: the caption of each price column. A price does not
// contain a weight; its weight is in the pricing standard (table MS1) at the same position, and every selling
// price in the system uses these positions. The costs of a channel use the channel's own brackets.
//
// Always holds: captions are built from the current standard and never stored, so a changed standard shows
// the next time a form is opened. Weights are in kg; they pass through single precision and are printed in
// general form where no format is given. A lower bound that is null counts as 0. Raises RuntimeError for a
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
/// the fifteen heavy segments. Field b of the standard is the weight of bracket b.
constexpr int Brackets = 19;
constexpr int FirstHeavy = 4;
/// The value in kg of a first or continuation weight that is null.
constexpr double WeightIfNull = 0.5;

using Standard = std::array<std::optional<double>, StandardFields>;

/// The brackets of a channel: the columns of M01 with first weight and step of documents and of small
/// parcels, the number of heavy segments, and their ten lower bounds.
extern const QString ChannelBracketColumns;

/// nullopt if the standard has no row.
std::optional<Standard> ReadStandard(dao::Database& db);

/// For the list prices (A02): the designed caption with its last five characters ("0.5Kg") replaced by the
/// standard's weight, or "21Kg~~45Kg" and "1000Kg以上" for a heavy segment. Requires exactly these last five
/// characters, so it accepts no caption other than a designed one.
QString ListPriceCaption(const Standard& standard, int bracket, const QString& designed);

/// For the quotes (A03): "首0.5Kg", "续0.5Kg", ..., "21-45Kg", ..., "1000Kg以上", one for each bracket.
QStringList QuoteCaptions(const Standard& standard);

}  // namespace tariffs
