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
};

Computed Refuse(const QString& text) {
    return {.kind = Computed::Kind::Refused, .box = {.text = text, .title = u"提示"_s}};
}

std::optional<Computed> CheckCard(const CostInput& input, double weight) {
    if (text::Trim(input.zone).isEmpty())
        return Refuse(u"未输入出货区域，系统无法根据区域的成本价格计算出货成本！"_s);
    if (!(weight > 0)) return Refuse(u"未输入出货重量，系统无法计算出货成本！"_s);
    if (!input.serviceType.startsWith(u'D') && !input.serviceType.startsWith(u'S'))
        return Refuse(u"未输入服务类型，无法计算出货成本！"_s);
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

Computed Amount(double cost) {
    return {.kind = Computed::Kind::Amount, .amount = text::FormatFixed(cost, 2)};
}

Computed FirstWeightCost(const dao::Recordset& zone, const Bracket& chosen, const Extras& extras) {
    const double price = zone.Fields(chosen.index).Number();
    return Amount(extras.other + extras.additional * extras.fuel + extras.fuel * price);
}

/// The other fees are never added here. Other fees exclude the continuation from the cost: the continued
/// price counts only if the fees plus the null test of the price (-1) are 0. Kept on purpose: stored costs
/// and margins depend on it. With fees of 1 and an empty price, the empty price counts, from which no amount
/// can be computed.
Computed ContinuedCost(const dao::Recordset& zone, const Bracket& chosen, double weight,
                       const Extras& extras) {
    if (chosen.stepWeight == 0) return {.kind = Computed::Kind::Unchanged};
    const dao::Field continued = zone.Fields(chosen.index);
    const bool counts = (continued.IsNull() ? -1 : 0) + extras.other == 0;
    if (counts && continued.IsNull()) return Refuse(u"无效使用 Null"_s);
    const double over = weight - static_cast<double>(chosen.firstWeight);
    const double steps = std::ceil(over / static_cast<double>(chosen.stepWeight));
    const double price = zone.Fields(chosen.index - 1).Number();
    const double weightCost = steps * (counts ? continued.Number() : 0) + price;
    return Amount(extras.additional * extras.fuel + extras.fuel * weightCost);
}

Computed HeavyCost(const dao::Recordset& zone, const Bracket& chosen, double weight, const Extras& extras) {
    const double rate = zone.Fields(chosen.index).Number();
    double weightCost = rate * weight;
    // With the flag set, the parcel's first-weight price applies, to documents as well, and the weight above
    // the first weight is not rounded.
    if (zone.Fields(chosen.index + FlagOffset).Number() != 0)
        weightCost = zone.Fields(ParcelFirstPrice).Number() +
                     rate * (weight - static_cast<double>(chosen.firstWeight));
    return Amount(extras.other + extras.fuel * (extras.additional + weightCost));
}

Computed PlainCost(const dao::Recordset& zone, const Bracket& chosen, double weight, const Extras& extras) {
    if (chosen.index == bracket::DocumentFirst || chosen.index == bracket::ParcelFirst)
        return FirstWeightCost(zone, chosen, extras);
    return ContinuedCost(zone, chosen, weight, extras);
}

/// A heavy segment whose cost is 0 falls back to the plain bracket; if that gives no amount, the cost remains
/// 0.
Computed ApplyBracket(const dao::Recordset& zone, Bracket chosen, double weight, const Extras& extras) {
    if (chosen.index < FirstHeavy) return PlainCost(zone, chosen, weight, extras);
    const Computed heavy = HeavyCost(zone, chosen, weight, extras);
    if (text::Val(heavy.amount) != 0) return heavy;
    chosen.index = chosen.fallback;
    const Computed plain = PlainCost(zone, chosen, weight, extras);
    return plain.kind == Computed::Kind::Unchanged ? heavy : plain;
}

}  // namespace

Computed ComputeShippingCost(dao::Database& db, const CostInput& input) {
    const QString typed = text::Trim(input.channel);
    if (typed.isEmpty() || typed == u".") return {.kind = Computed::Kind::Unchanged};
    const double weight = text::Val(input.weight);
    if (auto refusal = CheckCard(input, weight)) return *refusal;

    auto channel = db.OpenRecordset(u"select "_s + tariffs::ChannelBracketColumns + u" FROM M01 WHERE F1="_s +
                                    Quoted(CodePart(typed)));
    // The text begins with the caption of the pricing standard. Kept on purpose: the operator sees both texts
    // joined.
    if (channel.Eof()) return Refuse(u"本公司报价标准设定您填写的出货渠道编码无效,请从下拉列表中选择！"_s);
    const Bracket chosen = ChooseBracket(channel, weight, input.serviceType.startsWith(u'D'));
    channel.Close();

    auto zone = db.OpenRecordset(
        u"select P101,P102,P201,P202,P3,P300,P301,P302,P303,P304,P305,P306,P307,P308,P309,A30,A31,A32,A33,A34,A35,"_s +
        u"A36,A37,A38,A39 FROM M011 WHERE F1="_s + Quoted(CodePart(input.zone)));
    if (zone.Eof()) return Refuse(u"指定的区域编码无效！\r无法计算出货成本"_s);
    Extras extras{.fuel = text::Val(input.fuelFactor),
                  .additional = text::Val(input.additionalFees),
                  .other = text::Val(input.otherFees)};
    const bool defaulted = extras.fuel == 0;
    if (defaulted) extras.fuel = 1;
    Computed cost = ApplyBracket(zone, chosen, weight, extras);
    cost.fuelFactorDefaulted = defaulted;
    zone.Close();
    return cost;
}

}  // namespace waybills
