// The values of an insert.
#include "platform/dao/dialect/translations.h"

#include <charconv>
#include <optional>

namespace dao::dialect {
namespace {

/// The engine reads a number without point and exponent as a whole one if it fits; so does this. Nothing for
/// one that is too large or too small; the engine reads that itself.
std::optional<Value> NumberIn(std::string_view digits) {
    std::int64_t whole = 0;
    double real = 0;
    const char* const end = digits.data() + digits.size();
    if (const auto read = std::from_chars(digits.data(), end, whole);
        read.ec == std::errc() && read.ptr == end)
        return whole;
    if (const auto read = std::from_chars(digits.data(), end, real);
        read.ec == std::errc() && read.ptr == end)
        return real;
    return std::nullopt;
}

std::optional<Value> ValueIn(const Token& token) {
    if (token.kind == TokenKind::Text) return ValueOf(token);
    if (token.kind == TokenKind::Number) return NumberIn(token.text);
    return std::nullopt;
}

}  // namespace

std::vector<Value> TakeValues(Statement& statement) {
    std::vector<Value> values;
    if (statement.Kind() != Verb::Insert) return values;
    size_t open = 0;
    while (open < statement.Size() && !IsWord(statement.At(open), "values")) ++open;
    if (!IsSign(statement.At(++open), "(") || statement.PartnerOf(open) == kNone) return values;
    for (const auto& [begin, end] : statement.Pieces(open + 1, statement.PartnerOf(open))) {
        if (end != begin + 1) continue;
        auto value = ValueIn(statement.At(begin));
        if (!value) continue;
        values.push_back(std::move(*value));
        statement.Replace(begin, "?", TokenKind::Sign);
    }
    return values;
}

}  // namespace dao::dialect
