// Translations of a whole select: literals, order, number of rows.
#include "platform/dao/dialect/translations.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao::dialect {

void RefuseSelectInto(const Statement& statement) {
    for (const Scope& scope : statement.Scopes())
        if (scope.isSelect && scope.into != kNone)
            throw Refusal{u"尚不支持用 SELECT INTO 语句把数据导出到其他文件。"_s};
}

void DoubleQuotesToText(Statement& statement) {
    for (size_t i = 0; i < statement.Size(); ++i) {
        const Token& token = statement.At(i);
        if (token.kind == TokenKind::Text && token.text.front() == '"')
            statement.Replace(i, Quoted(ValueOf(token)), TokenKind::Text);
    }
}

void TrueAndFalse(Statement& statement) {
    for (size_t i = 0; i < statement.Size(); ++i) {
        const bool yes = IsWord(statement.At(i), "true");
        if (!yes && !IsWord(statement.At(i), "false")) continue;
        const bool partOfName =
            (i > 0 && IsSign(statement.At(i - 1), ".")) || IsSign(statement.At(i + 1), ".");
        if (!partOfName) statement.Replace(i, yes ? "1" : "0", TokenKind::Number);
    }
}

namespace {

/// Whether the row number of the first table identifies the rows of the scope.
bool HasRowNumber(const Scope& scope) {
    return scope.isSelect && !scope.summary && !scope.fromSelect && !scope.tables.empty();
}

std::string RowNumber(const Scope& scope) {
    return std::string(scope.tables.front().written) + ".rowid";
}

}  // namespace

void OrderByRow(Statement& statement) {
    for (const Scope& scope : statement.Scopes()) {
        // The order of an inner select has no effect unless top limits its rows.
        if (!HasRowNumber(scope) || (scope.parent != kNone && scope.top == kNone)) continue;
        if (scope.order == kNone) {
            statement.Insert(scope.end, " order by " + RowNumber(scope));
        } else {
            // Descending is the exact reverse of ascending, equal rows included: one index serves both, and
            // the last of several equal rows comes first in descending order.
            const bool down = IsWord(statement.At(scope.end - 1), "desc");
            statement.Insert(scope.end, "," + RowNumber(scope) + (down ? " desc" : ""));
        }
    }
}

void TopToLimit(Statement& statement) {
    for (const Scope& scope : statement.Scopes()) {
        if (scope.top == kNone) continue;
        const std::string_view count = statement.At(scope.top + 1).text;
        const bool whole =
            std::all_of(count.begin(), count.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (!whole || IsWord(statement.At(scope.top + 2), "percent"))
            throw Refusal{u"语法错误：TOP 后面必须是一个整数。"_s};
        statement.Insert(scope.end, " limit " + std::string(count));
        statement.Remove(scope.top, scope.top + 2);
    }
}

std::string AddRowNumber(Statement& statement) {
    const Scope& scope = statement.Scopes().front();
    if (!HasRowNumber(scope) || scope.tables.size() != 1 || scope.from == kNone) return {};
    statement.Insert(scope.from, "," + RowNumber(scope) + " ");
    return std::string(scope.tables.front().name);
}

}  // namespace dao::dialect
