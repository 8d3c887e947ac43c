// The functions of the dialect that the engine lacks, as plain functions over texts (UTF-8).
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

/// Reads what text::ReadDateTime reads, and its full form quickly.
std::optional<Moment> ReadMoment(std::string_view text);

/// yyyy-MM-dd, and the time of day if the text has one. Nothing for a text that is no date.
std::optional<std::string> NormalDate(std::string_view text);

/// The text of a day: yyyy-MM-dd. Nothing beyond the years 1 to 9999.
std::optional<std::string> DayText(std::int64_t dayNumber);

/// How many units lie between two moments, second less first: yyyy, q, m, y, d, w, ww, h, n, s. Counts the
/// borders that are passed, as days at midnight; w counts whole weeks. Nothing for an unknown unit.
std::optional<std::int64_t> Datediff(std::string_view unit, const Moment& first, const Moment& second);

/// *, ?, #, [a-z], [!a]; % and _ are ordinary; case-blind in ASCII. A bracket without partner stands for
/// itself. Linear but for the last *.
bool Like(std::string_view text, std::string_view pattern);

constexpr const char* kTypeMismatch = "标准表达式中数据类型不匹配";

}  // namespace dao::dialect
