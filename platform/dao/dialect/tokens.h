// A statement cut into tokens. Literals stay untouched: every later step works on tokens and never on the
// text.
//
// Always holds: what the engine would run or ignore behind our back (a second statement, a comment, a
// parameter, its own operators) is refused here with Refusal, in Chinese, before it reaches the engine.
#pragma once

#include <QString>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace dao::dialect {

/// The statement cannot be translated. Database turns it into a DatabaseError with the caller's text.
struct Refusal {
    QString text;
};

enum class TokenKind {
    Word,       ///< a name or a word of the language, in any case
    Bracketed,  ///< [D/S]
    Text,       ///< 'abc' or "abc"
    Number,     ///< 12, 0.5, 1E+15; one too large to be held is refused
    Sign,       ///< an operator, a parenthesis, a comma, a point
    Removed     ///< taken out by a translation
};

struct Token {
    TokenKind kind;
    std::string_view text;  ///< as it will be written for the engine
    bool blankBefore;       ///< blanks separate it from the token before it
};

/// Cuts a statement (UTF-8). A closing semicolon is dropped. The tokens point into the statement.
std::vector<Token> Tokenize(std::string_view statement);

// Asked of every token by every translation, so they are inline.

inline char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// Case-blind in ASCII.
inline bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
}
/// True for a word of the language in any case: IsWord(token, "where").
inline bool IsWord(const Token& token, std::string_view word) {
    return token.kind == TokenKind::Word && SameText(token.text, word);
}
inline bool IsOneOf(const Token& token, std::initializer_list<std::string_view> words) {
    return token.kind == TokenKind::Word &&
           std::any_of(words.begin(), words.end(), [&](auto word) { return SameText(token.text, word); });
}
inline bool IsSign(const Token& token, std::string_view sign) {
    return token.kind == TokenKind::Sign && token.text == sign;
}

/// The name in a Word or Bracketed token.
std::string_view NameOf(const Token& token);
/// The value of a Text token: quotes off, doubled quotes single.
std::string ValueOf(const Token& token);
/// A text literal for the engine.
std::string Quoted(std::string_view value);

}  // namespace dao::dialect
