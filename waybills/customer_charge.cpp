#include "waybills/customer_charge.h"

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

/// Field b of the standard is the weight of bracket b (tariffs/brackets.h); field b+2 of the quote is its
/// price.
constexpr std::int16_t FirstHeavy = tariffs::FirstHeavy;
constexpr std::int16_t LastHeavy = tariffs::Brackets - 1;

Computed Refuse(Steps* steps, StepKind at, const QString& text, const QString& title = u"提示"_s,
                sys::BoxIcon icon = sys::BoxIcon::Information,
                Computed::Kind kind = Computed::Kind::Refused) {
    if (steps) steps->push_back({.kind = at, .refusal = text});
    return {.kind = kind, .box = {.text = text, .title = title, .icon = icon}};
}

Computed RefuseForStandard(Steps* steps) {
    return Refuse(steps, StepKind::Bracket, u"本公司报价标准设定数据丢失！请重新设置！"_s, u"意外错误"_s,
                  sys::BoxIcon::Warning, Computed::Kind::StandardMissing);
}

/// Checks that the card is complete, before any query to the database.
std::optional<Computed> CheckCard(const ChargeInput& input, double weight, Steps* steps) {
    if (text::Trim(input.customer).isEmpty())
        return Refuse(steps, StepKind::Source, u"未输入发件客户，系统无法根据报价计算发件费用！"_s);
    if (text::Trim(input.zone).isEmpty())
        return Refuse(steps, StepKind::Source, u"未输入目的区域，系统无法根据区域的价格计算发件费用！"_s);
    if (!(weight > 0)) return Refuse(steps, StepKind::Weight, u"未输入收货重量，系统无法计算发件费用！"_s);
    if (!input.serviceType.startsWith(u'D') && !input.serviceType.startsWith(u'S'))
        return Refuse(steps, StepKind::Weight, u"未输入服务类型，无法计算发件费用！"_s);
    return std::nullopt;
}

Bracket ChooseBracket(const dao::Recordset& standard, double weight, bool document) {
    Bracket chosen = PlainBracket(standard, weight, document, tariffs::WeightIfNull);
    if (chosen.stepWeight == 0) chosen.stepWeight = text::ToSingle(tariffs::WeightIfNull);
    // The last bound that the weight reaches applies, to documents too; every weight reaches an empty bound.
    for (std::int16_t i = FirstHeavy; i <= LastHeavy; ++i)
        if (standard.Fields(i).Number() <= weight) chosen.index = i;
    return chosen;
}

/// Continuation steps, always rounded up: the negated quotient is rounded down, then its sign is removed.
double CountSteps(const Bracket& chosen, double weight) {
    const double over = weight - static_cast<double>(chosen.firstWeight);
    return std::abs(std::floor(-over / static_cast<double>(chosen.stepWeight)));
}

Step BracketStep(const dao::Recordset& standard, const Bracket& chosen, bool document) {
    if (chosen.index < FirstHeavy) return PlainBracketStep(standard, chosen, document);
    const auto bound = [&](int i) { return standard.Fields(i).Number(); };
    return {.kind = StepKind::Bracket,
            .note = StepNote::Heavy,
            .from = bound(chosen.index),
            .to = chosen.index < LastHeavy ? bound(chosen.index + 1) - 1 : 0,
            .count = static_cast<double>(chosen.index - FirstHeavy + 1)};
}

QString Result(double amount, Steps* steps) {
    if (steps) steps->push_back({.kind = StepKind::Result, .figure = amount});
    return text::GeneralText(amount);
}

QString PlainCharge(const dao::Recordset& quote, const Bracket& chosen, double weight, Steps* steps) {
    const auto price = [&](int position) { return quote.Fields(position).Number(); };
    const std::int16_t index = chosen.index;
    if (index == bracket::DocumentFirst || index == bracket::ParcelFirst) {
        const double first = price(index + 2);
        if (steps) steps->push_back(FirstWeightStep(first, StepNote::WithinFirst, chosen));
        return Result(first, steps);
    }
    const double count = CountSteps(chosen, weight);
    const double first = price(index + 1);
    const double continued = count * price(index + 2);
    if (steps) {
        steps->push_back(FirstWeightStep(first, StepNote::None, chosen));
        steps->push_back(ContinuationStep(continued, count, price(index + 2), chosen));
    }
    return Result(continued + first, steps);
}

QString ApplyBracket(const dao::Recordset& quote, Bracket chosen, double weight, Steps* steps) {
    if (chosen.index < FirstHeavy) return PlainCharge(quote, chosen, weight, steps);
    const double price = quote.Fields(chosen.index + 2).Number();
    const double charge = price * weight;
    const bool priced = text::Val(text::GeneralText(charge)) != 0;
    if (steps) steps->push_back(PriceStep(charge, price, priced ? Part::Carriage : Part::None));
    if (priced) return Result(charge, steps);
    // The customer has no price for that segment, so the fallback applies.
    if (steps) steps->push_back({.kind = StepKind::Fallback});
    chosen.index = chosen.fallback;
    return PlainCharge(quote, chosen, weight, steps);
}

}  // namespace

Computed ComputeCustomerCharge(dao::Database& db, const ChargeInput& input, Steps* steps) {
    const double weight = text::Val(input.weight);
    if (auto refusal = CheckCard(input, weight, steps)) return *refusal;
    const bool document = input.serviceType.startsWith(u'D');
    if (steps) steps->push_back(WeightStep(weight, document));

    auto standard = db.OpenRecordset(tariffs::StandardStatement);
    if (standard.Eof()) return RefuseForStandard(steps);
    const Bracket chosen = ChooseBracket(standard, weight, document);
    if (steps) steps->push_back(BracketStep(standard, chosen, document));
    standard.Close();

    auto quote = db.OpenRecordset(u"select * FROM M031 WHERE F0="_s + Quoted(CodePart(input.customer)) +
                                  u" and F1="_s + Quoted(CodePart(input.zone)));
    if (quote.Eof())
        return Refuse(steps, StepKind::Price,
                      u"指定的发件客户编码无效，或是指定的区域编码无效！\r无法计算发件费用"_s);
    Computed charge{.kind = Computed::Kind::Amount, .amount = ApplyBracket(quote, chosen, weight, steps)};
    quote.Close();
    return charge;
}

QString ChargeTotal(const QString& additional, const QString& basic, const QString& fuelFactor,
                    const QString& otherFees) {
    const double charged = (text::Val(additional) + text::Val(basic)) * text::Val(fuelFactor);
    return text::FormatFixed(charged + text::Val(otherFees), 2);
}

}  // namespace waybills
