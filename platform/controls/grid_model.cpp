#include "platform/controls/grid_model.h"

#include "platform/controls/paint.h"

#include <QFont>
#include <QGuiApplication>
#include <QStringList>

#include <algorithm>
#include <unordered_set>

namespace controls {
namespace {

constexpr std::size_t kRecent = 64;      // texts remembered for each column while loading
constexpr int kTrial = 512;              // cells after which a column without repeats is no longer searched
constexpr int kWorthwhile = kTrial / 8;  // repeats among them that keep the search going

/// Cheap, and good enough to keep the few dozen words of a column apart.
std::size_t Slot(const QString& text) {
    std::size_t mix = static_cast<std::size_t>(text.size()) * 131;
    for (const QChar c : text) mix = mix * 31 + c.unicode();
    return mix % kRecent;
}

}  // namespace

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) {
    cells_.resize(Cells(rows_));
}

void GridModel::SetRows(int rows) {
    if (rows == rows_) return;
    const bool grows = rows > rows_;
    const int first = grows ? rows_ - fixed_ : rows - fixed_;
    const int last = grows ? rows - fixed_ - 1 : rows_ - fixed_ - 1;
    if (!loading_) grows ? beginInsertRows({}, first, last) : beginRemoveRows({}, first, last);
    cells_.resize(Cells(rows));
    rows_ = rows;
    DropMarksFrom(rows_);
    if (!loading_) grows ? endInsertRows() : endRemoveRows();
}

void GridModel::SetCols(int cols) {
    if (cols == cols_) return;
    if (!loading_) beginResetModel();
    std::vector<QString> moved(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols));
    const int kept = std::min(cols, cols_);
    for (int row = 0; row < rows_; ++row) {
        const auto from = cells_.begin() + static_cast<std::ptrdiff_t>(At(row, 0));
        std::move(from, from + kept, moved.begin() + static_cast<std::ptrdiff_t>(row) * cols);
    }
    cells_ = std::move(moved);
    for (RowMarks& marks : marks_) marks.cells.erase(marks.cells.lower_bound(cols), marks.cells.end());
    cols_ = cols;
    recent_.resize(loading_ ? static_cast<std::size_t>(cols) : 0);
    if (!loading_) endResetModel();
}

void GridModel::SetFixedRows(int rows) {
    if (rows == fixed_) return;
    if (!loading_) beginResetModel();
    fixed_ = rows;
    if (rows_ <= fixed_) {
        rows_ = fixed_ + 1;
        cells_.resize(Cells(rows_));
    }
    if (!loading_) endResetModel();
}

void GridModel::SetText(int row, int col, const QString& text) {
    QString& cell = cells_[At(row, col)];
    if (cell == text) return;
    cell = text;
    EmitCellEdited(row, col);
}

void GridModel::EmitCellEdited(int row, int col) {
    if (loading_) return;
    if (row < fixed_) {
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
    } else {
        const QModelIndex cell = index(row - fixed_, col);
        Q_EMIT dataChanged(cell, cell);
    }
}

void GridModel::Clear() {
    std::fill(cells_.begin(), cells_.end(), QString());
    marks_.clear();
    if (loading_) return;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    Q_EMIT dataChanged(index(0, 0), index(rows_ - fixed_ - 1, cols_ - 1));
}

void GridModel::Insert(int row, const QStringList& cells) {
    if (!loading_) beginInsertRows({}, row - fixed_, row - fixed_);
    const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(At(row, 0));
    const auto first = cells_.insert(at, static_cast<std::size_t>(cols_), QString());
    std::copy(cells.begin(), cells.begin() + std::min<qsizetype>(cells.size(), cols_), first);
    ++rows_;
    ShiftMarks(row, 1);
    if (!loading_) endInsertRows();
}

void GridModel::Remove(int row) {
    if (!loading_) beginRemoveRows({}, row - fixed_, row - fixed_);
    const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(At(row, 0));
    cells_.erase(at, at + cols_);
    --rows_;
    marks_.erase(MarksFrom(row), MarksFrom(row + 1));
    ShiftMarks(row + 1, -1);
    if (!loading_) endRemoveRows();
}

std::vector<GridModel::RowMarks>::const_iterator GridModel::MarksFrom(int row) const {
    return std::ranges::lower_bound(marks_, row, {}, &RowMarks::row);
}

/// A load marks its rows from the top down, so nothing has to move for them.
GridModel::RowMarks& GridModel::MarksOf(int row) {
    const auto at = marks_.begin() + (MarksFrom(row) - marks_.cbegin());
    return at != marks_.end() && at->row == row ? *at : *marks_.insert(at, {.row = row, .cells = {}});
}

void GridModel::ShiftMarks(int from, int by) {
    for (auto at = marks_.begin() + (MarksFrom(from) - marks_.cbegin()); at != marks_.end(); ++at)
        at->row += by;
}

void GridModel::SetAlignment(int col, Qt::Alignment alignment) {
    const auto at = static_cast<std::size_t>(col);
    if (alignments_.size() <= at) alignments_.resize(at + 1, Qt::AlignLeft | Qt::AlignVCenter);
    alignments_[at] = alignment;
    if (!loading_) Q_EMIT dataChanged(index(0, col), index(rows_ - fixed_ - 1, col));
}

Qt::Alignment GridModel::Alignment(int col) const {
    const auto at = static_cast<std::size_t>(col);
    return at < alignments_.size() ? alignments_[at] : Qt::AlignLeft | Qt::AlignVCenter;
}

void GridModel::SetBack(int row, int col, const QColor& back) {
    MarksOf(row).cells[col].back = back;
    EmitCellEdited(row, col);
}

void GridModel::SetBold(int row, int col, bool bold) {
    MarksOf(row).cells[col].bold = bold;
    EmitCellEdited(row, col);
}

void GridModel::SetRowStyle(int row, int fromCol, const QColor& back, bool bold) {
    RowMarks& marks = MarksOf(row);
    marks.styledFrom = fromCol;
    marks.style = {.back = back, .bold = bold};
    if (loading_ || row < fixed_) return;
    Q_EMIT dataChanged(index(row - fixed_, fromCol), index(row - fixed_, cols_ - 1));
}

void GridModel::SetWordColor(int col, const QString& word, const QColor& ink) {
    auto& words = words_[col];
    const auto same =
        std::find_if(words.begin(), words.end(), [&](const auto& w) { return w.first == word; });
    if (same != words.end()) {
        same->second = ink;
    } else {
        words.emplace_back(word, ink);
    }
    if (!loading_ && col < cols_) Q_EMIT dataChanged(index(0, col), index(rows_ - fixed_ - 1, col));
}

const GridModel::Mark* GridModel::MarkOf(int row, int col) const {
    const auto marks = MarksFrom(row);
    if (marks == marks_.end() || marks->row != row) return nullptr;
    const auto mark = marks->cells.find(col);
    if (mark != marks->cells.end()) return &mark->second;
    return col >= marks->styledFrom ? &marks->style : nullptr;
}

void GridModel::BeginLoad(int dataRows) {
    beginResetModel();
    loading_ = true;
    endResetModel();
    // The header rows stay; the data rows are dropped before the new ones are reserved, so that a reload
    // never holds the list twice.
    cells_.resize(Cells(fixed_));
    rows_ = fixed_ + dataRows;
    cells_.reserve(RoomFor(rows_));
    cells_.resize(Cells(rows_));
    DropMarksFrom(fixed_);
    recent_.assign(static_cast<std::size_t>(cols_), Recent());
}

void GridModel::LoadCell(int row, int col, QString text) {
    Share(col, text);
    cells_[At(row, col)] = std::move(text);
}

void GridModel::Share(int col, QString& text) {
    if (text.isEmpty()) {
        text = QString();
        return;
    }
    if (!text.isDetached()) return;  // its owner hands out one text for many cells
    Recent& recent = recent_[static_cast<std::size_t>(col)];
    if (recent.tries >= kTrial && recent.hits < kWorthwhile) return;
    if (recent.texts.empty()) recent.texts.resize(kRecent);
    QString& seen = recent.texts[Slot(text)];
    if (recent.tries < kTrial) ++recent.tries;
    if (seen == text) {
        if (recent.hits < kTrial) ++recent.hits;
        text = seen;
    } else {
        seen = text;
    }
}

void GridModel::EndLoad() {
    beginResetModel();
    loading_ = false;
    recent_.clear();
    if (cells_.capacity() > 2 * RoomFor(rows_)) cells_.shrink_to_fit();  // left by a longer list
    endResetModel();
}

std::size_t GridModel::Bytes() const {
    constexpr std::size_t kBlockHead = 16 + sizeof(void*);  // the text's own head and the allocator's
    std::unordered_set<const void*> counted;
    std::size_t bytes = cells_.capacity() * sizeof(QString);
    for (const QString& cell : cells_) {
        if (cell.capacity() == 0 || !counted.insert(cell.constData()).second) continue;
        const std::size_t block = kBlockHead + 2 * (static_cast<std::size_t>(cell.capacity()) + 1);
        bytes += (block + 15) / 16 * 16;
    }
    return bytes;
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || loading_ ? 0 : rows_ - fixed_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cols_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || loading_) return {};
    const int row = index.row() + fixed_;
    const int col = index.column();
    switch (role) {
        case Qt::DisplayRole:
            return Text(row, col);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Alignment(col));
        case Qt::BackgroundRole: {
            const Mark* mark = MarkOf(row, col);
            return mark && mark->back.isValid() ? QVariant(QBrush(mark->back)) : QVariant();
        }
        case Qt::FontRole: {
            const Mark* mark = MarkOf(row, col);
            if (!mark || !mark->bold) return {};
            QFont bold = QGuiApplication::font();
            bold.setBold(true);
            return bold;
        }
        case Qt::ForegroundRole:
            return Ink(row, col);
        default:
            return {};
    }
}

QVariant GridModel::Ink(int row, int col) const {
    if (blockFirst_ > 0 && (row < blockFirst_ || row > blockLast_)) return QBrush(paint::kMuted);
    const auto words = words_.find(col);
    if (words == words_.end()) return {};
    for (const auto& [word, ink] : words->second)
        if (word == Text(row, col)) return QBrush(ink);
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return QAbstractTableModel::headerData(section, orientation, role);
    if (section < 0 || section >= cols_ || fixed_ == 0) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
    if (role == Qt::DecorationRole && headMarks_.contains(section)) return headMarks_.at(section);
    if (role != Qt::DisplayRole) return {};
    // A screen reader hears the upper rows too.
    QStringList words;
    for (int row = 0; row < fixed_; ++row)
        if (!words.contains(Text(row, section))) words << Text(row, section);
    return words.join(u' ');
}

bool GridModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant& value, int role) {
    if (orientation != Qt::Horizontal || role != Qt::DecorationRole || section < 0 || section >= cols_)
        return QAbstractTableModel::setHeaderData(section, orientation, value, role);
    headMarks_[section] = value.value<QColor>();
    Q_EMIT headerDataChanged(orientation, section, section);
    return true;
}

}  // namespace controls
