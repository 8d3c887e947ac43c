// Translates like on a text column to = or a range, which can use an index.
#include "platform/dao/dialect/translations.h"

namespace dao::dialect {
namespace {

/// U+10FFFF, the largest code point, as UTF-8: no code or name contains it.
constexpr const char* kLastCharacter = "\xF4\x8F\xBF\xBF";

constexpr const char* kWildcards = "*?#[";

void TranslateLike(Statement& s, size_t like, const Tables& tables) {
    const Token& literal = s.At(like + 1);
    if (literal.kind != TokenKind::Text) return;
    const ColumnRef ref = s.ColumnBefore(like);
    const Column* column = s.Resolve(ref, tables);
    if (!column || (column->kind != ColumnKind::Text && column->kind != ColumnKind::DateText)) return;
    if (ref.begin > 0 && s.At(ref.begin - 1).kind == TokenKind::Sign && !IsSign(s.At(ref.begin - 1), "("))
        return;  // the end of a longer expression
    const std::string pattern = ValueOf(literal);
    const size_t wild = pattern.find_first_of(kWildcards);
    if (wild == std::string::npos) {
        s.Replace(like, "=", TokenKind::Sign);
        s.Insert(like + 2, " collate nocase");
    } else if (wild > 0 && wild + 1 == pattern.size() && pattern[wild] == '*') {
        const std::string name = s.Written(ref);
        const std::string begin = pattern.substr(0, wild);
        s.Insert(ref.begin, " (" + name + ">=" + Quoted(begin) + " collate nocase and " + name + "<" +
                                Quoted(begin + kLastCharacter) + " collate nocase and");
        if (!s.At(ref.begin).blankBefore) s.Insert(ref.begin, " ");
        s.Insert(like + 2, ")");
    }
}

}  // namespace

void LikeToRange(Statement& statement, const Tables& tables) {
    for (size_t i = 1; i + 1 < statement.Size(); ++i)
        if (IsWord(statement.At(i), "like")) TranslateLike(statement, i, tables);
}

}  // namespace dao::dialect
