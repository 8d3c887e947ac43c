// How numbers become text and texts become numbers. Everything that reaches a statement or a box as a number
// goes through here, so that 12.50 is the same text on the card, in the file and in a report.
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

namespace text {

/// Removes U+0020 at both ends and nothing else.
QString Trim(QStringView value);

/// The leading number of a text: "12kg" is 12, "" is 0. Leading blanks are skipped; a sign, ASCII digits, one
/// point and a complete exponent are read; anything else ends the number. Raises RuntimeError on overflow.
double Val(QStringView value);

/// General text: at most 15 significant digits (7 for a single), no trailing zeros, a 0 before the point;
/// plain while it fits in 15 (7) digits, else "1E+15". Minus zero is "0". Raises RuntimeError on what is no
/// number.
QString GeneralText(double value);
QString GeneralText(float value);
QString GeneralText(int value);

/// "#0.0" (decimals 1) and "#0.00" (decimals 2): the 15-digit decimal form rounded half away from zero. Never
/// "-0.00".
QString FormatFixed(double value, int decimals);

/// Whole number by rounding half to even. Raises RuntimeError where the result does not fit.
std::int16_t ToInteger16(double value);
std::int32_t ToInteger32(double value);
/// The nearest single. Raises RuntimeError where none is large enough.
float ToSingle(double value);

/// True if the trimmed text is a plain decimal number: a sign, digits, at most one point, at least one digit.
bool IsPlainNumber(QStringView value);

}  // namespace text
