#include "platform/dao/connection.h"

#include "platform/dao/busy.h"
#include "platform/dao/cipher.h"
#include "platform/dao/engine.h"
#include "platform/dao/engine_functions.h"
#include "platform/dao/engine_words.h"
#include "platform/system/files.h"
#include "platform/system/stop_signals.h"
#include "platform/text/numbers.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <cctype>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr int kBusyMilliseconds = 2000;  // for what is soon over: a file being opened or closed elsewhere
constexpr int kBusyPause = 50;           // milliseconds between two tries to write

bool IsBusy(int code) {
    return (code & 0xff) == SQLITE_BUSY;
}

bool Contains(const std::string& declared, std::string_view part) {
    const auto same = [](char a, char b) { return std::toupper(static_cast<unsigned char>(a)) == b; };
    return std::search(declared.begin(), declared.end(), part.begin(), part.end(), same) != declared.end();
}

dialect::ColumnKind KindOf(std::string_view table, std::string_view column, const std::string& declared) {
    using dialect::ColumnKind;
    // The sending date is kept as the text of its picker.
    if (dialect::SameText(table, "B01") && dialect::SameText(column, "F101")) return ColumnKind::DateText;
    if (Contains(declared, "DATE")) return ColumnKind::Date;
    if (Contains(declared, "TEXT") || Contains(declared, "CHAR")) return ColumnKind::Text;
    return ColumnKind::Other;
}

std::string Lower(std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

/// A column of the answer of the engine's own question; nothing when it cannot be asked.
std::optional<std::vector<std::string>> Answers(sqlite3* engine, const std::string& question, int column) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(engine, question.c_str(), -1, &statement, nullptr) != SQLITE_OK) return {};
    std::vector<std::string> answers;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        answers.emplace_back(text ? text : "");
    }
    if (sqlite3_finalize(statement) != SQLITE_OK) return {};
    return answers;
}

}  // namespace

QByteArray PasswordIn(const QString& connect) {
    for (const QString& part : connect.split(u';')) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals > 0 && text::Trim(part.left(equals)).compare(u"PWD"_s, Qt::CaseInsensitive) == 0)
            return part.mid(equals + 1).toUtf8();
    }
    return {};
}

WhenBusy& whenBusy() {
    static WhenBusy inUse;
    return inUse;
}

MakeGroupStart& makeGroupStart() {
    static MakeGroupStart inUse;
    return inUse;
}

bool TableCache::LeadsIndex(std::string_view table, std::string_view column) const {
    std::string key = Lower(table);
    auto known = leading_.find(key);
    if (known == leading_.end()) {
        const auto indexes = Answers(engine_, "pragma index_list(" + dialect::Quoted(key) + ")", 1);
        if (!indexes) return false;
        std::vector<std::string> leading;
        for (const std::string& index : *indexes) {
            const auto columns = Answers(engine_, "pragma index_info(" + dialect::Quoted(index) + ")", 2);
            if (columns && !columns->empty()) leading.push_back(columns->front());
        }
        known = leading_.emplace(std::move(key), std::move(leading)).first;
    }
    return std::any_of(known->second.begin(), known->second.end(),
                       [&](const std::string& name) { return dialect::SameText(name, column); });
}

const dialect::Table* TableCache::Find(std::string_view name) const {
    std::string key = Lower(name);
    const auto known = known_.find(key);
    if (known != known_.end()) return &known->second;

    const std::string question = "pragma table_info(" + dialect::Quoted(key) + ")";
    const auto columns = Answers(engine_, question, 1);
    const auto declared = Answers(engine_, question, 2);
    // A table that could not be read is asked for again; the statement itself will say what is wrong.
    if (!columns || !declared || columns->empty() || columns->size() != declared->size()) return nullptr;
    dialect::Table table;
    for (std::size_t i = 0; i < columns->size(); ++i)
        table.columns.push_back({(*columns)[i], KindOf(key, (*columns)[i], (*declared)[i])});
    return &known_.emplace(std::move(key), std::move(table)).first->second;
}

Connection::Connection(const QString& path, const QString& connect, const QString& vfs,
                       const std::function<void(sqlite3*)>& prepare) {
    try {
        Open(path, connect, vfs, prepare);
    } catch (...) {
        DropEngine();
        throw;
    }
}

Connection::~Connection() {
    DropEngine();
}

void Connection::Open(const QString& path, const QString& connect, const QString& vfs,
                      const std::function<void(sqlite3*)>& prepare) {
    // Before the engine makes files beside it, which get the rights that it has itself.
    sys::KeepDatabaseToOwner(path);
    path_ = path;
    const QByteArray vfsName = vfs.toUtf8();
    // The program has one thread, so the engine need not lock itself at every call.
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &engine_,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_NOMUTEX,
                                     vfs.isEmpty() ? nullptr : vfsName.constData());
    if (code != SQLITE_OK) Fail(code, path);
    sqlite3_extended_result_codes(engine_, 1);
    sqlite3_busy_timeout(engine_, kBusyMilliseconds);
    Unlock(path, connect);
    Inspect(path, !PasswordIn(connect).isEmpty());
    Run("pragma temp_store=memory", path);
    Run("pragma cache_size=-65536", path);
    Run("pragma foreign_keys=off", path);
    if (prepare) prepare(engine_);
    Run("pragma journal_mode=wal", path);
    Run("pragma synchronous=full", path);
    // From its first read through the log on, other programs see that this one has the file open.
    Run("select 1 from sqlite_master limit 1", path);
    if (const int registered = RegisterFunctions(engine_); registered != SQLITE_OK) Fail(registered, path);
    tables_.SetEngine(engine_);
}

void Connection::Unlock(const QString& path, const QString& connect) {
    const QByteArray password = PasswordIn(connect);
    if (password.isEmpty()) return;
    const int code = sqlite3_key(engine_, password.constData(), static_cast<int>(password.size()));
    if (code != SQLITE_OK) Fail(code, path);
    for (const char* setting : kCipherSettings) Run(setting, path);
}

/// Refuses what cannot be worked with. A wrong password shows only at the first read.
void Connection::Inspect(const QString& path, bool withPassword) {
    if (sqlite3_db_readonly(engine_, "main") != 0)
        throw DatabaseError(EngineText(SQLITE_READONLY, "", path), path);
    Run("select count(*) from sqlite_master", path);
    if (QFileInfo(path).size() == 0) throw DatabaseError(EngineText(SQLITE_NOTADB, "", path), path);
    if (withPassword && !Answers(engine_, "select 1 from TE1 limit 1", 0))
        throw DatabaseError(EngineText(SQLITE_NOTADB, "", path), path);
    RequireWritable(path);
}

void Connection::RequireWritable(const QString& path) {
    const int code = TryToBegin();
    // Another program at its work does not keep this one out: what is to be written waits for its turn.
    if (IsBusy(code) && KeepsLog()) return;
    if (code != SQLITE_OK) Fail(code, path);
    Run("rollback", path);
}

/// Whether the file is written to through the log, so that it can be read meanwhile.
bool Connection::KeepsLog() {
    const auto mode = Answers(engine_, "pragma journal_mode", 0);
    return mode && !mode->empty() && mode->front() == "wal";
}

sqlite3* Connection::Engine(const QString& statement) const {
    if (!engine_) throw DatabaseError(u"对象无效或不再被设置。"_s, statement);
    if (lost_) throw DatabaseError(lost_->words, lost_->statement, true);
    return engine_;
}

dialect::Translation Connection::Translate(const QString& statement, Wording wording,
                                           const QString& reported) const {
    const QByteArray text = statement.toUtf8();
    const std::string_view words(text.constData(), static_cast<size_t>(text.size()));
    if (wording == Wording::Engine) return {dialect::Verb::Update, std::string(words), {}};
    try {
        return dialect::Translate(words, tables_, wording == Wording::SystemDynaset);
    } catch (const dialect::Refusal& refusal) {
        throw DatabaseError(refusal.text, reported);
    }
}

void Connection::BeginGroup(const QString& statement) {
    sys::EndIfStopped();
    if (inGroup_) return;
    int code = TryToBegin();
    if (IsBusy(code)) code = WaitAndBegin();
    if (code != SQLITE_OK) Fail(code, statement);
    inGroup_ = true;
    StartGroup(statement);
}

void Connection::StartGroup(const QString& statement) {
    if (!startMade_ && makeGroupStart()) {
        start_ = makeGroupStart()(engine_);
        startMade_ = true;
    }
    const int code = start_ ? start_->Run() : SQLITE_OK;
    if (code == SQLITE_OK) return;
    try {
        Fail(code, statement);
    } catch (const DatabaseError&) {
        // A group that did not begin as it should gets no statement.
        if (std::exchange(inGroup_, false)) sqlite3_exec(engine_, "rollback", nullptr, nullptr, nullptr);
        throw;
    }
}

/// Does not wait by itself: nobody would see why.
int Connection::TryToBegin() {
    sqlite3_busy_timeout(engine_, 0);
    const int code = sqlite3_exec(engine_, "begin immediate", nullptr, nullptr, nullptr);
    sqlite3_busy_timeout(engine_, kBusyMilliseconds);
    return code;
}

int Connection::WaitAndBegin() {
    int code = SQLITE_BUSY;
    const auto wait = [&] {
        const QDeadlineTimer end(whenBusy().patience);
        do {
            QThread::msleep(kBusyPause);
            sys::EndIfStopped();
            code = TryToBegin();
        } while (IsBusy(code) && !end.hasExpired());
        return !IsBusy(code);
    };
    if (whenBusy().handle)
        whenBusy().handle(wait);
    else
        wait();
    return code;
}

void Connection::CloseGroup() {
    if (lost_) {
        const Loss loss = *std::exchange(lost_, std::nullopt);
        throw DatabaseError(loss.words, loss.statement, true);
    }
    if (!inGroup_) return;
    int code = start_ ? start_->End() : SQLITE_OK;
    if (code == SQLITE_OK) code = sqlite3_exec(engine_, "commit", nullptr, nullptr, nullptr);
    inGroup_ = false;
    if (code == SQLITE_OK) return;
    const QString words = EngineText(code, sqlite3_errmsg(engine_), path_);
    if (sqlite3_get_autocommit(engine_) == 0) sqlite3_exec(engine_, "rollback", nullptr, nullptr, nullptr);
    throw DatabaseError(words, u"commit"_s, true);
}

void Connection::Fail(int code, const QString& statement) {
    // Others may have had the engine while a busy file was waited for.
    const bool last = engine_ && !IsBusy(code);
    const QString words = EngineText(code, last ? sqlite3_errmsg(engine_) : sqlite3_errstr(code), path_);
    if (inGroup_) {
        const int kind = code & 0xff;
        // Some errors take the engine's transaction with them; a full disk and an I/O error always take ours,
        // since nobody knows how much of the command would reach the file.
        if (sqlite3_get_autocommit(engine_) == 0 && (kind == SQLITE_FULL || kind == SQLITE_IOERR))
            sqlite3_exec(engine_, "rollback", nullptr, nullptr, nullptr);
        if (sqlite3_get_autocommit(engine_) != 0) {
            inGroup_ = false;
            lost_ = Loss{words, statement};
        }
    }
    throw DatabaseError(words, statement, lost_.has_value());
}

void Connection::Run(const char* sql, const QString& statement) {
    const int code = sqlite3_exec(engine_, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) Fail(code, statement);
}

/// What is still being read would keep the log.
void Connection::EndReads() {
    for (sqlite3_stmt* each = nullptr; (each = sqlite3_next_stmt(engine_, each));) sqlite3_reset(each);
}

void Connection::Checkpoint() {
    if (!engine_) return;
    EndReads();
    const int code =
        sqlite3_wal_checkpoint_v2(engine_, nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    // Whoever else has the file open brings the rest into it when he goes.
    if (code != SQLITE_OK && !IsBusy(code)) Fail(code, path_);
}

bool Connection::IsAlone() {
    if (!engine_) return true;
    CloseGroup();
    EndReads();
    // The engine gives up its log only when nobody else has the file open.
    return GiveUpLog(engine_);
}

void Connection::Abandon() {
    if (!engine_) return;
    if (inGroup_) sqlite3_exec(engine_, "rollback", nullptr, nullptr, nullptr);
    inGroup_ = false;
    lost_.reset();
    sqlite3_busy_timeout(engine_, 0);  // whoever is reported to go does not wait for others
    Close();
}

void Connection::Close() {
    if (!engine_) return;
    std::optional<DatabaseError> failure;
    try {
        CloseGroup();
        Checkpoint();
    } catch (const DatabaseError& error) {
        failure = error;
    }
    DropEngine();
    if (failure) throw DatabaseError(*failure);
}

void Connection::DropEngine() {
    if (!engine_) return;
    kept_.Clear();
    start_.reset();
    startMade_ = false;
    while (sqlite3_stmt* open = sqlite3_next_stmt(engine_, nullptr)) sqlite3_finalize(open);
    sqlite3_close(engine_);
    engine_ = nullptr;
    inGroup_ = false;
    lost_.reset();
}

}  // namespace dao
