// A statement on its way to the engine: its tokens, the selects in it with their clauses and tables, and what
// the translations have changed so far.
//
// Always holds: token numbers do not change. A translation replaces or removes tokens and inserts text before
// one; Render writes the result.
#pragma once

#include "platform/dao/dialect/tables.h"
#include "platform/dao/dialect/tokens.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace dao::dialect {

constexpr size_t kNone = static_cast<size_t>(-1);

enum class Verb { Select, Insert, Update, Delete };

struct TableRef {
    std::string_view name;
    std::string_view alias;    ///< the name itself if there is none
    std::string_view written;  ///< the alias as it stands in the statement, brackets included
};

/// One select (or the whole of another statement) with what belongs to it and not to a select inside it.
struct Scope {
    size_t parent = kNone;
    size_t begin = 0;
    size_t end = 0;  ///< one behind its last token
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

/// A column as it stands in the statement, with its table's name before it or without.
struct ColumnRef {
    size_t begin = 0;
    size_t end = 0;  ///< one behind its last token
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
    /// The closing parenthesis of an opening one; kNone if it has none.
    size_t PartnerOf(size_t open) const { return partners_[open]; }
    /// The pieces between the commas of a stretch, those in parentheses uncut, as pairs of
    /// first and one-behind-last.
    std::vector<std::pair<size_t, size_t>> Pieces(size_t begin, size_t end) const;

    /// The column that begins at a token and fills the tokens up to end; an empty name if it is none.
    ColumnRef ColumnBetween(size_t begin, size_t end) const;
    /// The column whose last token stands before end.
    ColumnRef ColumnBefore(size_t end) const;
    /// What is known of a column, by the tables of its scope and the scopes around it; null if nothing.
    const Column* Resolve(const ColumnRef& column, const Tables& tables) const;
    /// A column as the engine shall read it.
    std::string Written(const ColumnRef& column) const;

    void Replace(size_t token, std::string text, TokenKind kind);
    void Remove(size_t begin, size_t end);
    /// Text of the engine's own, before a token (Size() is the end). In order of the calls.
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
    std::deque<std::string> own_;  ///< what replaced tokens point to
    std::vector<Insertion> insertions_;
    Token nothing_{TokenKind::Removed, {}, false};
};

}  // namespace dao::dialect
