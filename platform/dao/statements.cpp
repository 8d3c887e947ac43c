#include "platform/dao/statements.h"

#include "platform/dao/connection.h"

#include <QHash>

#include <algorithm>

namespace dao {
namespace {

constexpr std::size_t kMost = 48;

}  // namespace

bool KeptStatements::ComesAgain(std::size_t hash) {
    if (std::find(seen_.begin(), seen_.end(), hash) != seen_.end()) return true;
    seen_[nextSeen_] = hash;
    nextSeen_ = (nextSeen_ + 1) % seen_.size();
    return false;
}

std::optional<ReadyStatement> KeptStatements::Take(const QString& text, Wording wording, std::size_t hash) {
    const auto found = std::find_if(kept_.begin(), kept_.end(), [&](const ReadyStatement& each) {
        return each.hash == hash && each.wording == wording && each.text == text;
    });
    if (found == kept_.end()) return std::nullopt;
    ReadyStatement statement = std::move(*found);
    kept_.erase(found);
    return statement;
}

void KeptStatements::Keep(ReadyStatement statement) {
    kept_.push_front(std::move(statement));
    if (kept_.size() <= kMost) return;
    sqlite3_finalize(kept_.back().prepared);
    kept_.pop_back();
}

Prepared::Prepared(Connection& connection, const QString& text, Wording wording, const QString& told)
    : connection_(connection), told_(told) {
    connection_.Engine(told_);
    const std::size_t hash = qHash(text);
    if (TakeKept(text, wording, hash)) return;
    dialect::Translation translation = connection_.Translate(text, wording, told_);
    if (translation.values.empty()) {
        comesAgain_ = connection_.Kept().ComesAgain(hash);
        statement_ = {text, wording, hash, std::move(translation), nullptr};
        return;
    }
    // Without its values an insert comes again where its text as a whole never does.
    values_ = std::move(translation.values);
    const QString words = QString::fromStdString(translation.sql);
    const std::size_t wordsHash = qHash(words);
    if (TakeKept(words, Wording::Engine, wordsHash)) return;
    comesAgain_ = connection_.Kept().ComesAgain(wordsHash);
    statement_ = {words, Wording::Engine, wordsHash, std::move(translation), nullptr};
}

bool Prepared::TakeKept(const QString& text, Wording wording, std::size_t hash) {
    auto kept = connection_.Kept().Take(text, wording, hash);
    if (kept) statement_ = std::move(*kept);
    return kept.has_value();
}

Prepared::~Prepared() {
    // A closed connection has finished its statements itself.
    if (!connection_.IsOpen() || !statement_.prepared) return;
    if (done_ && comesAgain_ && sqlite3_reset(statement_.prepared) == SQLITE_OK)
        connection_.Kept().Keep(std::move(statement_));
    else
        sqlite3_finalize(statement_.prepared);
}

void Prepared::Prepare() {
    if (!statement_.prepared) {
        sqlite3* const engine = connection_.Engine(told_);
        const std::string& sql = statement_.translation.sql;
        const int code = sqlite3_prepare_v2(engine, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                            &statement_.prepared, nullptr);
        if (code != SQLITE_OK) connection_.Fail(code, told_);
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
            code = sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()),
                                     SQLITE_TRANSIENT);
        else if (const auto* real = std::get_if<double>(&value))
            code = sqlite3_bind_double(statement, place, *real);
        else
            code = sqlite3_bind_int64(statement, place, std::get<std::int64_t>(value));
        if (code != SQLITE_OK) connection_.Fail(code, told_);
    }
}

}  // namespace dao
