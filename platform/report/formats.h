// How a value of a report is shown: "#,##0.00" and its like for numbers, "0.0%" for rates, "yyyy-MM-dd" for
// dates.
//
// Always holds: a text that is no number passes a number format as it is, a text that is no date a date
// format; a text that is empty stays empty.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace report {

/// A text, or a number that a computation gave.
struct Value {
    QString text = {};
    double number = 0;
    bool isNumber = false;
};

Value NumberValue(double number);
Value TextValue(const QString& text);

/// The leading number of a text; 0 where there is none or it is too large to be one.
double NumberOf(const Value& value);
/// General text of a number.
QString TextOf(const Value& value);
/// Not empty and not 0.
bool IsTrue(const Value& value);

struct Format {
    enum class Kind { None, Number, Date };
    Kind kind = Kind::None;
    bool grouped = false;      ///< a comma between thousands
    int decimals = 0;          ///< 0 to 6
    bool percent = false;      ///< a hundred times the value, with the sign behind it
    bool emptyAtZero = false;  ///< what would be shown as 0 is not shown; written as ";" at the end
    QString date = {};
};

/// Reads a format; nothing for one that is none.
std::optional<Format> ReadFormat(QStringView text);

QString Show(const Value& value, const Format& format);

/// An amount in yuan in the words of a bill: 壹佰贰拾叁元肆角整. Amounts from a thousand billion on are given
/// in digits.
QString AmountInWords(double amount);

}  // namespace report
