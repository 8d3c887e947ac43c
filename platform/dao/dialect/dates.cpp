// Dates in statements: translates a day difference to a range and normalises the literals written to date
// columns.
#include "platform/dao/dialect/functions.h"
#include "platform/dao/dialect/translations.h"

#include <algorithm>
#include <initializer_list>
#include <optional>

using namespace Qt::StringLiterals;

namespace dao::dialect {
namespace {

void NormaliseLiteral(Statement& statement, size_t token) {
    const auto date = NormalDate(ValueOf(statement.At(token)));
    if (!date) throw Refusal{QString::fromUtf8(kTypeMismatch)};
    statement.Replace(token, Quoted(*date), TokenKind::Text);
}

/// Whether an expression starts after this token and does not continue one from before it.
bool BeginsBehind(const Token& token) {
    return token.kind == TokenKind::Removed || IsSign(token, "(") || IsSign(token, ",") ||
           IsOneOf(token, {"where", "and", "or", "not", "on", "having", "select"});
}

bool EndsBefore(const Token& token) {
    return token.kind == TokenKind::Removed || IsSign(token, ")") || IsSign(token, ",") ||
           IsOneOf(token, {"and", "or", "group", "order", "having", "union", "as", "from", "left", "right",
                           "inner", "join", "where"});
}

enum class Comparison { Less, LessOrEqual, Equal, GreaterOrEqual, Greater, NotEqual };

std::optional<Comparison> ComparisonOf(const Token& token) {
    if (token.kind != TokenKind::Sign) return std::nullopt;
    if (token.text == "<") return Comparison::Less;
    if (token.text == "<=") return Comparison::LessOrEqual;
    if (token.text == "=") return Comparison::Equal;
    if (token.text == ">=") return Comparison::GreaterOrEqual;
    if (token.text == ">") return Comparison::Greater;
    if (token.text == "<>") return Comparison::NotEqual;
    return std::nullopt;
}

/// The comparison after its operands are swapped: a < b is b > a.
Comparison Mirrored(Comparison comparison) {
    switch (comparison) {
        case Comparison::Less:
            return Comparison::Greater;
        case Comparison::LessOrEqual:
            return Comparison::GreaterOrEqual;
        case Comparison::GreaterOrEqual:
            return Comparison::LessOrEqual;
        case Comparison::Greater:
            return Comparison::Less;
        default:
            return comparison;
    }
}

/// A whole number of days with an optional sign, at most seven digits.
std::optional<int> WholeNumber(std::string_view sign, std::string_view digits) {
    if (digits.empty() || digits.size() > 7) return std::nullopt;
    int value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return sign == "-" ? -value : value;
}

/// A comparison of a datediff call with a number of days, in tokens [begin, end). `comparison` has the call
/// as its left operand.
struct Compared {
    size_t begin;
    size_t end;
    Comparison comparison;
    int days;
};

std::optional<Compared> ComparedOnTheRight(const Statement& s, size_t call, size_t close) {
    if (call > 0 && !BeginsBehind(s.At(call - 1))) return std::nullopt;
    const auto comparison = ComparisonOf(s.At(close + 1));
    if (!comparison) return std::nullopt;
    const bool sign = IsSign(s.At(close + 2), "-") || IsSign(s.At(close + 2), "+");
    const size_t number = close + (sign ? 3 : 2);
    if (s.At(number).kind != TokenKind::Number || !EndsBefore(s.At(number + 1))) return std::nullopt;
    const auto days = WholeNumber(sign ? s.At(number - 1).text : "", s.At(number).text);
    if (!days) return std::nullopt;
    return Compared{call, number + 1, *comparison, *days};
}

std::optional<Compared> ComparedOnTheLeft(const Statement& s, size_t call, size_t close) {
    if (call < 2 || !EndsBefore(s.At(close + 1))) return std::nullopt;
    const auto comparison = ComparisonOf(s.At(call - 1));
    if (!comparison || s.At(call - 2).kind != TokenKind::Number) return std::nullopt;
    const bool sign = call >= 3 && (IsSign(s.At(call - 3), "-") || IsSign(s.At(call - 3), "+"));
    const size_t begin = call - (sign ? 3 : 2);
    if (begin > 0 && !BeginsBehind(s.At(begin - 1))) return std::nullopt;
    const auto days = WholeNumber(sign ? s.At(begin).text : "", s.At(call - 2).text);
    if (!days) return std::nullopt;
    return Compared{begin, close + 1, Mirrored(*comparison), *days};
}

/// The comparison of the column's day with a day, as a range: column >= day, column < the day after, and so
/// on.
std::string Range(const std::string& column, bool mayBeEmpty, Comparison comparison, const std::string& day,
                  const std::string& dayAfter) {
    const auto from = [&](const std::string& first) { return column + ">='" + first + "'"; };
    // An empty date has no day, so it is not before any day.
    const auto before = [&](const std::string& end) {
        return (mayBeEmpty ? column + ">'' and " : "") + column + "<'" + end + "'";
    };
    switch (comparison) {
        case Comparison::Less:
            return "(" + before(day) + ")";
        case Comparison::LessOrEqual:
            return "(" + before(dayAfter) + ")";
        case Comparison::Greater:
            return "(" + from(dayAfter) + ")";
        case Comparison::GreaterOrEqual:
            return "(" + from(day) + ")";
        case Comparison::Equal:
            return "(" + from(day) + " and " + column + "<'" + dayAfter + "')";
        case Comparison::NotEqual:
            break;
    }
    return "(" + before(day) + " or " + from(dayAfter) + ")";
}

using Piece = std::pair<size_t, size_t>;

bool IsTextAlone(const Statement& s, const Piece& piece) {
    return piece.second == piece.first + 1 && s.At(piece.first).kind == TokenKind::Text;
}

/// Whether the engine should use the index of the order: the select wants the first row of an order within a
/// range that has one end. By default the engine uses the index of the range and sorts all rows found, which
/// for a day of this week is the whole journal. Scanning the index of the order ends at the first row within
/// the range; the worst case is one scan of the whole index.
bool FollowsOrder(const Statement& s, const ColumnRef& ranged, Comparison comparison, const Tables& tables) {
    if (comparison == Comparison::Equal || comparison == Comparison::NotEqual) return false;
    const Scope& scope = s.ScopeOf(ranged.begin);
    if (scope.top == kNone || s.At(scope.top + 1).text != "1") return false;
    if (scope.order == kNone || scope.tables.size() != 1 || scope.summary) return false;
    auto [begin, end] = s.Pieces(scope.order + 2, scope.end).front();
    if (IsOneOf(s.At(end - 1), {"asc", "desc"})) --end;
    const ColumnRef first = s.ColumnBetween(begin, end);
    return !first.column.empty() && !SameText(first.column, ranged.column) &&
           tables.LeadsIndex(scope.tables.front().name, first.column);
}

void TranslateDatediff(Statement& s, size_t call, const Tables& tables) {
    const size_t close = s.PartnerOf(call + 1);
    if (close == kNone) return;
    const auto pieces = s.Pieces(call + 2, close);
    if (pieces.size() != 3) return;
    for (const size_t i : {1, 2})
        if (IsTextAlone(s, pieces[i])) NormaliseLiteral(s, pieces[i].first);

    const std::string unit = IsTextAlone(s, pieces[0]) ? ValueOf(s.At(pieces[0].first)) : "";
    const bool dateFirst = IsTextAlone(s, pieces[1]);
    if (!SameText(unit, "d") || dateFirst == IsTextAlone(s, pieces[2])) return;
    const auto& [begin, end] = pieces[dateFirst ? 2 : 1];
    const ColumnRef ref = s.ColumnBetween(begin, end);
    const Column* column = s.Resolve(ref, tables);
    if (!column || (column->kind != ColumnKind::Date && column->kind != ColumnKind::DateText)) return;
    auto compared = ComparedOnTheRight(s, call, close);
    if (!compared) compared = ComparedOnTheLeft(s, call, close);
    if (!compared) return;

    const auto date = ReadMoment(ValueOf(s.At(pieces[dateFirst ? 1 : 2].first)));
    // column - date < n is column < date + n; date - column < n is column > date - n.
    const std::int64_t day = date->DayNumber() + (dateFirst ? compared->days : -compared->days);
    const Comparison comparison = dateFirst ? compared->comparison : Mirrored(compared->comparison);
    const auto dayText = DayText(day);
    const auto dayAfter = DayText(day + 1);
    if (!dayText || !dayAfter) return;
    // A sign before the column prevents the engine from using the column's index and has no other effect.
    const std::string sign = FollowsOrder(s, ref, comparison, tables) ? "+" : "";
    std::string range =
        Range(sign + s.Written(ref), column->kind == ColumnKind::DateText, comparison, *dayText, *dayAfter);
    s.Remove(compared->begin + 1, compared->end);
    s.Replace(compared->begin, std::move(range), TokenKind::Word);
}

void DatesInInsert(Statement& s, const Table& table) {
    const size_t into = s.Scopes().front().into;
    std::vector<ColumnRef> columns;
    size_t i = into + 2;
    if (IsSign(s.At(i), "(")) {
        const size_t close = s.PartnerOf(i);
        if (close == kNone) return;
        for (const auto& [begin, end] : s.Pieces(i + 1, close))
            columns.push_back(s.ColumnBetween(begin, end));
        i = close + 1;
    } else {
        for (const Column& column : table.columns) columns.push_back({0, 0, {}, column.name});
    }
    if (!IsWord(s.At(i), "values") || !IsSign(s.At(i + 1), "(")) return;
    const size_t close = s.PartnerOf(i + 1);
    if (close == kNone) return;
    const auto values = s.Pieces(i + 2, close);
    for (size_t k = 0; k < values.size() && k < columns.size(); ++k) {
        if (!IsTextAlone(s, values[k])) continue;
        const Column* column = table.Find(columns[k].column);
        if (column && column->kind == ColumnKind::Date) NormaliseLiteral(s, values[k].first);
    }
}

void DatesInUpdate(Statement& s, const Table& table) {
    const Scope& scope = s.Scopes().front();
    if (scope.set == kNone) return;
    const size_t end = scope.where == kNone ? s.Size() : scope.where;
    for (const auto& [begin, pieceEnd] : s.Pieces(scope.set + 1, end)) {
        if (pieceEnd < begin + 3 || s.At(pieceEnd - 1).kind != TokenKind::Text ||
            !IsSign(s.At(pieceEnd - 2), "="))
            continue;
        const ColumnRef ref = s.ColumnBetween(begin, pieceEnd - 2);
        const Column* column = ref.column.empty() ? nullptr : table.Find(ref.column);
        if (column && column->kind == ColumnKind::Date) NormaliseLiteral(s, pieceEnd - 1);
    }
}

}  // namespace

void DatediffToRange(Statement& statement, const Tables& tables) {
    for (size_t i = 0; i + 1 < statement.Size(); ++i)
        if (IsWord(statement.At(i), "datediff") && IsSign(statement.At(i + 1), "("))
            TranslateDatediff(statement, i, tables);
}

void DatesInWrites(Statement& statement, const Tables& tables) {
    const Scope& scope = statement.Scopes().front();
    if (scope.tables.empty()) return;
    const Table* table = tables.Find(scope.tables.front().name);
    if (!table || !table->HasDates()) return;
    if (statement.Kind() == Verb::Insert && scope.into != kNone) DatesInInsert(statement, *table);
    if (statement.Kind() == Verb::Update) DatesInUpdate(statement, *table);
}

}  // namespace dao::dialect
