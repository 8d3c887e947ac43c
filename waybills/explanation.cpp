#include "waybills/explanation.h"

#include "app/data_access.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace waybills {
namespace {

using Look = ExplainedRow::Look;

const QString TotalCaption = u"总计费用"_s;

/// What differs between the two sides in words and boxes.
struct SideWords {
    QString title;
    QString prices;
    QString source, weight, noPrice, zero;
    Box amountBox, partyBox, zoneBox, weightBox;
};

const SideWords& WordsOf(Side side) {
    static const SideWords sides[] = {
        {u"基本费用"_s, u"客户报价"_s, u"报价"_s, u"收重"_s, u"这一段没有报价"_s, u"单价为 0"_s, BasicCharge,
         CustomerCode, ServiceZoneCode, ReceivedWeight},
        {u"出货成本"_s, u"渠道成本"_s, u"渠道"_s, u"出重"_s, u"这一段没有成本价"_s, u"这一段算出为 0"_s,
         ShippingCost, ChannelCode, ChannelZoneCode, ShippedWeight}};
    return sides[static_cast<std::size_t>(side)];
}

QString Money(double value) {
    const QString fixed = text::FormatFixed(value, 2);
    return text::Val(fixed) == text::Val(text::GeneralText(value)) ? fixed : text::GeneralText(value);
}

/// A first weight or a step weight is a single.
QString SingleKg(double value) {
    return text::GeneralText(text::ToSingle(value));
}

QString Service(const Priced& priced) {
    const Step* weight = priced.Find(StepKind::Weight);
    return weight && weight->note == StepNote::Document ? u"文件"_s : u"小包裹"_s;
}

double WeightOf(const Priced& priced) {
    const Step* weight = priced.Find(StepKind::Weight);
    return weight ? weight->figure : 0;
}

QString BracketWords(Side side, const Step& step, const Priced& priced) {
    const QString from = text::GeneralText(step.from);
    if (step.note == StepNote::WithinFirst)
        return Service(priced) + u"，不超过首重 "_s + from + u" 公斤：首重价格"_s;
    if (step.note == StepNote::Continued)
        return Service(priced) + u"，超过首重 "_s + from + u" 公斤：首重 + 续重"_s;
    const QString range =
        step.to > step.from ? from + u'-' + text::GeneralText(step.to) + u"Kg"_s : from + u"Kg以上"_s;
    const QString segment = range + u"，第 "_s + text::GeneralText(step.count) + u" 段"_s;
    if (side == Side::Charge) return u"重包裹 "_s + segment + u"：全部重量 × 单价"_s;
    return segment + u"，这个渠道共 "_s + text::GeneralText(step.of) + u" 段"_s;
}

QString FallbackWords(Side side, const Step& step, const Priced& priced) {
    const QString zero = WordsOf(side).zero;
    if (step.note == StepNote::NoStepWeight)
        return zero + u"，"_s + Service(priced) + u"的续重步长也是 0，成本仍为 0"_s;
    return zero + u"，改用"_s + Service(priced) + u"的首重加续重，仍按全部重量"_s;
}

QString FirstWeightWords(const Step& step, const Priced& priced) {
    if (step.note == StepNote::WithinFirst) return u"首重以内"_s;
    const QString first = u"首 "_s + SingleKg(step.from) + u" 公斤"_s;
    const bool others = step.note == StepNote::FirstAndRest && Service(priced) == u"文件";
    return others ? first + u"，用小包裹的首重价格"_s : first;
}

QString StepsWords(Side side, const Step& step, const Priced& priced) {
    if (step.note == StepNote::OtherFeesExclude) return u"其它费用不为 0，续重不计"_s;
    if (step.note == StepNote::NoPrice) return u"续重没有成本价，不计"_s;
    const double weight = WeightOf(priced);
    const QString over = u'(' + text::GeneralText(weight) + u" − "_s + SingleKg(step.from) + u')';
    if (step.note == StepNote::NotRounded) return over + u" × "_s + Money(step.price);
    const QString product = text::GeneralText(step.count) + u" × "_s + Money(step.price);
    if (weight < step.from)
        return (side == Side::Charge ? u"重量低于首重，所差的整步也计："_s
                                     : u"重量低于首重，所差的整步减去："_s) +
               product;
    const QString quotient =
        text::GeneralText(text::Val(text::FormatFixed((weight - step.from) / step.to, 4)));
    return over + u" ÷ "_s + SingleKg(step.to) + u" = "_s + quotient + u"，不足一步进一步："_s + product;
}

QString PriceWords(Side side, const Step& step, const Priced& priced) {
    if (step.note == StepNote::NoPrice) return WordsOf(side).noPrice;
    if (step.part == Part::None) return u"每公斤 "_s + Money(step.price);
    return text::GeneralText(WeightOf(priced)) + u" × "_s + Money(step.price);
}

/// "(96.00 + 849.20 + 20.00) × 燃油费率 1.12 + 0.00"
QString CostSum(const Priced& priced) {
    QStringList multiplied;
    QString factor, rest;
    for (const Step& step : priced.steps) {
        if (step.part == Part::Carriage || step.part == Part::Fee) multiplied += Money(step.figure);
        if (step.part == Part::NotMultiplied) rest = u" + "_s + Money(step.figure);
        if (step.part != Part::Factor) continue;
        factor = u" × 燃油费率 "_s + text::GeneralText(step.figure);
        if (step.note == StepNote::FactorDefaulted) factor += u"（未填）"_s;
    }
    return u'(' + multiplied.join(u" + "_s) + u')' + factor + rest;
}

QString ResultWords(Side side, const Priced& priced) {
    if (side == Side::Cost) return CostSum(priced);
    if (priced.Find(StepKind::Steps)) return u"首重 + 续重"_s;
    return priced.Find(StepKind::FirstWeight) ? u"首重价格"_s : u"全部重量 × 单价"_s;
}

ExplainedRow WeightRow(const SideWords& words, const Step& step) {
    const QString weight = text::GeneralText(step.figure);
    const std::size_t service = step.note == StepNote::Document ? 0 : 1;
    return {words.weight, weight + u" 公斤，"_s + ServiceTypes[service].shown, weight};
}

ExplainedRow PriceRow(Side side, const Step& step, const Priced& priced, const QString& figure) {
    ExplainedRow row{u"单价"_s, PriceWords(side, step, priced), {}};
    if (step.note == StepNote::NoPrice)
        row.figure = u"0"_s;
    else if (step.part != Part::None)
        row.figure = figure;
    return row;
}

ExplainedRow RowOf(Side side, const Step& step, const Priced& priced) {
    const SideWords& words = WordsOf(side);
    const QString figure = text::FormatFixed(step.figure, 2);
    const bool flagged = step.note == StepNote::FirstAndRest;
    const bool excludes = step.note == StepNote::OtherFeesExclude;
    switch (step.kind) {
        case StepKind::Source:
            return {words.source, {}, {}};
        case StepKind::Weight:
            return WeightRow(words, step);
        case StepKind::Bracket:
            return {u"计费段"_s, BracketWords(side, step, priced), {}};
        case StepKind::Way:
            return {u"算法"_s,
                    flagged ? u"这一段已勾选：首重价格 + 续重价格，续重不取整"_s : u"全部重量 × 单价"_s,
                    {}};
        case StepKind::Price:
            return PriceRow(side, step, priced, figure);
        case StepKind::Fallback:
            return {u"改按"_s, FallbackWords(side, step, priced), {}, Look::Warning};
        case StepKind::FirstWeight:
            return {u"首重"_s, FirstWeightWords(step, priced), figure};
        case StepKind::Steps:
            return {u"续重"_s, StepsWords(side, step, priced), figure};
        case StepKind::Additional:
            return {u"附加费用"_s, u"与运费一起乘燃油费率"_s, figure};
        case StepKind::Other:
            return {u"其它费用"_s, excludes ? u"这一段不加其它费用"_s : u"不乘燃油费率"_s, figure};
        case StepKind::Fuel:
            return {u"燃油费率"_s, {}, text::GeneralText(step.figure)};
        case StepKind::Result:
            return {words.title, ResultWords(side, priced), figure, Look::Sum};
    }
    return {};
}

/// The rows of the steps. The factor is named in the row of the sum.
QList<ExplainedRow> RowsOf(Side side, const Priced& priced) {
    QList<ExplainedRow> rows;
    for (const Step& step : priced.steps) {
        if (step.kind == StepKind::Fuel) continue;
        if (step.refusal.isEmpty()) {
            rows += RowOf(side, step, priced);
            continue;
        }
        QString caption = RowOf(side, {.kind = step.kind}, priced).caption;
        rows += {std::move(caption), QString(step.refusal).replace(u'\r', u' '), {}, Look::Warning};
    }
    return rows;
}

/// "+15.20" or "−15.20"
QString Difference(double by) {
    const int decimals = std::abs(by) < 0.005 ? 4 : 2;
    return (by < 0 ? u"−"_s : u"+"_s) + text::FormatFixed(std::abs(by), decimals);
}

/// The amount as the computation puts it into its text box.
std::optional<double> AmountAsShown(Side side, const Priced& priced) {
    const std::optional<double> amount = priced.Amount();
    if (!amount) return std::nullopt;
    return text::Val(side == Side::Charge ? text::GeneralText(*amount) : text::FormatFixed(*amount, 2));
}

/// The row that says that a text box holds another amount than was computed; none where it holds the same.
QList<ExplainedRow> RowOfBox(const QString& caption, const QString& box, std::optional<double> computed,
                             Origin origin) {
    const double held = text::Val(box);
    if (computed && held == *computed) return {};
    if (text::Trim(box).isEmpty()) {
        if (!computed) return {};
        return {{caption, u"框中没有金额"_s, {}, Look::Warning}};
    }
    if (!computed && held == 0) return {};
    const QString why =
        origin == Origin::Today && computed ? u"，与今日资料算出的不同"_s : u"，由操作员填写"_s;
    return {{caption, u"框中为 "_s + text::Trim(box) + why,
             computed ? Difference(held - *computed) : QString(), Look::Warning}};
}

QString Total(const CardText& card) {
    return ChargeTotal(card(AdditionalCharge), card(BasicCharge), card(FuelRate), card(OtherFees));
}

QString TotalWords(const CardText& card) {
    const auto money = [&](Box box) { return Money(text::Val(card(box))); };
    QString factor = text::GeneralText(text::Val(card(FuelRate)));
    if (text::Trim(card(FuelRate)).isEmpty()) factor += u"（未填）"_s;
    return u'(' + money(BasicCharge) + u" + 附加 "_s + money(AdditionalCharge) + u") × 燃油费率 "_s + factor +
           u" + 其它 "_s + money(OtherFees);
}

/// Whether the card holds something else than what the steps were computed from.
bool HasChanged(Side side, const Priced& priced, const CardText& card) {
    const SideWords& words = WordsOf(side);
    const bool document = card(ServiceType).startsWith(u'D');
    bool same =
        priced.party == CodePart(card(words.partyBox)) && priced.zone == CodePart(card(words.zoneBox)) &&
        WeightOf(priced) == text::Val(card(words.weightBox)) && document == (Service(priced) == u"文件");
    if (side == Side::Charge) return !same;
    const auto figure = [&](StepKind kind) {
        const Step* step = priced.Find(kind);
        return step ? step->figure : 0;
    };
    const double factor = text::Val(card(ChannelFuelRate));
    same = same && figure(StepKind::Additional) == text::Val(card(ChannelAdditionalFees)) &&
           figure(StepKind::Other) == text::Val(card(ChannelOtherFees)) &&
           figure(StepKind::Fuel) == (factor == 0 ? 1 : factor);
    return !same;
}

QString FootOf(const Priced& priced, Origin origin) {
    const QString only = u"只作说明，不改动单据。"_s;
    switch (origin) {
        case Origin::Stored:
            return u"按 "_s + priced.day + u" 的资料算出，随单据保存；"_s + only;
        case Origin::Today:
            return u"没有保存算法，按今日资料计算；"_s + only;
        case Origin::Card:
            break;
    }
    return u"按当前框中内容算出，"_s + only;
}

/// The code with its name, where the card has the same code.
QString Dressed(const QString& code, const QString& onCard) {
    return CodePart(onCard) == code ? text::Trim(onCard) : code;
}

}  // namespace

ChargeInput ChargeInputOf(const CardText& card) {
    return {.customer = card(CustomerCode),
            .zone = card(ServiceZoneCode),
            .weight = card(ReceivedWeight),
            .serviceType = card(ServiceType)};
}

CostInput CostInputOf(const CardText& card) {
    return {.channel = card(ChannelCode),
            .zone = card(ChannelZoneCode),
            .weight = card(ShippedWeight),
            .serviceType = card(ServiceType),
            .fuelFactor = card(ChannelFuelRate),
            .additionalFees = card(ChannelAdditionalFees),
            .otherFees = card(ChannelOtherFees)};
}

Priced EmptySteps(Side side, const CardText& card) {
    const SideWords& words = WordsOf(side);
    return {.party = CodePart(card(words.partyBox)),
            .zone = CodePart(card(words.zoneBox)),
            .day = text::DateText(sys::Today()),
            .steps = {}};
}

Priced PricedNow(dao::Database& db, Side side, const CardText& card) {
    Priced priced = EmptySteps(side, card);
    try {
        if (side == Side::Charge)
            ComputeCustomerCharge(db, ChargeInputOf(card), &priced.steps);
        else
            ComputeShippingCost(db, CostInputOf(card), &priced.steps);
    } catch (const PlatformError& error) {
        const auto* failure = dynamic_cast<const DatabaseError*>(&error);
        if (failure && failure->GroupLost()) throw;
        priced.steps.push_back({.kind = StepKind::Price, .refusal = error.Text()});
    }
    return priced;
}

ExplainedSide Explain(Side side, const Priced& priced, Origin origin, const CardText& card) {
    const SideWords& words = WordsOf(side);
    ExplainedSide explained{.title = words.title,
                            .source = words.prices + u"  "_s + Dressed(priced.party, card(words.partyBox)) +
                                      u" / "_s + Dressed(priced.zone, card(words.zoneBox)),
                            .result = {},
                            .rows = RowsOf(side, priced),
                            .foot = FootOf(priced, origin)};
    const std::optional<double> amount = AmountAsShown(side, priced);
    if (amount) explained.result = text::FormatFixed(*amount, 2);
    QList<ExplainedRow> last;
    if (amount && HasChanged(side, priced, card))
        last += {u"单据"_s, u"算出之后，单据的内容有改动"_s, {}, Look::Warning};
    last += RowOfBox(words.title, card(words.amountBox), amount, origin);
    if (side == Side::Charge) {
        const QString total = Total(card);
        explained.rows += {TotalCaption, TotalWords(card), total};
        last += RowOfBox(TotalCaption, card(TotalCharge), text::Val(total), Origin::Card);
    }
    explained.rows += last;
    return explained;
}

ExplainedSide NotExplained(Side side, const QString& error) {
    const SideWords& words = WordsOf(side);
    return {.title = words.title,
            .source = words.prices,
            .result = {},
            .rows = {{words.source, error, {}, Look::Warning}},
            .foot = {}};
}

QList<ExplainedRow> ForCustomer(const Priced& charge, const CardText& card) {
    const std::optional<double> amount = AmountAsShown(Side::Charge, charge);
    if (!amount) return {};
    const QString agreed = u"另行议定"_s;
    QList<ExplainedRow> rows = RowsOf(Side::Charge, charge);
    const double basic = text::Val(card(BasicCharge));
    const double total = text::Val(card(TotalCharge));
    if (basic != *amount || HasChanged(Side::Charge, charge, card))
        rows += {WordsOf(Side::Charge).title, agreed, text::FormatFixed(basic, 2), Look::Sum};
    rows += {TotalCaption, total == text::Val(Total(card)) ? TotalWords(card) : agreed,
             text::FormatFixed(total, 2), Look::Sum};
    return rows;
}

QString AsText(const QList<ExplainedSide>& sides) {
    QStringList lines;
    for (const ExplainedSide& side : sides) {
        if (!lines.isEmpty()) lines += QString();
        lines += QStringList{side.title, side.source, side.result}.join(u'\t');
        for (const ExplainedRow& row : side.rows)
            lines += QStringList{row.caption, row.words, row.figure}.join(u'\t');
        lines += side.foot;
    }
    return lines.join(u'\n');
}

}  // namespace waybills
