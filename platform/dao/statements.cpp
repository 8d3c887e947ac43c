#include "platform/dao/statements.h"

#include "platform/dao/connection.h"

#include <QHash>

#include <algorithm>

namespace dao {
namespace {

constexpr std::size_t kMost = 48;

}  // namespace

bool StatementCache::IsRepeated(std::size_t hash) {
    if (std::find(seen_.begin(), seen_.end(), hash) != seen_.end()) return true;
    seen_[nextSeen_] = hash;
    nextSeen_ = (nextSeen_ + 1) % seen_.size();
    return false;
}

std::optional<ReadyStatement> StatementCache::Take(const QString& text, Wording wording, std::size_t hash) {
    const auto found = std::find_if(kept_.begin(), kept_.end(), [&](const ReadyStatement& each) {
        return each.hash == hash && each.wording == wording && each.text == text;
    });
    if (found == kept_.end()) return std::nullopt;
    ReadyStatement statement = std::move(*found);
    kept_.erase(found);
    return statement;
}

void StatementCache::Keep(ReadyStatement statement) {
    kept_.push_front(std::move(statement));
    if (kept_.size() <= kMost) return;
    sqlite3_finalize(kept_.back().prepared);
    kept_.pop_back();
}

Prepared::Prepared(Connection& connection, const QString& text, Wording wording, const QString& reported)
    : connection_(connection), reported_(reported) {
    connection_.Engine(reported_);
    const std::size_t hash = qHash(text);
    // The whole text of an insert is looked up only where it has no values.
    const bool insert = text.startsWith(u"insert", Qt::CaseInsensitive);
    if (!insert && TakeCached(text, wording, hash)) return;
    dialect::Translation translation = connection_.Translate(text, wording, reported_);
    if (translation.values.empty()) {
        if (insert && TakeCached(text, wording, hash)) return;
        repeated_ = connection_.Kept().IsRepeated(hash);
        statement_ = {text, wording, hash, std::move(translation), nullptr};
        return;
    }
    // Without its values an insert comes again where its text as a whole never does.
    values_ = std::move(translation.values);
    const QString words = QString::fromStdString(translation.sql);
    const std::size_t wordsHash = qHash(words);
    if (TakeCached(words, Wording::Engine, wordsHash)) return;
    repeated_ = connection_.Kept().IsRepeated(wordsHash);
    statement_ = {words, Wording::Engine, wordsHash, std::move(translation), nullptr};
}

bool Prepared::TakeCached(const QString& text, Wording wording, std::size_t hash) {
    auto kept = connection_.Kept().Take(text, wording, hash);
    if (kept) statement_ = std::move(*kept);
    return kept.has_value();
}

Prepared::~Prepared() {
    // A closed connection has finished its statements itself.
    if (!connection_.IsOpen() || !statement_.prepared) return;
    if (done_ && repeated_ && sqlite3_reset(statement_.prepared) == SQLITE_OK)
        connection_.Kept().Keep(std::move(statement_));
    else
        sqlite3_finalize(statement_.prepared);
}

void Prepared::Prepare() {
    if (!statement_.prepared) {
        sqlite3* const engine = connection_.Engine(reported_);
        const std::string& sql = statement_.translation.sql;
        const int code = sqlite3_prepare_v2(engine, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                            &statement_.prepared, nullptr);
        if (code != SQLITE_OK) connection_.Fail(code, reported_);
    }
    BindValues();
}

void Prepared::BindValues() {
    sqlite3_stmt* const statement = statement_.prepared;
    int place = 0;
    for (const dialect::Value& value : values_) {
        ++place;
        int code = SQLITE_OK;
        if (const auto* text = std::get_if<std::string>(&value))
            // Not copied: the values live until the statement is reset, and who takes it up again binds anew.
            code = sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()),
                                     SQLITE_STATIC);
        else if (const auto* real = std::get_if<double>(&value))
            code = sqlite3_bind_double(statement, place, *real);
        else
            code = sqlite3_bind_int64(statement, place, std::get<std::int64_t>(value));
        if (code != SQLITE_OK) connection_.Fail(code, reported_);
    }
}

}  // namespace dao
