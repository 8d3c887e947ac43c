// A statement under translation: its tokens, its selects with their clauses and tables, and the changes made
// by the translations so far.
//
// Always holds: token numbers do not change. A translation replaces or removes tokens and inserts text before
// one; Render writes the result.
#pragma once

#include "platform/dao/dialect/tables.h"
#include "platform/dao/dialect/tokens.h"

#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace dao::dialect {

constexpr size_t kNone = static_cast<size_t>(-1);

enum class Verb { Select, Insert, Update, Delete };

struct TableRef {
    std::string_view name;
    std::string_view alias;    ///< the table's name if it has no alias
    std::string_view written;  ///< the alias as written in the statement, brackets included
};

/// One select, or a whole insert, update or delete. Clauses and tables of inner selects are not included.
struct Scope {
    size_t parent = kNone;
    size_t begin = 0;
    size_t end = 0;  ///< one past its last token
    size_t from = kNone;
    size_t into = kNone;
    size_t set = kNone;
    size_t where = kNone;
    size_t order = kNone;
    size_t top = kNone;
    bool isSelect = false;
    bool summary = false;     ///< grouped, distinct, a union, or with a sum or count in its list
    bool fromSelect = false;  ///< its first source is a select in parentheses
    std::vector<TableRef> tables;
};

/// A column as written in the statement; `table` is empty if the column is not qualified.
struct ColumnRef {
    size_t begin = 0;
    size_t end = 0;  ///< one past its last token
    std::string_view table;
    std::string_view column;
};

class Statement {
  public:
    /// Raises Refusal.
    explicit Statement(std::string_view text);

    Verb Kind() const { return verb_; }
    size_t Size() const { return tokens_.size(); }
    const Token& At(size_t i) const { return i < tokens_.size() ? tokens_[i] : nothing_; }
    const std::vector<Scope>& Scopes() const { return scopes_; }
    /// The innermost scope of a token.
    const Scope& ScopeOf(size_t token) const;
    /// The closing parenthesis that matches an opening one; kNone if unmatched.
    size_t PartnerOf(size_t open) const { return partners_[open]; }
    /// Splits the range [begin, end) at its commas outside parentheses. Each piece is a pair of its first
    /// token and one past its last.
    std::vector<std::pair<size_t, size_t>> Pieces(size_t begin, size_t end) const;

    /// The column that consists of exactly the tokens [begin, end); its name is empty if they are no column.
    ColumnRef ColumnBetween(size_t begin, size_t end) const;
    /// The column whose last token is just before end.
    ColumnRef ColumnBefore(size_t end) const;
    /// The definition of a column, looked up in the tables of its scope and the enclosing scopes; null if
    /// unknown.
    const Column* Resolve(const ColumnRef& column, const Tables& tables) const;
    /// The column's text for the engine.
    std::string Written(const ColumnRef& column) const;

    void Replace(size_t token, std::string text, TokenKind kind);
    /// A parameter takes the place of the token.
    void ReplaceByParameter(size_t token);
    void Remove(size_t begin, size_t end);
    /// Inserts engine text before a token; Size() is the end. Texts before the same token keep the call
    /// order.
    void Insert(size_t before, std::string text);
    std::string Render() const;

  private:
    friend class ScopeReader;

    struct Insertion {
        size_t before;
        std::string text;
    };

    Verb verb_;
    std::vector<Token> tokens_;
    std::vector<Scope> scopes_;
    std::vector<size_t> partners_;
    std::list<std::string> own_;  ///< owns the texts that replace tokens
    std::vector<Insertion> insertions_;
    Token nothing_{TokenKind::Removed, {}, false};
};

}  // namespace dao::dialect
