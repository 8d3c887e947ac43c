#include "waybills/plain_bracket.h"

#include "platform/text/numbers.h"

namespace waybills {
namespace {

float Weight(const dao::Field& field, double ifNull) {
    return text::ToSingle(field.IsNull() ? ifNull : field.Number());
}

}  // namespace

Bracket PlainBracket(const dao::Recordset& row, double weight, bool document, double ifNull) {
    Bracket chosen{};
    // A weight equal to the first weight is within it.
    if (document) {
        const bool within = !(weight > row.Fields(0).Number());
        chosen.index = within ? bracket::DocumentFirst : bracket::DocumentContinued;
        chosen.fallback = bracket::DocumentContinued;
    } else {
        const bool within = !(weight > row.Fields(2).Number());
        chosen.index = within ? bracket::ParcelFirst : bracket::ParcelContinued;
        chosen.fallback = bracket::ParcelContinued;
    }
    // Half the index is used, so a parcel reads the document's step as its first weight and its own first
    // weight as its step, unlike the comparison above. Kept on purpose: the operator sees charges and costs
    // computed this way.
    const int k = chosen.index / 2;
    chosen.firstWeight = Weight(row.Fields(k), ifNull);
    chosen.stepWeight = Weight(row.Fields(k + 1), ifNull);
    return chosen;
}

}  // namespace waybills
