#include "benchmarks/bare_engine.h"

#include "platform/dao/cipher.h"
#include "platform/dao/engine_functions.h"
#include "schema/names.h"

#include <cstdio>
#include <cstdlib>

namespace benchmarks {
namespace {

void Must(sqlite3* engine, int result, const char* doing) {
    if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return;
    std::fprintf(stderr, "%s: %s\n", doing, sqlite3_errmsg(engine));
    std::exit(2);
}

}  // namespace

BareStatement::BareStatement(sqlite3* engine, const QByteArray& text) : engine_(engine) {
    Must(engine_,
         sqlite3_prepare_v2(engine_, text.constData(), static_cast<int>(text.size()), &statement_, nullptr),
         text.constData());
}

BareStatement::~BareStatement() {
    sqlite3_finalize(statement_);
}

bool BareStatement::Step() {
    const int result = sqlite3_step(statement_);
    Must(engine_, result, "step");
    return result == SQLITE_ROW;
}

void BareStatement::Reset() {
    Must(engine_, sqlite3_reset(statement_), "reset");
}

void BareStatement::Bind(int place, double value) {
    Must(engine_, sqlite3_bind_double(statement_, place, value), "bind");
}

void BareStatement::Bind(int place, const QByteArray& value) {
    Must(engine_,
         sqlite3_bind_text(statement_, place, value.constData(), static_cast<int>(value.size()),
                           SQLITE_TRANSIENT),
         "bind");
}

void BareStatement::Bind(int place, sqlite3_int64 value) {
    Must(engine_, sqlite3_bind_int64(statement_, place, value), "bind");
}

void BareStatement::Insert(std::initializer_list<QByteArray> texts) {
    int place = 0;
    for (const QByteArray& text : texts) Bind(++place, text);
    Step();
    Reset();
}

int BareStatement::Columns() const {
    return sqlite3_column_count(statement_);
}

bool BareStatement::IsText(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_TEXT;
}

bool BareStatement::IsNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

double BareStatement::Number(int column) const {
    return sqlite3_column_double(statement_, column);
}

sqlite3_int64 BareStatement::Whole(int column) const {
    return sqlite3_column_int64(statement_, column);
}

QString BareStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement_, column));
}

BareEngine::BareEngine(const QString& path) {
    Must(engine_,
         sqlite3_open_v2(path.toUtf8().constData(), &engine_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                         nullptr),
         "open");
    const QByteArray key = schema::kPassword.toUtf8();
    Must(engine_, sqlite3_key(engine_, key.constData(), static_cast<int>(key.size())), "key");
    for (const char* setting : dao::kCipherSettings) BareStatement(engine_, setting).Step();
    for (const char* setting : {"PRAGMA temp_store=MEMORY", "PRAGMA cache_size=-65536",
                                "PRAGMA journal_mode=WAL", "PRAGMA synchronous=FULL"})
        BareStatement(engine_, setting).Step();
    // The statements of a command are caught as they reach the engine, with the functions that they call.
    Must(engine_, dao::RegisterFunctions(engine_), "functions");
}

BareEngine::~BareEngine() {
    if (own_) sqlite3_close(engine_);
}

void BareEngine::Run(const QByteArray& text) {
    BareStatement(engine_, text).Step();
}

QString BareEngine::Answer(const QByteArray& select) {
    BareStatement rows(engine_, select);
    return rows.Step() ? rows.Text(0) : QString();
}

double BareEngine::SumOfRow(const QByteArray& select, int from, int to) {
    BareStatement rows(engine_, select);
    double sum = 0;
    if (rows.Step())
        for (int i = from; i < to; ++i) sum += rows.Number(i);
    return sum;
}

}  // namespace benchmarks
