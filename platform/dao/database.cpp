#include "platform/dao/database.h"

#include "platform/dao/connection.h"
#include "platform/dao/recordset_data.h"
#include "platform/system/guard.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace dao {

struct Database::Impl {
    QString path, connect, vfs;
    std::shared_ptr<Connection> connection;
    int commandEnd = 0;
    int programEnd = 0;
    int abandon = 0;

    Impl(const QString& file, const QString& words, const QString& layer)
        : path(file), connect(words), vfs(layer) {}

    void Open(const std::function<void(sqlite3*)>& prepare) {
        connection = std::make_shared<Connection>(path, connect, vfs, prepare);
        Connection* const c = connection.get();
        commandEnd = sys::AddCommandEndHook([c] { c->CloseGroup(); });
        programEnd = sys::AddProgramEndHook([c] { c->Checkpoint(); });
        abandon = sys::AddAbandonHook([c] { c->Abandon(); });
    }

    void Close() {
        sys::RemoveCommandEndHook(commandEnd);
        sys::RemoveProgramEndHook(programEnd);
        sys::RemoveAbandonHook(abandon);
        connection->Close();
    }
};

std::unique_ptr<Database> Database::Open(const QString& path, const QString& connect, const QString& vfs,
                                         const std::function<void(sqlite3*)>& prepare) {
    auto impl = std::make_unique<Impl>(path, connect, vfs);
    impl->Open(prepare);
    return std::unique_ptr<Database>(new Database(std::move(impl)));
}

Database::Database(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {
}

Database::~Database() {
    try {
        impl_->Close();
    } catch (const DatabaseError& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
}

void Database::Execute(const QString& statement, const QString& reported) {
    Connection& connection = *impl_->connection;
    Prepared prepared(connection, statement, Wording::System, reported);
    if (prepared.Translation().verb == dialect::Verb::Select)
        throw DatabaseError(u"无法执行选择查询。"_s, reported);
    prepared.Prepare();
    connection.BeginGroup(reported);
    const int code = sqlite3_step(prepared);
    if (code != SQLITE_DONE) connection.Fail(code, reported);
    prepared.Done();
}

Recordset Database::OpenRecordset(const QString& statement, RecordsetType type) {
    const bool dynaset = type == RecordsetType::Dynaset;
    auto reader = std::make_unique<RowReader>(impl_->connection, statement,
                                              dynaset ? Wording::SystemDynaset : Wording::System);
    if (reader->Verb() != dialect::Verb::Select) throw DatabaseError(u"无效的操作。"_s, statement);
    return Recordset(ReadRows(std::move(reader), type == RecordsetType::ForwardOnly));
}

void Database::ExecuteEngine(const QString& statement) {
    Connection& connection = *impl_->connection;
    Prepared prepared(connection, statement, Wording::Engine, statement);
    prepared.Prepare();
    connection.BeginGroup(statement);
    const int code = sqlite3_step(prepared);
    if (code != SQLITE_DONE) connection.Fail(code, statement);
    prepared.Done();
}

Recordset Database::ReadEngine(const QString& select) {
    return Recordset(
        ReadRows(std::make_unique<RowReader>(impl_->connection, select, Wording::Engine), false));
}

void Database::CloseGroup() {
    impl_->connection->CloseGroup();
}

bool Database::InGroup() const {
    return impl_->connection->InGroup();
}

bool Database::IsAlone() {
    return impl_->connection->IsAlone();
}

void Database::WhileClosed(const std::function<void()>& work) {
    impl_->Close();
    work();
    impl_->Open({});
}

void Database::Close() {
    impl_->Close();
}

}  // namespace dao
