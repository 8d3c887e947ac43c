// The values that a statement writes.
#include "platform/dao/dialect/translations.h"

#include <charconv>
#include <optional>

namespace dao::dialect {
namespace {

/// The engine reads a number without point and exponent as a whole one if it fits; so does this. Nothing for
/// one that is too small, which the engine reads as 0; one that is too large never comes here.
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

/// Where the values of an insert begin: their opening parenthesis; kNone if there is none that closes.
size_t ValuesOf(const Statement& statement) {
    size_t open = 0;
    while (open < statement.Size() && !IsWord(statement.At(open), "values")) ++open;
    return IsSign(statement.At(++open), "(") && statement.PartnerOf(open) != kNone ? open : kNone;
}

/// Reckoned and not only signed: "1e308*10", not "-7.5".
bool IsReckoned(const Statement& statement, size_t begin, size_t end) {
    for (size_t i = begin + 1; i < end; ++i)
        for (const std::string_view sign : {"+", "-", "*", "/"})
            if (IsSign(statement.At(i), sign)) return true;
    return false;
}

void KeepFinite(Statement& statement, size_t begin, size_t end) {
    if (!IsReckoned(statement, begin, end)) return;
    statement.Insert(begin, " finite(");
    statement.Insert(end, ")");
}

}  // namespace

void FiniteWrites(Statement& statement) {
    if (statement.Kind() == Verb::Insert) {
        const size_t open = ValuesOf(statement);
        if (open == kNone) return;
        for (const auto& [begin, end] : statement.Pieces(open + 1, statement.PartnerOf(open)))
            KeepFinite(statement, begin, end);
    }
    const Scope& scope = statement.Scopes().front();
    if (statement.Kind() != Verb::Update || scope.set == kNone) return;
    const size_t last = scope.where == kNone ? statement.Size() : scope.where;
    for (const auto& [begin, end] : statement.Pieces(scope.set + 1, last)) {
        size_t equals = begin;
        while (equals < end && !IsSign(statement.At(equals), "=")) ++equals;
        if (equals + 1 < end) KeepFinite(statement, equals + 1, end);
    }
}

std::vector<Value> TakeValues(Statement& statement) {
    std::vector<Value> values;
    if (statement.Kind() != Verb::Insert) return values;
    const size_t open = ValuesOf(statement);
    if (open == kNone) return values;
    const auto pieces = statement.Pieces(open + 1, statement.PartnerOf(open));
    values.reserve(pieces.size());
    for (const auto& [begin, end] : pieces) {
        if (end != begin + 1) continue;
        auto value = ValueIn(statement.At(begin));
        if (!value) continue;
        values.push_back(std::move(*value));
        statement.ReplaceByParameter(begin);
    }
    return values;
}

}  // namespace dao::dialect
