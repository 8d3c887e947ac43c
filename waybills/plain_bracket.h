// What the customer charge and the shipping cost have in common: the four weight brackets of documents and
// small parcels, and what their steps count with. The heavy segments behind them are each computation's own.
// Weights are in kg.
#pragma once

#include "platform/dao/recordset.h"

#include <cstdint>

namespace waybills {

/// Which price applies, by position.
namespace bracket {
constexpr std::int16_t DocumentFirst = 0;
constexpr std::int16_t DocumentContinued = 1;
constexpr std::int16_t ParcelFirst = 2;
constexpr std::int16_t ParcelContinued = 3;
}  // namespace bracket

/// What a set of brackets says about one weight.
struct Bracket {
    std::int16_t index;     ///< `BracketIndex`
    std::int16_t fallback;  ///< where a heavy segment without a price falls back to
    float firstWeight;      ///< `FirstWeight`, kg; single precision decides the count of steps
    float stepWeight;       ///< `StepWeight`, kg; may be 0
};

/// Fields 0 to 3 of the row are first weight and step of documents, then of small parcels; a weight that is
/// null counts as `ifNull`. Raises RuntimeError for one too large for a single.
Bracket PlainBracket(const dao::Recordset& row, double weight, bool document, double ifNull);

}  // namespace waybills
