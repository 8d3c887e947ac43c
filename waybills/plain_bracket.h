// Shared by the customer charge and the shipping cost: the four weight brackets of documents and small
// parcels, and the weights from which their steps are counted. Each computation has its own heavy segments
// after them. Weights are in kg.
#pragma once

#include "platform/dao/recordset.h"
#include "waybills/price_steps.h"

#include <cstdint>

namespace waybills {

/// The position of the price that applies.
namespace bracket {
constexpr std::int16_t DocumentFirst = 0;
constexpr std::int16_t DocumentContinued = 1;
constexpr std::int16_t ParcelFirst = 2;
constexpr std::int16_t ParcelContinued = 3;
}  // namespace bracket

/// The bracket of one weight in a set of brackets.
struct Bracket {
    std::int16_t index;     ///< of the price that applies, one of `bracket`
    std::int16_t fallback;  ///< the bracket to use if a heavy segment has no price
    float firstWeight;      ///< kg; single precision determines the number of steps
    float stepWeight;       ///< kg; may be 0
};

/// Fields 0 to 3 of the row are first weight and step of documents, then of small parcels; a weight that is
/// null counts as `ifNull`. Raises RuntimeError for a weight too large for a single.
Bracket PlainBracket(const dao::Recordset& row, double weight, bool document, double ifNull);

// The steps that both computations have.
Step WeightStep(double weight, bool document);
/// A chosen plain bracket, with the first weight that the weight was compared with.
Step PlainBracketStep(const dao::Recordset& row, const Bracket& chosen, bool document);
/// The rate of a heavy segment; where the fallback applies instead, it is no part of the amount.
Step PriceStep(double amount, double price, Part part);
Step FirstWeightStep(double price, StepNote note, const Bracket& chosen);
Step ContinuationStep(double amount, double count, double price, const Bracket& chosen);

}  // namespace waybills
