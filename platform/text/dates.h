// Dates as text. Dates are written as yyyy-MM-dd, with a time of day as yyyy-MM-dd HH:mm:ss. Reading accepts
// more forms.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

namespace text {

/// Reads "2024-1-5", "2024/01/05", with or without a time of day ("9:05", "09:05:00"). Years have four
/// digits. Blanks at the ends are allowed. std::nullopt for anything else.
std::optional<QDateTime> ReadDateTime(QStringView value);

/// The same without the time of day.
std::optional<QDate> ReadDate(QStringView value);

/// "2024-01-05"; "" for an invalid date.
QString DateText(QDate date);
/// "2024-01-05 09:05:00"; "" for an invalid moment.
QString DateTimeText(const QDateTime& moment);

}  // namespace text
