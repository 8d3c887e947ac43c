#include "reconcile/decimals.h"

#include "platform/text/numbers.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace reconcile {
namespace {

constexpr int kDigits = 4;  // behind the point
constexpr Decimal kUnit = 10'000;
constexpr int kMostWhole = 8;  // digits before the point

bool HasDigit(const QString& text) {
    return std::ranges::any_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// Full-width and compatibility characters become the usual ones; "" where one of the latter, as a raised
/// digit, would become a digit.
QString Plain(const QString& text) {
    QString plain;
    for (const QChar c : text::Narrow(text)) {
        if (c.unicode() < 0x80) {
            plain += c.toUpper();
            continue;
        }
        const QString usual = QString(c).normalized(QString::NormalizationForm_KC).toUpper();
        if (HasDigit(usual)) return {};
        plain += usual;
    }
    return plain.trimmed();
}

bool TakeStart(QString& text, const QString& start) {
    if (!text.startsWith(start)) return false;
    text = text.mid(start.size()).trimmed();
    return true;
}

bool TakeEnd(QString& text, const QString& end) {
    if (!text.endsWith(end)) return false;
    text = text.chopped(end.size()).trimmed();
    return true;
}

/// Removes the sign and the unit, which may come in either order; whether the number is negative.
bool TakeSignAndUnit(QString& text) {
    bool negative = false;
    const auto takeSign = [&] {
        if (TakeStart(text, u"-"_s))
            negative = true;
        else
            TakeStart(text, u"+"_s);
    };
    takeSign();
    for (const auto& unit : {u"¥"_s, u"RMB"_s, u"CNY"_s, u"人民币"_s})
        if (TakeStart(text, unit)) break;
    for (const auto& unit : {u"元"_s, u"KGS"_s, u"KG"_s, u"公斤"_s, u"千克"_s})
        if (TakeEnd(text, unit)) break;
    if (!negative) takeSign();
    if (!negative && TakeEnd(text, u"-"_s)) negative = true;
    return negative;
}

}  // namespace

std::optional<Decimal> ReadDecimal(const QString& text) {
    static const QRegularExpression form(u"^(?:([0-9]+)(?:\\.([0-9]*))?|\\.([0-9]+))$"_s);
    QString rest = Plain(text);
    bool negative = TakeSignAndUnit(rest);
    if (!negative && rest.startsWith(u'(') && rest.endsWith(u')')) {
        rest = rest.mid(1, rest.size() - 2).trimmed();
        if (TakeSignAndUnit(rest)) return std::nullopt;
        negative = true;
    }
    const auto match = form.match(text::WithoutGroups(rest));
    if (!match.hasMatch()) return std::nullopt;
    QString whole = match.captured(1);
    while (whole.size() > 1 && whole.startsWith(u'0')) whole.remove(0, 1);
    if (whole.size() > kMostWhole) return std::nullopt;
    const QString part = match.captured(2) + match.captured(3);
    Decimal value = whole.toLongLong() * kUnit + part.left(kDigits).leftJustified(kDigits, u'0').toLongLong();
    if (part.size() > kDigits && part[kDigits] >= u'5') ++value;
    return negative ? -value : value;
}

QString DecimalText(Decimal value) {
    QString part = QString::number(std::abs(value) % kUnit).rightJustified(kDigits, u'0');
    while (part.size() > 2 && part.endsWith(u'0')) part.chop(1);
    return (value < 0 ? u"-"_s : QString()) + QString::number(std::abs(value) / kUnit) + u'.' + part;
}

}  // namespace reconcile
