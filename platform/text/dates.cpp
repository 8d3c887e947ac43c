#include "platform/text/dates.h"

#include "platform/text/numbers.h"

#include <QRegularExpression>
#include <QTime>

using namespace Qt::StringLiterals;

namespace text {

std::optional<QDateTime> ReadDateTime(QStringView value) {
    static const QRegularExpression pattern(
        u"\\A([0-9]{4})([-/])([0-9]{1,2})\\2([0-9]{1,2})(?: +([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))?)?\\z"_s);
    const auto match = pattern.match(Trim(value));
    if (!match.hasMatch()) return std::nullopt;
    const QDate date(match.captured(1).toInt(), match.captured(3).toInt(), match.captured(4).toInt());
    const QTime time(match.captured(5).toInt(), match.captured(6).toInt(), match.captured(7).toInt());
    if (!date.isValid() || !time.isValid()) return std::nullopt;
    // UTC has every time of day; a local time zone may skip some.
    return QDateTime(date, time, Qt::UTC);
}

std::optional<QDate> ReadDate(QStringView value) {
    const auto moment = ReadDateTime(value);
    return moment ? std::optional(moment->date()) : std::nullopt;
}

QString DateText(QDate date) {
    return date.toString(u"yyyy-MM-dd");
}

QString DateTimeText(const QDateTime& moment) {
    return moment.toString(u"yyyy-MM-dd HH:mm:ss");
}

}  // namespace text
