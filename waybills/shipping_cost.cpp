#include "waybills/shipping_cost.h"

#include "app/data_access.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"
#include "waybills/plain_bracket.h"

#include <cmath>
#include <cstdint>
#include <optional>

using namespace Qt::StringLiterals;

namespace waybills {
namespace {

/// From here on field b of the channel is the lower bound of bracket b, field b of the zone is its rate, and
/// field b + FlagOffset of the zone is the flag of that rate.
constexpr std::int16_t FirstHeavy = 5;

constexpr int SegmentCount = 4;      // field of the channel
constexpr int ParcelFirstPrice = 2;  // field of the zone
constexpr int FlagOffset = 10;

/// The fees and the factor as numbers.
struct Extras {
    double fuel;
    double additional;
    double other;
    bool fuelDefaulted;
};

Computed Refuse(Steps* steps, StepKind at, const QString& text) {
    if (steps) steps->push_back({.kind = at, .refusal = text});
    return {.kind = Computed::Kind::Refused, .box = {.text = text, .title = u"提示"_s}};
}

/// No message comes; the words are for who asks for an explanation.
Computed Nothing(Steps* steps, StepKind at, const QString& why) {
    if (steps) steps->push_back({.kind = at, .refusal = why});
    return {.kind = Computed::Kind::Unchanged};
}

std::optional<Computed> CheckCard(const CostInput& input, double weight, Steps* steps) {
    if (text::Trim(input.zone).isEmpty())
        return Refuse(steps, StepKind::Source, u"未输入出货区域，系统无法根据区域的成本价格计算出货成本！"_s);
    if (!(weight > 0)) return Refuse(steps, StepKind::Weight, u"未输入出货重量，系统无法计算出货成本！"_s);
    if (!input.serviceType.startsWith(u'D') && !input.serviceType.startsWith(u'S'))
        return Refuse(steps, StepKind::Weight, u"未输入服务类型，无法计算出货成本！"_s);
    return std::nullopt;
}

Bracket ChooseBracket(const dao::Recordset& channel, double weight, bool document) {
    // There is no default here, unlike in the standard: an empty weight is 0, and a step of 0 counts no
    // continuation.
    Bracket chosen = PlainBracket(channel, weight, document, 0);
    // The last of the channel's own segments that the weight reaches applies, to documents too.
    const int segments = text::ToInteger16(channel.Fields(SegmentCount).Number());
    for (int i = FirstHeavy; i <= segments + SegmentCount; ++i)
        if (channel.Fields(i).Number() <= weight) chosen.index = static_cast<std::int16_t>(i);
    return chosen;
}

Step BracketStep(const dao::Recordset& channel, const Bracket& chosen, bool document) {
    if (chosen.index < FirstHeavy) return PlainBracketStep(channel, chosen, document);
    const int segments = text::ToInteger16(channel.Fields(SegmentCount).Number());
    const bool last = chosen.index == segments + SegmentCount;
    return {.kind = StepKind::Bracket,
            .note = StepNote::Heavy,
            .from = channel.Fields(chosen.index).Number(),
            .to = last ? 0 : channel.Fields(chosen.index + 1).Number() - 1,
            .count = static_cast<double>(chosen.index - FirstHeavy + 1),
            .of = static_cast<double>(segments)};
}

/// How the other fees enter the cost.
enum class OtherFees { Added, NotAdded };

/// The steps behind the carriage.
void EndSteps(Steps* steps, const Extras& extras, OtherFees other, double cost) {
    if (!steps) return;
    steps->push_back({.kind = StepKind::Additional, .part = Part::Fee, .figure = extras.additional});
    if (other == OtherFees::Added)
        steps->push_back({.kind = StepKind::Other, .part = Part::NotMultiplied, .figure = extras.other});
    else if (extras.other != 0)
        steps->push_back(
            {.kind = StepKind::Other, .note = StepNote::OtherFeesExclude, .figure = extras.other});
    steps->push_back({.kind = StepKind::Fuel,
                      .part = Part::Factor,
                      .note = extras.fuelDefaulted ? StepNote::FactorDefaulted : StepNote::None,
                      .figure = extras.fuel});
    steps->push_back({.kind = StepKind::Result, .figure = cost});
}

Computed Amount(double cost) {
    return {.kind = Computed::Kind::Amount, .amount = text::FormatFixed(cost, 2)};
}

Computed FirstWeightCost(const dao::Recordset& zone, const Bracket& chosen, const Extras& extras,
                         Steps* steps) {
    const double price = zone.Fields(chosen.index).Number();
    const double cost = extras.other + extras.additional * extras.fuel + extras.fuel * price;
    if (steps) steps->push_back(FirstWeightStep(price, StepNote::WithinFirst, chosen));
    EndSteps(steps, extras, OtherFees::Added, cost);
    return Amount(cost);
}

/// The other fees are never added here. Other fees exclude the continuation from the cost: the continued
/// price counts only if the fees plus the null test of the price (-1) are 0. Kept on purpose: stored costs
/// and margins depend on it. With fees of 1 and an empty price, the empty price counts, from which no amount
/// can be computed.
Computed ContinuedCost(const dao::Recordset& zone, const Bracket& chosen, double weight, const Extras& extras,
                       Steps* steps) {
    if (chosen.stepWeight == 0)
        return Nothing(steps, StepKind::Steps, u"续重的步长为 0，无法计算，框中金额不变"_s);
    const dao::Field continued = zone.Fields(chosen.index);
    const bool counts = (continued.IsNull() ? -1 : 0) + extras.other == 0;
    if (counts && continued.IsNull()) return Refuse(steps, StepKind::Steps, u"无效使用 Null"_s);
    const double over = weight - static_cast<double>(chosen.firstWeight);
    const double count = std::ceil(over / static_cast<double>(chosen.stepWeight));
    const double price = zone.Fields(chosen.index - 1).Number();
    const double continuation = count * (counts ? continued.Number() : 0);
    const double weightCost = continuation + price;
    const double cost = extras.additional * extras.fuel + extras.fuel * weightCost;
    if (steps) {
        steps->push_back(FirstWeightStep(price, StepNote::None, chosen));
        steps->push_back(ContinuationStep(continuation, count, continued.Number(), chosen));
        if (!counts) steps->back().note = extras.other != 0 ? StepNote::OtherFeesExclude : StepNote::NoPrice;
    }
    EndSteps(steps, extras, OtherFees::NotAdded, cost);
    return Amount(cost);
}

/// A heavy segment's rate, or its first price and rate; and the cost in yuan.
struct Heavy {
    bool flagged;
    double rate;
    double first;  ///< only with the flag
    double rest;   ///< without the flag the whole carriage
    double cost;
};

Heavy HeavyCost(const dao::Recordset& zone, const Bracket& chosen, double weight, const Extras& extras) {
    Heavy heavy{};
    heavy.flagged = zone.Fields(chosen.index + FlagOffset).Number() != 0;
    heavy.rate = zone.Fields(chosen.index).Number();
    heavy.rest = heavy.rate * weight;
    double weightCost = heavy.rest;
    // With the flag set, the parcel's first-weight price applies, to documents as well, and the weight above
    // the first weight is not rounded.
    if (heavy.flagged) {
        heavy.first = zone.Fields(ParcelFirstPrice).Number();
        heavy.rest = heavy.rate * (weight - static_cast<double>(chosen.firstWeight));
        weightCost = heavy.first + heavy.rest;
    }
    heavy.cost = extras.other + extras.fuel * (extras.additional + weightCost);
    return heavy;
}

void AddCarriage(Steps& steps, const Heavy& heavy, const Bracket& chosen) {
    if (!heavy.flagged) {
        steps.push_back(PriceStep(heavy.rest, heavy.rate, Part::Carriage));
        return;
    }
    steps.push_back(FirstWeightStep(heavy.first, StepNote::FirstAndRest, chosen));
    Step rest = ContinuationStep(heavy.rest, 0, heavy.rate, chosen);
    rest.note = StepNote::NotRounded;
    steps.push_back(rest);
}

enum class Outcome { Counts, FallsBack, RemainsZero };

void AddHeavySteps(Steps& steps, const Heavy& heavy, const Bracket& chosen, Outcome outcome) {
    steps.push_back({.kind = StepKind::Way, .note = heavy.flagged ? StepNote::FirstAndRest : StepNote::None});
    if (outcome == Outcome::FallsBack) {
        steps.push_back(PriceStep(0, heavy.rate, Part::None));
        steps.push_back({.kind = StepKind::Fallback});
        return;
    }
    const Step noStepWeight{.kind = StepKind::Fallback, .note = StepNote::NoStepWeight};
    const bool remains = outcome == Outcome::RemainsZero;
    if (remains && heavy.flagged) steps.push_back(noStepWeight);
    AddCarriage(steps, heavy, chosen);
    if (remains && !heavy.flagged) steps.push_back(noStepWeight);
}

Computed PlainCost(const dao::Recordset& zone, const Bracket& chosen, double weight, const Extras& extras,
                   Steps* steps) {
    if (chosen.index == bracket::DocumentFirst || chosen.index == bracket::ParcelFirst)
        return FirstWeightCost(zone, chosen, extras, steps);
    return ContinuedCost(zone, chosen, weight, extras, steps);
}

/// A heavy segment whose cost is 0 falls back to the plain bracket; if that gives no amount, the cost remains
/// 0.
Computed ApplyBracket(const dao::Recordset& zone, Bracket chosen, double weight, const Extras& extras,
                      Steps* steps) {
    if (chosen.index < FirstHeavy) return PlainCost(zone, chosen, weight, extras, steps);
    const Heavy heavy = HeavyCost(zone, chosen, weight, extras);
    const Computed cost = Amount(heavy.cost);
    const Outcome outcome = text::Val(cost.amount) != 0 ? Outcome::Counts
                            : chosen.stepWeight == 0    ? Outcome::RemainsZero
                                                        : Outcome::FallsBack;
    if (steps) AddHeavySteps(*steps, heavy, chosen, outcome);
    if (outcome != Outcome::FallsBack) {
        EndSteps(steps, extras, OtherFees::Added, heavy.cost);
        return cost;
    }
    chosen.index = chosen.fallback;
    return ContinuedCost(zone, chosen, weight, extras, steps);
}

}  // namespace

Computed ComputeShippingCost(dao::Database& db, const CostInput& input, Steps* steps) {
    const QString typed = text::Trim(input.channel);
    if (typed.isEmpty() || typed == u".")
        return Nothing(steps, StepKind::Source, u"没有出货渠道，不计算成本"_s);
    const double weight = text::Val(input.weight);
    if (auto refusal = CheckCard(input, weight, steps)) return *refusal;
    const bool document = input.serviceType.startsWith(u'D');
    if (steps) steps->push_back(WeightStep(weight, document));

    auto channel = db.OpenRecordset(u"select "_s + tariffs::ChannelBracketColumns + u" FROM M01 WHERE F1="_s +
                                    Quoted(CodePart(typed)));
    // The text begins with the caption of the pricing standard. Kept on purpose: the operator sees both texts
    // joined.
    if (channel.Eof())
        return Refuse(steps, StepKind::Bracket,
                      u"本公司报价标准设定您填写的出货渠道编码无效,请从下拉列表中选择！"_s);
    const Bracket chosen = ChooseBracket(channel, weight, document);
    if (steps) steps->push_back(BracketStep(channel, chosen, document));
    channel.Close();

    auto zone = db.OpenRecordset(
        u"select P101,P102,P201,P202,P3,P300,P301,P302,P303,P304,P305,P306,P307,P308,P309,A30,A31,A32,A33,A34,A35,"_s +
        u"A36,A37,A38,A39 FROM M011 WHERE F1="_s + Quoted(CodePart(input.zone)));
    if (zone.Eof()) return Refuse(steps, StepKind::Price, u"指定的区域编码无效！\r无法计算出货成本"_s);
    Extras extras{.fuel = text::Val(input.fuelFactor),
                  .additional = text::Val(input.additionalFees),
                  .other = text::Val(input.otherFees),
                  .fuelDefaulted = false};
    extras.fuelDefaulted = extras.fuel == 0;
    if (extras.fuelDefaulted) extras.fuel = 1;
    Computed cost = ApplyBracket(zone, chosen, weight, extras, steps);
    cost.fuelFactorDefaulted = extras.fuelDefaulted;
    zone.Close();
    return cost;
}

}  // namespace waybills
