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
    if (auto kept = connection_.Kept().Take(text, wording, hash)) {
        statement_ = std::move(*kept);
        return;
    }
    comesAgain_ = connection_.Kept().ComesAgain(hash);
    statement_ = {text, wording, hash, connection_.Translate(text, wording), nullptr};
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
    if (statement_.prepared) return;
    sqlite3* const engine = connection_.Engine(told_);
    const std::string& sql = statement_.translation.sql;
    const int code = sqlite3_prepare_v2(engine, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                        &statement_.prepared, nullptr);
    if (code != SQLITE_OK) connection_.Fail(code, told_);
}

}  // namespace dao
