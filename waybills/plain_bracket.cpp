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

Step WeightStep(double weight, bool document) {
    return {
        .kind = StepKind::Weight, .note = document ? StepNote::Document : StepNote::None, .figure = weight};
}

Step PlainBracketStep(const dao::Recordset& row, const Bracket& chosen, bool document) {
    const bool within = chosen.index == bracket::DocumentFirst || chosen.index == bracket::ParcelFirst;
    return {.kind = StepKind::Bracket,
            .note = within ? StepNote::WithinFirst : StepNote::Continued,
            .from = row.Fields(document ? 0 : 2).Number()};
}

Step PriceStep(double amount, double price, Part part) {
    return {.kind = StepKind::Price,
            .part = part,
            .note = price == 0 ? StepNote::NoPrice : StepNote::None,
            .figure = amount,
            .price = price};
}

Step FirstWeightStep(double price, StepNote note, const Bracket& chosen) {
    return {.kind = StepKind::FirstWeight,
            .part = Part::Carriage,
            .note = note,
            .figure = price,
            .from = static_cast<double>(chosen.firstWeight)};
}

Step ContinuationStep(double amount, double count, double price, const Bracket& chosen) {
    return {.kind = StepKind::Steps,
            .part = Part::Carriage,
            .figure = amount,
            .from = static_cast<double>(chosen.firstWeight),
            .to = static_cast<double>(chosen.stepWeight),
            .count = count,
            .price = price};
}

}  // namespace waybills
