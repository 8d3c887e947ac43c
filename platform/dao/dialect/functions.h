// The functions of the dialect that the engine lacks, as plain functions on UTF-8 text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dao::dialect {

/// A day and a time of day.
struct Moment {
    int year = 0;
    int month = 0;
    int day = 0;
    int second = 0;  ///< since midnight

    /// Days since a fixed day.
    std::int64_t DayNumber() const;
};

/// Reads what text::ReadDateTime reads; the full form takes a fast path.
std::optional<Moment> ReadMoment(std::string_view text);

/// yyyy-MM-dd, followed by the time of day if the text has one. std::nullopt for a text that is not a date.
std::optional<std::string> NormalDate(std::string_view text);

/// The text of a day: yyyy-MM-dd. std::nullopt outside the years 1 to 9999.
std::optional<std::string> DayText(std::int64_t dayNumber);

/// The number of units from `first` to `second`; units: yyyy, q, m, y, d, w, ww, h, n, s. Counts the unit
/// boundaries crossed, for days the midnights; w counts whole weeks. std::nullopt for an unknown unit.
std::optional<std::int64_t> Datediff(std::string_view unit, const Moment& first, const Moment& second);

/// Wildcards: *, ?, #, [a-z], [!a]; % and _ are ordinary characters. ASCII is case-insensitive. An unmatched
/// bracket is an ordinary character. Takes linear time except for backtracking to the last *.
bool Like(std::string_view text, std::string_view pattern);

constexpr const char* kTypeMismatch = "标准表达式中数据类型不匹配";

}  // namespace dao::dialect
