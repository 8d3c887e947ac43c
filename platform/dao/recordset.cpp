#include "platform/dao/recordset.h"

#include "platform/dao/recordset_data.h"
#include "platform/text/numbers.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

QString WholeText(std::int64_t value) {
    constexpr std::int64_t kPlain = 1'000'000'000'000'000;  // 15 digits show as they are
    if (value > -kPlain && value < kPlain) return QString::number(value);
    return text::GeneralText(static_cast<double>(value));
}

RecordsetData& Require(const std::unique_ptr<RecordsetData>& data) {
    if (!data || data->closed) throw RuntimeError(u"对象无效或不再被设置。"_s);
    return *data;
}

RecordsetData& RequireCopied(const std::unique_ptr<RecordsetData>& data) {
    RecordsetData& required = Require(data);
    if (required.forwardOnly) throw RuntimeError(u"无效的操作。"_s);
    return required;
}

const RowWriter::Value* PendingValue(const RecordsetData& data, int column) {
    const auto found = std::find_if(data.pending.begin(), data.pending.end(),
                                    [&](const RowWriter::Value& value) { return value.column == column; });
    return found == data.pending.end() ? nullptr : &*found;
}

void LeaveEdit(RecordsetData& data) {
    data.editing = false;
    data.pending.clear();
}

}  // namespace

bool Field::IsNull() const {
    return data_->Current(column_).kind == CellKind::Null && !PendingValue(*data_, column_);
}

QString Field::Text() const {
    const Value value = data_->Current(column_);
    if (const auto* pending = PendingValue(*data_, column_)) return text::GeneralText(pending->value);
    switch (value.kind) {
        case CellKind::Null:
            break;
        case CellKind::Text:
            return QString::fromUtf8(value.text.data(), static_cast<qsizetype>(value.text.size()));
        case CellKind::Real:
            return text::GeneralText(value.real);
        case CellKind::Whole:
            return WholeText(value.whole);
    }
    return {};
}

double Field::Number() const {
    const Value value = data_->Current(column_);
    if (const auto* pending = PendingValue(*data_, column_)) return pending->value;
    switch (value.kind) {
        case CellKind::Null:
            break;
        case CellKind::Text:
            return text::Val(Text());
        case CellKind::Real:
            return value.real;
        case CellKind::Whole:
            return static_cast<double>(value.whole);
    }
    return 0;
}

Recordset::Recordset(std::unique_ptr<RecordsetData> data) : data_(std::move(data)) {
}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

bool Recordset::Eof() const {
    const RecordsetData& data = Require(data_);
    return data.row >= data.rows;
}

void Recordset::MoveFirst() {
    RecordsetData& data = RequireCopied(data_);
    data.row = 0;
    data.RequireRow();
    LeaveEdit(data);
}

void Recordset::MoveNext() {
    RecordsetData& data = Require(data_);
    data.RequireRow();
    if (data.forwardOnly)
        data.ReadOn();
    else
        ++data.row;
    LeaveEdit(data);
}

void Recordset::MoveLast() {
    RecordsetData& data = RequireCopied(data_);
    data.row = std::max(0, data.rows - 1);
    data.RequireRow();
    data.reachedLast = true;
    LeaveEdit(data);
}

int Recordset::RecordCount() const {
    const RecordsetData& data = RequireCopied(data_);
    return data.reachedLast ? data.rows : std::min(data.rows, 1);
}

int Recordset::FieldCount() const {
    return Require(data_).ColumnCount();
}

QString Recordset::FieldName(int ordinal) const {
    const RecordsetData& data = Require(data_);
    if (ordinal < 0 || ordinal >= data.ColumnCount()) throw RuntimeError(u"在此集合中找不到该项目"_s);
    return data.names[static_cast<size_t>(ordinal)];
}

Field Recordset::Fields(int ordinal) const {
    const RecordsetData& data = Require(data_);
    if (ordinal < 0 || ordinal >= data.ColumnCount()) throw RuntimeError(u"在此集合中找不到该项目"_s);
    return Field(&data, ordinal);
}

Field Recordset::Fields(QStringView name) const {
    const RecordsetData& data = Require(data_);
    return Field(&data, data.ColumnOf(name));
}

void Recordset::Edit() {
    RecordsetData& data = Require(data_);
    data.RequireRow();
    if (!data.writer) throw RuntimeError(u"不能更新。数据库或对象为只读。"_s);
    LeaveEdit(data);
    data.editing = true;
}

void Recordset::SetValue(QStringView name, double value) {
    RecordsetData& data = Require(data_);
    if (!data.editing) throw RuntimeError(u"没有 AddNew 或 Edit 的 Update 或 CancelUpdate。"_s);
    if (!std::isfinite(value)) throw RuntimeError(u"溢出"_s);
    const int column = data.ColumnOf(name);
    for (RowWriter::Value& each : data.pending) {
        if (each.column != column) continue;
        each.value = value;
        return;
    }
    data.pending.push_back({column, value});
}

void Recordset::Update() {
    RecordsetData& data = Require(data_);
    if (!data.editing) throw RuntimeError(u"没有 AddNew 或 Edit 的 Update 或 CancelUpdate。"_s);
    if (!data.pending.empty()) {
        const auto row = static_cast<size_t>(data.row);
        data.writer->Write(data.rowNumbers[row], data.pending, data.names);
        for (const RowWriter::Value& value : data.pending)
            data.cells[row * data.names.size() + static_cast<size_t>(value.column)] = {
                .real = value.value, .kind = CellKind::Real};
    }
    LeaveEdit(data);
}

void Recordset::Close() {
    RecordsetData& data = Require(data_);
    data = RecordsetData();
    data.closed = true;
}

}  // namespace dao
