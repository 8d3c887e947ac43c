// Dates as text. Every date is written yyyy-MM-dd (a time of day follows as " HH:mm:ss") and read leniently.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

namespace text {

/// Reads "2024-1-5", "2024/01/05", with or without a time of day ("9:05", "09:05:00"). Blanks at the ends are
/// allowed; anything else gives nothing. Years have four digits.
std::optional<QDateTime> ReadDateTime(QStringView value);

/// The same, the time of day dropped.
std::optional<QDate> ReadDate(QStringView value);

/// "2024-01-05"; "" for a date that is none.
QString DateText(QDate date);
/// "2024-01-05 09:05:00"; "" for a moment that is none.
QString DateTimeText(const QDateTime& moment);

}  // namespace text
