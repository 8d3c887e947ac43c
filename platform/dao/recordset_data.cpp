#include "platform/dao/recordset_data.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// Which columns are declared BOOLEAN. They read as 0, or as -1 for any stored number that is not 0.
std::vector<bool> BooleanColumns(sqlite3_stmt* statement, int columns) {
    std::vector<bool> boolean(static_cast<size_t>(columns));
    for (int i = 0; i < columns; ++i) {
        const char* declared = sqlite3_column_decltype(statement, i);
        boolean[static_cast<size_t>(i)] = declared && dialect::SameText(declared, "BOOLEAN");
    }
    return boolean;
}

Cell RealCell(double value) {
    return {.real = value, .kind = CellKind::Real};
}

Cell WholeCell(std::int64_t value) {
    return {.whole = value, .kind = CellKind::Whole};
}

Cell ReadCell(RecordsetData& data, sqlite3_value* value, bool boolean) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER: {
            const std::int64_t whole = sqlite3_value_int64(value);
            return WholeCell(boolean && whole != 0 ? -1 : whole);
        }
        case SQLITE_FLOAT: {
            const double real = sqlite3_value_double(value);
            return boolean ? WholeCell(real == 0 ? 0 : -1) : RealCell(real);
        }
        default: {
            const auto* text = static_cast<const char*>(sqlite3_value_blob(value));
            return data.TextCell({text ? text : "", static_cast<size_t>(sqlite3_value_bytes(value))});
        }
    }
}

}  // namespace

std::unique_ptr<RecordsetData> ReadRows(const std::shared_ptr<Connection>& connection, Prepared& prepared,
                                        const QString& statement) {
    const std::string& table = prepared.Translation().table;
    auto data = std::make_unique<RecordsetData>();
    const bool writable = !table.empty();
    const int columns = sqlite3_column_count(prepared) - (writable ? 1 : 0);
    // Most sets have one row; reserving its cells avoids repeated growth.
    data->names.reserve(static_cast<size_t>(columns));
    data->cells.reserve(static_cast<size_t>(columns));
    for (int i = 0; i < columns; ++i)
        data->names.push_back(QString::fromUtf8(sqlite3_column_name(prepared, i)));
    const std::vector<bool> boolean = BooleanColumns(prepared, columns);
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(prepared)) == SQLITE_ROW) {
        for (int i = 0; i < columns; ++i)
            data->cells.push_back(
                ReadCell(*data, sqlite3_column_value(prepared, i), boolean[static_cast<size_t>(i)]));
        if (writable) data->rowNumbers.push_back(sqlite3_column_int64(prepared, columns));
        ++data->rows;
    }
    if (code != SQLITE_DONE) connection->Fail(code, statement);
    prepared.Done();
    if (writable) data->writer = std::make_unique<RowWriter>(connection, table, statement);
    return data;
}

int RecordsetData::ColumnOf(QStringView name) const {
    for (size_t i = 0; i < names.size(); ++i)
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
    throw RuntimeError(u"在此集合中找不到该项目"_s);
}

void RecordsetData::RequireRow() const {
    if (closed) throw RuntimeError(u"对象无效或不再被设置。"_s);
    if (row >= rows) throw RuntimeError(u"无当前记录。"_s);
}

const Cell& RecordsetData::CurrentCell(int column) const {
    RequireRow();
    return cells[static_cast<size_t>(row) * names.size() + static_cast<size_t>(column)];
}

Cell RecordsetData::TextCell(std::string_view value) {
    constexpr size_t kLargest = std::numeric_limits<std::uint32_t>::max();
    if (arena.size() + value.size() > kLargest) throw std::bad_alloc();
    const auto offset = static_cast<std::uint32_t>(arena.size());
    arena.append(value);
    return {.offset = offset, .kind = CellKind::Text, .length = static_cast<std::uint32_t>(value.size())};
}

RowWriter::RowWriter(std::shared_ptr<Connection> connection, std::string table, QString statement)
    : connection_(std::move(connection)), table_(std::move(table)), statement_(std::move(statement)) {
}

void RowWriter::Prepare(const std::vector<Value>& values, const std::vector<QString>& names) {
    columns_.clear();
    std::string sql;
    for (const Value& value : values) {
        columns_.push_back(value.column);
        sql +=
            (sql.empty() ? "" : ",") + ("[" + names[static_cast<size_t>(value.column)].toStdString() + "]=?");
    }
    sql = "update [" + table_ + "] set " + sql + " where rowid=?";
    prepared_ =
        std::make_unique<Prepared>(*connection_, QString::fromStdString(sql), Wording::Engine, statement_);
    prepared_->Prepare();
}

void RowWriter::Write(std::int64_t row, const std::vector<Value>& values, const std::vector<QString>& names) {
    sqlite3* const engine = connection_->Engine(statement_);
    const auto same = [](int column, const Value& value) { return column == value.column; };
    if (!prepared_ || !std::equal(columns_.begin(), columns_.end(), values.begin(), values.end(), same))
        Prepare(values, names);
    connection_->BeginGroup(statement_);
    int position = 0;
    for (const Value& value : values) sqlite3_bind_double(*prepared_, ++position, value.value);
    sqlite3_bind_int64(*prepared_, ++position, row);
    const int code = sqlite3_step(*prepared_);
    if (code != SQLITE_DONE) {
        prepared_.reset();
        connection_->Fail(code, statement_);
    }
    sqlite3_reset(*prepared_);
    prepared_->Done();
    if (sqlite3_changes(engine) == 0) throw DatabaseError(u"记录已被删除。"_s, statement_);
}

}  // namespace dao
