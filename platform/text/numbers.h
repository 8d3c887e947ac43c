// Conversions between numbers and text. Every number in a statement or a text box is converted here, so that
// 12.50 is the same text on the card, in the file and in a report.
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

namespace text {

/// Removes U+0020 at both ends and nothing else.
QString Trim(QStringView value);

/// The number at the start of a text: "12kg" is 12, "" is 0. Skips leading blanks, then reads a sign, ASCII
/// digits, one point and a complete exponent; any other character ends the number. Raises RuntimeError on
/// overflow.
double Val(QStringView value);

/// General text: at most 15 significant digits (7 for a single), no trailing zeros, a 0 before the point;
/// plain if it fits in 15 (7) digits, otherwise "1E+15". Minus zero is "0". Raises RuntimeError if the value
/// is not finite.
QString GeneralText(double value);
QString GeneralText(float value);
QString GeneralText(int value);

/// "#0.0" (decimals 1) and "#0.00" (decimals 2): the 15-digit decimal form rounded half away from zero. Never
/// "-0.00".
QString FormatFixed(double value, int decimals);

/// Rounds half to even to a whole number. Raises RuntimeError if the result does not fit the type.
std::int16_t ToInteger16(double value);
std::int32_t ToInteger32(double value);
/// The nearest single. Raises RuntimeError if the value is too large for a single.
float ToSingle(double value);

/// Full-width characters, blanks that do not break and the minus sign as their ASCII forms; the others stay.
/// Has as many characters as before.
QString Narrow(QString text);
/// Narrow, and "。" is ".": an input method types it with the key of the point.
QString NarrowNumber(QString text);
/// A number whose digits before the point are parted by commas into groups of three, without the commas
/// ("-1,234.50"); any other text as it is.
QString WithoutGroups(const QString& text);

/// True if the trimmed text is a plain decimal number: a sign, digits, at most one point, at least one digit.
bool IsPlainNumber(QStringView value);

}  // namespace text
