#include "platform/report/formats.h"

#include "platform/errors.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace report {
namespace {

constexpr double kLargestInWords = 1e12;  // yuan
constexpr int kThousand = 3;              // digits between two commas

QString Grouped(QString number) {
    const qsizetype first = number.startsWith(u'-') ? 1 : 0;
    const qsizetype point = number.indexOf(u'.');
    for (qsizetype at = (point < 0 ? number.size() : point) - kThousand; at > first; at -= kThousand)
        number.insert(at, u',');
    return number;
}

bool IsZero(QStringView shown) {
    return std::ranges::all_of(shown, [](QChar c) { return !c.isDigit() || c == u'0'; });
}

QString ShowNumber(const Value& value, const Format& format) {
    if (!value.isNumber && !text::IsPlainNumber(value.text)) return value.text;
    double number = NumberOf(value);
    if (!std::isfinite(number)) return {};
    if (format.percent) number *= 100;
    QString shown = text::FormatFixed(number, format.decimals);
    if (format.emptyAtZero && IsZero(shown)) return {};
    if (format.grouped) shown = Grouped(shown);
    return format.percent ? shown + u'%' : shown;
}

}  // namespace

Value NumberValue(double number) {
    return {.number = number, .isNumber = true};
}

Value TextValue(const QString& text) {
    return {.text = text};
}

double NumberOf(const Value& value) {
    if (value.isNumber) return value.number;
    try {
        return text::Val(value.text);
    } catch (const RuntimeError&) {  // too large a number
        return 0;
    }
}

QString TextOf(const Value& value) {
    if (!value.isNumber) return value.text;
    return std::isfinite(value.number) ? text::GeneralText(value.number) : QString();
}

bool IsTrue(const Value& value) {
    return value.isNumber ? value.number != 0 : !value.text.isEmpty();
}

std::optional<Format> ReadFormat(QStringView text) {
    static const QRegularExpression number(u"^(#,##)?#?0(?:\\.(0{1,6}))?(%)?(;)?$"_s);
    static const QRegularExpression date(u"^[yMdHhms年月日时分秒 ./:-]+$"_s);
    Format format;
    if (const auto found = number.match(text); found.hasMatch()) {
        format.kind = Format::Kind::Number;
        format.grouped = found.hasCaptured(1);
        format.decimals = static_cast<int>(found.capturedLength(2));
        format.percent = found.hasCaptured(3);
        format.emptyAtZero = found.hasCaptured(4);
        return format;
    }
    if (!date.match(text).hasMatch()) return std::nullopt;
    format.kind = Format::Kind::Date;
    format.date = text.toString();
    return format;
}

QString Show(const Value& value, const Format& format) {
    if (format.kind == Format::Kind::Number) return ShowNumber(value, format);
    const QString shown = TextOf(value);
    if (format.kind == Format::Kind::None) return shown;
    const auto moment = text::ReadDateTime(shown);
    return moment ? moment->toString(format.date) : shown;
}

namespace {

/// Whole yuan, above 0.
QString YuanInWords(qint64 yuan) {
    constexpr QStringView digits = u"零壹贰叁肆伍陆柒捌玖";
    constexpr QStringView small = u" 拾佰仟";
    constexpr QStringView large = u" 万亿";
    const QString number = QString::number(yuan);
    QString words;
    bool zero = false, sectionHasDigit = false;
    for (qsizetype i = 0; i < number.size(); ++i) {
        const qsizetype place = number.size() - 1 - i;
        const int digit = number[i].digitValue();
        if (digit == 0) {
            zero = true;
        } else {
            if (zero && !words.isEmpty()) words += u'零';
            words += digits[digit];
            if (place % 4 != 0) words += small[place % 4];
            zero = false;
            sectionHasDigit = true;
        }
        if (place % 4 != 0) continue;
        if (place > 0 && sectionHasDigit) {
            words += large[place / 4];
            zero = false;
        }
        sectionHasDigit = false;
    }
    return words;
}

}  // namespace

QString AmountInWords(double amount) {
    constexpr QStringView digits = u"零壹贰叁肆伍陆柒捌玖";
    const QString shown = text::FormatFixed(std::fabs(amount), 2);
    if (!(std::fabs(amount) < kLargestInWords))
        return std::isfinite(amount) ? TextOf(NumberValue(amount)) : QString();
    const qsizetype point = shown.indexOf(u'.');
    const qint64 yuan = shown.left(point).toLongLong();
    const int jiao = shown[point + 1].digitValue(), fen = shown[point + 2].digitValue();
    QString words = yuan > 0 ? YuanInWords(yuan) + u'元' : QString();
    if (jiao > 0) {
        words += digits[jiao];
        words += u'角';
    } else if (fen > 0 && yuan > 0) {
        words += u'零';
    }
    if (fen > 0) {
        words += digits[fen];
        words += u'分';
    }
    if (words.isEmpty()) return u"零元整"_s;
    return (amount < 0 ? u"负"_s : QString()) + words + (fen > 0 ? QString() : u"整"_s);
}

}  // namespace report
