#include "platform/dao/recordset_data.h"

#include <algorithm>
#include <limits>
#include <utility>

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

}  // namespace

RowReader::RowReader(std::shared_ptr<Connection> connection, const QString& statement, Wording wording)
    : connection_(std::move(connection)),
      statement_(statement),
      prepared_(*connection_, statement_, wording, statement_) {
}

void RowReader::Begin() {
    prepared_.Prepare();
    columns_ = sqlite3_column_count(prepared_) - (Writable() ? 1 : 0);
    boolean_ = BooleanColumns(prepared_, columns_);
}

std::vector<QString> RowReader::Names() const {
    std::vector<QString> names(static_cast<size_t>(columns_));
    for (int i = 0; i < columns_; ++i)
        names[static_cast<size_t>(i)] = QString::fromUtf8(sqlite3_column_name(prepared_, i));
    return names;
}

std::unique_ptr<RowWriter> RowReader::Writer() const {
    if (!Writable()) return nullptr;
    return std::make_unique<RowWriter>(connection_, prepared_.Translation().table, statement_);
}

bool RowReader::Next() {
    connection_->Engine(statement_);  // the file may have been closed since the last row
    // Taken up again, the engine would begin anew.
    if (std::exchange(begun_, true) && sqlite3_stmt_busy(prepared_) == 0)
        throw DatabaseError(u"对象无效或不再被设置。"_s, statement_);
    const int code = sqlite3_step(prepared_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) connection_->Fail(code, statement_);
    prepared_.Done();
    return false;
}

Value RowReader::Read(int column) const {
    if (!connection_->IsOpen()) connection_->Engine(statement_);  // raises
    sqlite3_value* const value = sqlite3_column_value(prepared_, column);
    const bool boolean = boolean_[static_cast<size_t>(column)];
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER: {
            const std::int64_t whole = sqlite3_value_int64(value);
            return {.kind = CellKind::Whole, .whole = boolean && whole != 0 ? -1 : whole};
        }
        case SQLITE_FLOAT: {
            const double real = sqlite3_value_double(value);
            if (boolean) return {.kind = CellKind::Whole, .whole = real == 0 ? 0 : -1};
            return {.kind = CellKind::Real, .real = real};
        }
        default: {
            const auto* text = static_cast<const char*>(sqlite3_value_blob(value));
            return {.kind = CellKind::Text,
                    .text = {text ? text : "", static_cast<size_t>(sqlite3_value_bytes(value))}};
        }
    }
}

std::unique_ptr<RecordsetData> ReadRows(std::unique_ptr<RowReader> reader, bool forwardOnly) {
    auto data = std::make_unique<RecordsetData>();
    reader->Begin();
    data->names = reader->Names();
    if (forwardOnly) {
        data->forwardOnly = true;
        data->reader = std::move(reader);
        data->ReadOn();
        return data;
    }
    data->writer = reader->Writer();
    const int columns = data->ColumnCount();
    // Most sets have one row; reserving its cells avoids repeated growth.
    data->cells.reserve(data->names.size());
    for (; reader->Next(); ++data->rows) {
        for (int i = 0; i < columns; ++i) data->cells.push_back(data->Copied(reader->Read(i)));
        if (data->writer) data->rowNumbers.push_back(reader->RowNumber());
    }
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

void RecordsetData::ReadOn() {
    rows = 0;
    if (reader->Next())
        rows = 1;
    else
        reader.reset();
}

Value RecordsetData::Current(int column) const {
    RequireRow();
    if (forwardOnly) return reader->Read(column);
    const Cell& cell = cells[static_cast<size_t>(row) * names.size() + static_cast<size_t>(column)];
    switch (cell.kind) {
        case CellKind::Null:
            break;
        case CellKind::Text:
            return {.kind = cell.kind, .text = std::string_view(arena).substr(cell.offset, cell.length)};
        case CellKind::Real:
            return {.kind = cell.kind, .real = cell.real};
        case CellKind::Whole:
            return {.kind = cell.kind, .whole = cell.whole};
    }
    return {};
}

Cell RecordsetData::Copied(const Value& value) {
    switch (value.kind) {
        case CellKind::Null:
            break;
        case CellKind::Text: {
            constexpr size_t kLargest = std::numeric_limits<std::uint32_t>::max();
            if (arena.size() + value.text.size() > kLargest) throw std::bad_alloc();
            const auto offset = static_cast<std::uint32_t>(arena.size());
            arena.append(value.text);
            return {.offset = offset,
                    .kind = CellKind::Text,
                    .length = static_cast<std::uint32_t>(value.text.size())};
        }
        case CellKind::Real:
            return {.real = value.real, .kind = CellKind::Real};
        case CellKind::Whole:
            return {.whole = value.whole, .kind = CellKind::Whole};
    }
    return {};
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
