#include "platform/dao/dialect/functions.h"

#include "platform/dao/dialect/tokens.h"
#include "platform/text/dates.h"

#include <cstdio>

namespace dao::dialect {
namespace {

/// Reads digits of a fixed width; -1 if any character is not a digit.
int Digits(std::string_view text, size_t from, size_t width) {
    int value = 0;
    for (size_t i = from; i < from + width; ++i) {
        if (text[i] < '0' || text[i] > '9') return -1;
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

/// yyyy-MM-dd[ HH:mm:ss], as the file stores it: the fast path. ReadMoment() reads other forms more slowly.
std::optional<Moment> ReadFullForm(std::string_view text) {
    if (text.size() != 10 && text.size() != 19) return std::nullopt;
    if (text[4] != '-' || text[7] != '-') return std::nullopt;
    Moment moment{Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2), 0};
    // Digits() returns -1 for no number, and QDate accepts the year -1.
    if (moment.year < 1 || !QDate::isValid(moment.year, moment.month, moment.day)) return std::nullopt;
    if (text.size() == 19) {
        if (text[10] != ' ' || text[13] != ':' || text[16] != ':') return std::nullopt;
        const int hour = Digits(text, 11, 2);
        const int minute = Digits(text, 14, 2);
        const int second = Digits(text, 17, 2);
        if (!QTime::isValid(hour, minute, second)) return std::nullopt;
        moment.second = (hour * 60 + minute) * 60 + second;
    }
    return moment;
}

struct Character {
    char32_t code;
    size_t length;
};

/// Reads one UTF-8 character; a stray byte is a character of its own.
Character Read(std::string_view text, size_t at) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at);
    const size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 1 || at + length > text.size()) return {first, 1};
    char32_t code = first & (0xFFU >> (length + 1));
    for (size_t i = 1; i < length; ++i) code = (code << 6) | (byte(at + i) & 0x3FU);
    return {code, length};
}

char32_t Lower(char32_t c) {
    return c >= U'A' && c <= U'Z' ? c - U'A' + U'a' : c;
}

char32_t Upper(char32_t c) {
    return c >= U'a' && c <= U'z' ? c - U'a' + U'A' : c;
}

bool InRange(char32_t c, char32_t low, char32_t high) {
    return (low <= c && c <= high) || (low <= Lower(c) && Lower(c) <= high) ||
           (low <= Upper(c) && Upper(c) <= high);
}

/// Whether c is in the set of [abc], [a-z] or [!a]; `set` excludes the brackets.
bool InSet(char32_t c, std::string_view set) {
    const bool without = set.size() > 1 && set[0] == '!';
    if (without) set.remove_prefix(1);
    for (size_t i = 0; i < set.size();) {
        const Character low = Read(set, i);
        i += low.length;
        Character high = low;
        if (i + 1 < set.size() && set[i] == '-') {
            high = Read(set, i + 1);
            i += 1 + high.length;
        }
        if (InRange(c, low.code, high.code)) return !without;
    }
    return without;
}

/// The end of the pattern element that begins at `at`.
size_t ElementEnd(std::string_view pattern, size_t at) {
    if (pattern[at] == '[') {
        const size_t close = pattern.find(']', at);
        if (close != std::string_view::npos) return close + 1;
    }
    return at + Read(pattern, at).length;
}

bool MatchesOne(char32_t c, std::string_view element) {
    if (element == "?") return true;
    if (element == "#") return c >= U'0' && c <= U'9';
    if (element.size() > 1 && element[0] == '[') return InSet(c, element.substr(1, element.size() - 2));
    return Lower(c) == Lower(Read(element, 0).code);
}

}  // namespace

std::int64_t Moment::DayNumber() const {
    return QDate(year, month, day).toJulianDay();
}

std::optional<Moment> ReadMoment(std::string_view text) {
    if (auto moment = ReadFullForm(text)) return moment;
    const auto read = text::ReadDateTime(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    if (!read) return std::nullopt;
    const QDate date = read->date();
    return Moment{date.year(), date.month(), date.day(), read->time().msecsSinceStartOfDay() / 1000};
}

std::optional<std::string> NormalDate(std::string_view text) {
    if (ReadFullForm(text)) return std::string(text);
    const auto moment = ReadMoment(text);
    if (!moment) return std::nullopt;
    char buffer[80];
    const int second = moment->second;
    // A time of day in the text is kept, even midnight.
    if (text.find(':') == std::string_view::npos)
        std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", moment->year, moment->month, moment->day);
    else
        std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", moment->year, moment->month,
                      moment->day, second / 3600, second / 60 % 60, second % 60);
    return std::string(buffer);
}

std::optional<std::string> DayText(std::int64_t dayNumber) {
    const QDate date = QDate::fromJulianDay(dayNumber);
    if (!date.isValid() || date.year() < 1 || date.year() > 9999) return std::nullopt;
    return text::DateText(date).toStdString();
}

std::optional<std::int64_t> Datediff(std::string_view unit, const Moment& first, const Moment& second) {
    const auto months = [](const Moment& m) { return std::int64_t{m.year} * 12 + m.month - 1; };
    const auto seconds = [](const Moment& m) { return m.DayNumber() * 86400 + m.second; };
    // The number of unit boundaries between the two moments. Years start at 1, so no count is negative.
    const auto between = [&](auto count, std::int64_t by) { return count(second) / by - count(first) / by; };
    const std::int64_t days = second.DayNumber() - first.DayNumber();
    if (SameText(unit, "d") || SameText(unit, "y")) return days;
    if (SameText(unit, "m")) return between(months, 1);
    if (SameText(unit, "q")) return between(months, 3);
    if (SameText(unit, "yyyy")) return between(months, 12);
    if (SameText(unit, "w")) return days / 7;
    // Weeks begin on Sunday; day number 0 was a Monday.
    if (SameText(unit, "ww")) return between([](const Moment& m) { return m.DayNumber() + 1; }, 7);
    if (SameText(unit, "h")) return between(seconds, 3600);
    if (SameText(unit, "n")) return between(seconds, 60);
    if (SameText(unit, "s")) return between(seconds, 1);
    return std::nullopt;
}

bool Like(std::string_view text, std::string_view pattern) {
    size_t t = 0;
    size_t p = 0;
    size_t retryText = 0;
    size_t retryPattern = std::string_view::npos;  // the position after the last *
    while (t < text.size() || p < pattern.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            retryPattern = ++p;
            retryText = t;
            continue;
        }
        if (p < pattern.size()) {
            const size_t end = ElementEnd(pattern, p);
            const std::string_view element = pattern.substr(p, end - p);
            if (element == "[]") {  // an empty set matches the empty text
                p = end;
                continue;
            }
            const Character c = t < text.size() ? Read(text, t) : Character{0, 0};
            if (c.length > 0 && MatchesOne(c.code, element)) {
                t += c.length;
                p = end;
                continue;
            }
        }
        if (retryPattern == std::string_view::npos || retryText >= text.size()) return false;
        retryText += Read(text, retryText).length;  // the * matches one more character
        t = retryText;
        p = retryPattern;
    }
    return true;
}

}  // namespace dao::dialect
