#include "platform/dao/dialect/statement.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dao::dialect {
namespace {

bool IsName(const Token& token) {
    return token.kind == TokenKind::Word || token.kind == TokenKind::Bracketed;
}

Verb ReadVerb(const std::vector<Token>& tokens) {
    if (!tokens.empty()) {
        if (IsWord(tokens[0], "select")) return Verb::Select;
        if (IsWord(tokens[0], "insert")) return Verb::Insert;
        if (IsWord(tokens[0], "update")) return Verb::Update;
        if (IsWord(tokens[0], "delete")) return Verb::Delete;
    }
    throw Refusal{u"无效的 SQL 语句；期待 DELETE、INSERT、SELECT 或 UPDATE。"_s};
}

}  // namespace

const Column* Table::Find(std::string_view column) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& each) { return SameText(each.name, column); });
    return found == columns.end() ? nullptr : &*found;
}

/// Reads the tokens in one pass and records the scopes, their clauses and their tables.
class ScopeReader {
  public:
    explicit ScopeReader(Statement& statement) : s_(statement) {}

    void Run() {
        s_.partners_.assign(s_.tokens_.size(), kNone);
        levels_.reserve(8);  // deeper ones are rare
        OpenScope(0);
        for (size_t i = 0; i < s_.tokens_.size(); ++i) Take(i);
        for (Scope& scope : s_.scopes_)
            if (scope.end == 0) scope.end = s_.tokens_.size();
    }

  private:
    enum class Paren { Select, Join, Other };
    struct Level {
        size_t scope;
        size_t open;
        Paren kind;
    };
    struct State {
        bool expectsTable = false;
        bool inSources = false;
        bool inList = true;
    };

    void OpenScope(size_t begin) {
        Scope scope;
        scope.parent = levels_.empty() ? kNone : levels_.back().scope;
        scope.begin = begin;
        scope.isSelect = IsWord(s_.At(begin), "select");
        s_.scopes_.push_back(std::move(scope));
        states_.emplace_back();
        levels_.push_back({s_.scopes_.size() - 1, begin, Paren::Select});
    }

    void Take(size_t i) {
        const Token& token = s_.tokens_[i];
        if (IsSign(token, "("))
            Open(i);
        else if (IsSign(token, ")"))
            Close(i);
        else if (IsSign(token, ","))
            Comma();
        else if (IsName(token))
            Word(i);
    }

    void Open(size_t i) {
        const size_t scope = levels_.back().scope;
        State& state = states_[scope];
        if (IsWord(s_.At(i + 1), "select")) {
            if (state.expectsTable && s_.scopes_[scope].tables.empty()) s_.scopes_[scope].fromSelect = true;
            state.expectsTable = false;
            OpenScope(i + 1);
            levels_.back().open = i;
        } else {
            levels_.push_back({scope, i, state.expectsTable ? Paren::Join : Paren::Other});
        }
    }

    void Close(size_t i) {
        if (levels_.size() == 1) return;  // unmatched: the engine reports the error
        const Level level = levels_.back();
        levels_.pop_back();
        s_.partners_[level.open] = i;
        if (level.kind == Paren::Select) s_.scopes_[level.scope].end = i;
    }

    void Comma() {
        State& state = states_[levels_.back().scope];
        if (state.inSources && levels_.back().kind != Paren::Other) state.expectsTable = true;
    }

    void Word(size_t i) {
        const Level level = levels_.back();
        Scope& scope = s_.scopes_[level.scope];
        State& state = states_[level.scope];
        const Token& token = s_.tokens_[i];
        if (state.expectsTable && !IsOneOf(token, {"select", "into"})) return TakeTable(i, scope, state);
        if (state.inList && IsSign(s_.At(i + 1), "(") &&
            IsOneOf(token, {"sum", "count", "avg", "min", "max", "total"}))
            scope.summary = true;
        if (level.kind == Paren::Other) return;
        if (state.inSources && IsWord(token, "join")) state.expectsTable = true;
        if (level.kind == Paren::Select) Clause(i, scope, state);
    }

    void TakeTable(size_t i, Scope& scope, State& state) {
        state.expectsTable = false;
        size_t written = i;
        const size_t next = i + 1;
        if (IsWord(s_.At(next), "as") && IsName(s_.At(next + 1)))
            written = next + 1;
        else if (scope.isSelect && IsName(s_.At(next)) &&
                 !IsOneOf(s_.At(next), {"left", "right", "inner", "outer", "full", "cross", "join", "on",
                                        "where", "group", "order", "having", "union", "in", "natural"}))
            written = next;
        const Token& shown = s_.At(written);
        scope.tables.push_back({NameOf(s_.At(i)), NameOf(shown), shown.text});
    }

    void Clause(size_t i, Scope& scope, State& state) {
        const Token& token = s_.tokens_[i];
        if (IsWord(token, "from")) {
            scope.from = i;
            state = {.expectsTable = true, .inSources = true, .inList = false};
        } else if (IsWord(token, "into")) {
            scope.into = i;
            state.expectsTable = !scope.isSelect;
        } else if (i == 0 && s_.verb_ == Verb::Update) {
            state.expectsTable = true;
        } else if (IsWord(token, "set")) {
            scope.set = i;
        } else if (IsWord(token, "where")) {
            scope.where = i;
            state.inSources = false;
        } else if (IsWord(token, "group")) {
            scope.summary = true;
            state.inSources = false;
        } else if (IsWord(token, "order")) {
            scope.order = i;
            state.inSources = false;
        } else if (IsOneOf(token, {"distinct", "union"})) {
            scope.summary = true;
        } else if (IsWord(token, "top") && state.inList && scope.top == kNone &&
                   s_.At(i + 1).kind == TokenKind::Number) {
            scope.top = i;
        }
    }

    Statement& s_;
    std::vector<State> states_;
    std::vector<Level> levels_;
};

Statement::Statement(std::string_view text) : tokens_(Tokenize(text)) {
    verb_ = ReadVerb(tokens_);
    ScopeReader(*this).Run();
}

const Scope& Statement::ScopeOf(size_t token) const {
    // Scopes are sorted by begin, so the last one that contains the token is the innermost.
    const auto found = std::find_if(scopes_.rbegin(), scopes_.rend(), [&](const Scope& scope) {
        return scope.begin <= token && token < scope.end;
    });
    return found == scopes_.rend() ? scopes_.front() : *found;
}

std::vector<std::pair<size_t, size_t>> Statement::Pieces(size_t begin, size_t end) const {
    std::vector<std::pair<size_t, size_t>> pieces;
    pieces.reserve((end - begin) / 2 + 1);
    size_t from = begin;
    for (size_t i = begin; i < end; ++i) {
        if (IsSign(tokens_[i], "(") && partners_[i] != kNone) i = partners_[i];
        if (IsSign(tokens_[i], ",")) {
            pieces.emplace_back(from, i);
            from = i + 1;
        }
    }
    pieces.emplace_back(from, end);
    return pieces;
}

ColumnRef Statement::ColumnBetween(size_t begin, size_t end) const {
    if (end == begin + 1 && IsName(At(begin))) return {begin, end, {}, NameOf(At(begin))};
    if (end == begin + 3 && IsName(At(begin)) && IsSign(At(begin + 1), ".") && IsName(At(begin + 2)))
        return {begin, end, NameOf(At(begin)), NameOf(At(begin + 2))};
    return {};
}

ColumnRef Statement::ColumnBefore(size_t end) const {
    if (end >= 3 && IsSign(At(end - 2), ".")) return ColumnBetween(end - 3, end);
    return end >= 1 ? ColumnBetween(end - 1, end) : ColumnRef();
}

const Column* Statement::Resolve(const ColumnRef& column, const Tables& tables) const {
    if (column.column.empty()) return nullptr;
    const Scope* scope = &ScopeOf(column.begin);
    for (;;) {
        for (const TableRef& ref : scope->tables) {
            if (!column.table.empty() && !SameText(ref.alias, column.table)) continue;
            const Table* table = tables.Find(ref.name);
            const Column* found = table ? table->Find(column.column) : nullptr;
            if (found) return found;
        }
        if (scope->parent == kNone) return nullptr;
        scope = &scopes_[scope->parent];
    }
}

std::string Statement::Written(const ColumnRef& column) const {
    std::string text;
    for (size_t i = column.begin; i < column.end; ++i) text += tokens_[i].text;
    return text;
}

void Statement::Replace(size_t token, std::string text, TokenKind kind) {
    own_.push_back(std::move(text));
    tokens_[token].text = own_.back();
    tokens_[token].kind = kind;
}

void Statement::ReplaceByParameter(size_t token) {
    tokens_[token].text = "?";
    tokens_[token].kind = TokenKind::Sign;
}

void Statement::Remove(size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) tokens_[i].kind = TokenKind::Removed;
}

void Statement::Insert(size_t before, std::string text) {
    insertions_.push_back({before, std::move(text)});
}

std::string Statement::Render() const {
    std::vector<const Insertion*> insertions;
    for (const Insertion& insertion : insertions_) insertions.push_back(&insertion);
    std::stable_sort(insertions.begin(), insertions.end(),
                     [](const Insertion* a, const Insertion* b) { return a->before < b->before; });
    size_t length = 1;
    for (const Token& token : tokens_) length += token.text.size() + 1;
    std::string sql;
    sql.reserve(length + 64 * insertions.size());
    auto insertion = insertions.begin();
    for (size_t i = 0; i <= tokens_.size(); ++i) {
        for (; insertion != insertions.end() && (*insertion)->before == i; ++insertion)
            sql.append((*insertion)->text);
        if (i == tokens_.size() || tokens_[i].kind == TokenKind::Removed) continue;
        if (tokens_[i].blankBefore) sql += ' ';
        sql += tokens_[i].text;
    }
    return sql;
}

}  // namespace dao::dialect
