#include "platform/text/numbers.h"

#include "platform/errors.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace text {
namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

[[noreturn]] void Overflow() {
    throw RuntimeError(u"溢出"_s);
}

/// A number as its significant digits and the decimal exponent of the first digit: 12.5 is "125" and 1.
struct Decimal {
    bool negative = false;
    QByteArray digits;
    int exponent = 0;
};

Decimal ToDecimal(double value, int precision) {
    if (!std::isfinite(value)) Overflow();
    // Not printf: its decimal point depends on the workstation's locale.
    std::array<char, 40> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::scientific, precision - 1);
    const QByteArray shown(buffer.data(), written.ptr - buffer.data());
    const qsizetype e = shown.indexOf('e');
    Decimal decimal;
    decimal.negative = shown.startsWith('-');
    decimal.exponent = shown.mid(e + 1).toInt();
    decimal.digits = shown.left(e).replace("-", "").replace(".", "");
    while (decimal.digits.size() > 1 && decimal.digits.endsWith('0')) decimal.digits.chop(1);
    if (decimal.digits == "0") decimal = Decimal{false, "0", 0};
    return decimal;
}

/// The digits with a point after the digit whose exponent is 0, padded with zeros on either side.
QByteArray Plain(const Decimal& decimal) {
    QByteArray digits = decimal.digits;
    int whole = decimal.exponent + 1;  // digits before the point
    if (whole <= 0) {
        digits.prepend(QByteArray(1 - whole, '0'));
        whole = 1;
    }
    if (whole >= digits.size()) return digits + QByteArray(whole - digits.size(), '0');
    return digits.left(whole) + '.' + digits.mid(whole);
}

QString General(double value, int precision) {
    const Decimal decimal = ToDecimal(value, precision);
    const int behindPoint = static_cast<int>(decimal.digits.size()) - 1 - decimal.exponent;
    QByteArray shown;
    if (decimal.exponent < precision && behindPoint <= precision) {
        shown = Plain(decimal);
    } else {
        shown = decimal.digits.left(1);
        if (decimal.digits.size() > 1) shown += '.' + decimal.digits.mid(1);
        const int exponent = std::abs(decimal.exponent);
        shown += decimal.exponent < 0 ? "E-" : "E+";
        shown += QByteArray::number(exponent).rightJustified(2, '0');
    }
    if (decimal.negative) shown.prepend('-');
    return QString::fromLatin1(shown);
}

/// Whether an unsigned number that is out of range ("0.05e400") is above 1, by the position of its first
/// nonzero digit.
bool IsLarge(const QByteArray& number) {
    const qsizetype e = number.indexOf('e');
    const QByteArray digits = number.mid(0, e);
    const qsizetype point = digits.contains('.') ? digits.indexOf('.') : digits.size();
    qsizetype first = 0;
    while (first < digits.size() && (digits[first] == '0' || digits[first] == '.')) ++first;
    bool fits = true;
    const qint64 exponent = e < 0 ? 0 : number.mid(e + 1).toInt(&fits);
    return fits ? point - first + exponent > 0 : number[e + 1] != '-';
}

constexpr int kQuickDecimals = 4;
constexpr std::array<std::int64_t, kQuickDecimals + 1> kPowers = {1, 10, 100, 1'000, 10'000};

/// A non-negative number in ten thousandths if it is a whole number of them, as nearly every number here is.
/// A text of at most 15 digits that is read as a number is the 15-digit text of that number, so the result
/// has its digits.
std::optional<std::int64_t> TenThousandths(double size) {
    constexpr double kMost = 1e15;
    const double scaled = std::nearbyint(size * 1e4);
    if (!(scaled < kMost) || scaled / 1e4 != size) return std::nullopt;
    return static_cast<std::int64_t>(scaled);
}

/// A number scaled by 10 to the power of `decimals`, as a text with that many digits after the point.
QString WithPoint(bool negative, std::int64_t scaled, int decimals) {
    std::array<char16_t, 24> buffer;
    std::size_t at = buffer.size();
    const bool minus = negative && scaled != 0;
    for (int digit = 0; digit <= decimals || scaled > 0; ++digit, scaled /= 10) {
        if (digit == decimals && decimals > 0) buffer[--at] = u'.';
        buffer[--at] = static_cast<char16_t>(u'0' + scaled % 10);
    }
    if (minus) buffer[--at] = u'-';
    return QStringView(buffer.data() + at, static_cast<qsizetype>(buffer.size() - at)).toString();
}

template <class Whole>
Whole RoundTo(double value) {
    const double rounded = std::nearbyint(value);  // the default rounding mode is half to even
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max()))
        Overflow();
    return static_cast<Whole>(rounded);
}

}  // namespace

QString Trim(QStringView value) {
    while (value.startsWith(u' ')) value = value.mid(1);
    while (value.endsWith(u' ')) value.chop(1);
    return value.toString();
}

double Val(QStringView value) {
    qsizetype i = 0;
    QVarLengthArray<char, 64> number;  // as from_chars takes it
    const auto at = [&](qsizetype k) { return k < value.size() ? value[k] : QChar(); };
    const auto digits = [&] {
        while (IsDigit(at(i))) number.append(value[i++].toLatin1());
    };
    while (at(i) == u' ') ++i;
    const bool negative = at(i) == u'-';
    if (at(i) == u'-' || at(i) == u'+') ++i;
    digits();
    if (at(i) == u'.') {
        number.append('.');
        ++i;
        digits();
    }
    if (number.isEmpty() || (number.size() == 1 && number[0] == '.')) return 0;
    if (at(i) == u'e' || at(i) == u'E') {
        const bool sign = at(i + 1) == u'-' || at(i + 1) == u'+';
        if (IsDigit(at(i + (sign ? 2 : 1)))) {
            number.append('e');
            if (at(i + 1) == u'-') number.append('-');
            i += sign ? 2 : 1;
            digits();
        }
    }
    double result = 0;
    const auto [end, error] = std::from_chars(number.constData(), number.constData() + number.size(), result);
    if (error == std::errc::result_out_of_range) {
        // from_chars reports the same error for both ends of the range and leaves the result unchanged. A
        // number that is too small is 0; a number that is too large is an overflow.
        result = IsLarge(QByteArray(number.constData(), number.size())) ? HUGE_VAL : 0;
    }
    if (!std::isfinite(result)) Overflow();
    return negative ? -result : result;
}

QString GeneralText(double value) {
    if (const auto quick = TenThousandths(std::fabs(value))) {
        std::int64_t scaled = *quick;
        int decimals = kQuickDecimals;
        for (; decimals > 0 && scaled % 10 == 0; --decimals) scaled /= 10;
        return WithPoint(value < 0, scaled, decimals);
    }
    return General(value, 15);
}

QString GeneralText(float value) {
    return General(static_cast<double>(value), 7);
}

QString GeneralText(int value) {
    return QString::number(value);
}

QString FormatFixed(double value, int decimals) {
    if (const auto quick = TenThousandths(std::fabs(value)); quick && decimals < kQuickDecimals) {
        const std::int64_t unit = kPowers[static_cast<std::size_t>(kQuickDecimals - decimals)];
        return WithPoint(value < 0, (*quick + unit / 2) / unit, decimals);
    }
    Decimal decimal = ToDecimal(value, 15);
    // The number of digits kept; the next digit decides the rounding.
    const int kept = decimal.exponent + 1 + decimals;
    if (kept < 0) {
        decimal.digits = "0";
        decimal.exponent = 0;
    } else if (kept < decimal.digits.size()) {
        const bool up = decimal.digits[kept] >= '5';
        decimal.digits.truncate(kept);
        decimal.digits.prepend('0');  // a leading zero for the carry
        ++decimal.exponent;
        if (up) {
            qsizetype i = decimal.digits.size() - 1;
            while (decimal.digits[i] == '9') decimal.digits[i--] = '0';
            ++decimal.digits[i];
        }
        while (decimal.digits.size() > 1 && decimal.digits.startsWith('0')) {
            decimal.digits.remove(0, 1);
            --decimal.exponent;
        }
    }
    QByteArray shown = Plain(decimal);
    const qsizetype point = shown.indexOf('.');
    const qsizetype have = point < 0 ? 0 : shown.size() - point - 1;
    if (point < 0 && decimals > 0) shown += '.';
    if (have < decimals) shown += QByteArray(decimals - have, '0');
    const bool zero = std::all_of(shown.begin(), shown.end(), [](char c) { return c == '0' || c == '.'; });
    if (decimal.negative && !zero) shown.prepend('-');
    return QString::fromLatin1(shown);
}

std::int16_t ToInteger16(double value) {
    return RoundTo<std::int16_t>(value);
}

std::int32_t ToInteger32(double value) {
    return RoundTo<std::int32_t>(value);
}

float ToSingle(double value) {
    if (!(std::abs(value) <= std::numeric_limits<float>::max())) Overflow();
    return static_cast<float>(value);
}

QString Narrow(QString text) {
    for (QChar& c : text) {
        if (c >= QChar(0xFF01) && c <= QChar(0xFF5E)) {
            c = QChar(c.unicode() - 0xFF01 + u'!');
        } else if (c == QChar(0x3000) || c == QChar::Nbsp) {
            c = u' ';
        } else if (c == QChar(0x2212)) {
            c = u'-';
        }
    }
    return text;
}

QString NarrowNumber(QString text) {
    return Narrow(std::move(text)).replace(QChar(0x3002), u'.').replace(QChar(0xFF61), u'.');
}

QString WithoutGroups(const QString& text) {
    static const QRegularExpression grouped(u"^ *[-+]?[0-9]{1,3}(?:,[0-9]{3})+(?:\\.[0-9]*)? *$"_s);
    QString plain = text;
    return grouped.match(text).hasMatch() ? plain.remove(u',') : plain;
}

bool IsPlainNumber(QStringView value) {
    const QString trimmed = Trim(value);
    qsizetype i = trimmed.startsWith(u'-') || trimmed.startsWith(u'+') ? 1 : 0;
    int digits = 0;
    int points = 0;
    for (; i < trimmed.size(); ++i) {
        if (IsDigit(trimmed[i]))
            ++digits;
        else if (trimmed[i] == u'.')
            ++points;
        else
            return false;
    }
    return digits > 0 && points <= 1;
}

}  // namespace text
