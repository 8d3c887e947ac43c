#include "platform/controls/box.h"
#include "platform/controls/grid_parts.h"
#include "platform/controls/grid_state.h"
#include "platform/controls/paint.h"
#include "platform/errors.h"

#include <QAccessible>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kRowHeight = 24;
constexpr int kBarWidth = 3;
constexpr int kCellFrame = 2;

/// Between the two scroll bars, in their colour.
QWidget* MakeCorner(QWidget* parent) {
    auto* corner = new QWidget(parent);
    corner->setAutoFillBackground(true);
    QPalette low = corner->palette();
    low.setColor(QPalette::Window, paint::kSurfaceLow);
    corner->setPalette(low);
    return corner;
}

/// What of the toolkit's table a list has, and what not.
void SetUp(QTableView& view) {
    view.setShowGrid(false);
    view.setAlternatingRowColors(true);
    view.setSelectionBehavior(QTableView::SelectRows);
    view.setSelectionMode(QTableView::ContiguousSelection);
    view.setEditTriggers(QTableView::NoEditTriggers);
    view.setVerticalScrollMode(QTableView::ScrollPerItem);
    view.setHorizontalScrollMode(QTableView::ScrollPerPixel);
    view.setAutoScroll(false);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false);
    view.setFocusPolicy(Qt::StrongFocus);
    view.setAttribute(Qt::WA_InputMethodEnabled, false);
    view.setCornerButtonEnabled(false);
    view.setCornerWidget(MakeCorner(&view));
    auto* heads = new RowHeads(&view);
    view.setVerticalHeader(heads);
    heads->hide();
    heads->setMinimumSectionSize(kRowHeight);
    heads->setDefaultSectionSize(kRowHeight);
    heads->setSectionResizeMode(QHeaderView::Fixed);
}

}  // namespace

FlexGrid::State::State(FlexGrid& grid)
    : model(new GridModel(&grid)),
      header(new GridHeader(*model, &grid)),
      columns(new GridColumns(&grid, header)),
      cover(grid, *model) {
    columns->SetCount(model->Cols());
}

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent), state_(std::make_unique<State>(*this)) {
    setModel(state_->model);
    setHorizontalHeader(state_->header);
    SetUp(*this);
    setItemDelegate(new GridDelegate(this));
    SetFramed(false);
    connect(state_->header, &QHeaderView::sectionResized, this, [this] { state_->cover.Place(); });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, state_->header->viewport(),
            [this] { state_->header->viewport()->update(); });
    state_->columns->Show();
    Highlight();
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::CheckRow(int row, int first) const {
    if (row < first || row >= Rows()) throw RuntimeError(u"下标越界"_s);
}

void FlexGrid::CheckCol(int col) const {
    if (col < 0 || col >= Cols()) throw RuntimeError(u"下标越界"_s);
}

// ---------------------------------------------------------------- counts

int FlexGrid::Rows() const {
    return state_->model->Rows();
}

int FlexGrid::Cols() const {
    return state_->model->Cols();
}

int FlexGrid::FixedRows() const {
    return state_->model->FixedRows();
}

/// Every change of the counts: an editor over a row that goes or moves is dropped, Row keeps its number.
void FlexGrid::Change(int fromRow, const std::function<void()>& change) {
    State& s = *state_;
    s.cover.DropFrom(fromRow);
    const bool reached = std::max(s.row, s.rowSel) >= fromRow;
    {
        const QScopedValueRollback quiet(s.highlighting, true);
        change();
    }
    const int lastRow = Rows() - 1;
    const int lastCol = Cols() - 1;
    s.row = std::min(s.row, lastRow);
    s.rowSel = std::min(s.rowSel, lastRow);
    s.col = std::min(s.col, lastCol);
    s.colSel = std::min(s.colSel, lastCol);
    if (reached) Highlight();
    state_->cover.Place();
}

void FlexGrid::SetRows(int rows) {
    if (rows <= FixedRows()) throw RuntimeError(u"下标越界"_s);
    Change(std::min(rows, Rows()), [&] { state_->model->SetRows(rows); });
}

void FlexGrid::SetCols(int cols) {
    if (cols < 1) throw RuntimeError(u"下标越界"_s);
    Change(0, [&] {
        state_->model->SetCols(cols);
        state_->columns->SetCount(cols);
    });
    ShowWidths();
}

void FlexGrid::SetFixedRows(int rows) {
    if (rows < 0) throw RuntimeError(u"下标越界"_s);
    State& s = *state_;
    Change(0, [&] { s.model->SetFixedRows(rows); });
    if (s.row > 0 && s.row < rows) s.row = s.rowSel = rows;
    s.header->Fit();
    ShowWidths();
    updateGeometries();
    Highlight();
}

// ---------------------------------------------------------------- the current row

int FlexGrid::Row() const {
    return state_->row;
}

int FlexGrid::Col() const {
    return state_->col;
}

int FlexGrid::RowSel() const {
    return state_->rowSel;
}

int FlexGrid::ColSel() const {
    return state_->colSel;
}

void FlexGrid::SetRow(int row) {
    CheckRow(row, 0);
    Move(row, state_->col);
    sys::ThrowIfEnded();
}

void FlexGrid::SetCol(int col) {
    CheckCol(col);
    state_->col = state_->colSel = col;
    if (state_->cellFramed) viewport()->update();
}

void FlexGrid::SetRowSel(int row) {
    CheckRow(row, 0);
    if (state_->rowSel == row) return;
    state_->rowSel = row;
    Highlight();
}

void FlexGrid::SetColSel(int col) {
    CheckCol(col);
    state_->colSel = col;
}

void FlexGrid::Move(int row, int col) {
    State& s = *state_;
    const bool changed = row != s.row;
    const bool other = changed || s.rowSel != row;
    if (changed) s.cover.TakeScrolled();
    s.row = s.rowSel = row;
    s.col = s.colSel = col;
    if (other) Highlight();
    ShowRow(row);
    if (!changed || s.firing || s.model->Loading()) return;
    const QPointer<FlexGrid> self(this);
    s.firing = true;
    RowChange();
    if (self) s.firing = false;
}

/// The selection model is what screen readers ask; it follows Row and RowSel and is never asked by us.
void FlexGrid::Highlight() {
    State& s = *state_;
    if (s.model->Loading()) return;
    const QScopedValueRollback quiet(s.highlighting, true);
    const int fixed = FixedRows();
    if (s.row < fixed) {
        selectionModel()->clear();
    } else {
        const int other = std::max(s.rowSel, fixed);
        const QModelIndex first = s.model->index(std::min(s.row, other) - fixed, 0);
        const QModelIndex last = s.model->index(std::max(s.row, other) - fixed, Cols() - 1);
        selectionModel()->setCurrentIndex(s.model->index(s.row - fixed, s.col),
                                          QItemSelectionModel::NoUpdate);
        selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    }
    viewport()->update();
}

/// Highlight repaints all rows by itself. The toolkit would lay the whole list out for one cell, so it is
/// asked only where a screen reader has to hear of it.
void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (!state_->highlighting || QAccessible::isActive()) QTableView::currentChanged(current, previous);
}

void FlexGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (state_->highlighting || state_->model->Loading() || selected.isEmpty()) return;
    Move(selected.first().top() + FixedRows(), state_->col);  // chosen through a screen reader
}

// ---------------------------------------------------------------- what is in sight

int FlexGrid::HeightOf(int dataRows) const {
    return horizontalHeader()->minimumHeight() + dataRows * kRowHeight + 2 * frameWidth();
}

int FlexGrid::RowsInSight() const {
    return std::max(1, viewport()->height() / kRowHeight);
}

int FlexGrid::TopRow() const {
    if (state_->topOnShow) return std::min(*state_->topOnShow, Rows() - 1);
    return std::min(verticalScrollBar()->value() + FixedRows(), Rows() - 1);
}

void FlexGrid::SetTopRow(int row) {
    CheckRow(row, 0);
    const int top = std::max(row, FixedRows());
    if (!isVisible()) {
        state_->topOnShow = top;
        return;
    }
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(top - FixedRows());
}

/// Scrolls up or down as little as needed, and never sideways.
void FlexGrid::ShowRow(int row) {
    if (row < FixedRows() || state_->model->Loading()) return;
    state_->rowOnShow = !isVisible();  // it knows its height only when it is shown
    if (state_->rowOnShow) return;
    executeDelayedItemsLayout();
    QScrollBar* bar = verticalScrollBar();
    const int at = row - FixedRows();
    if (at < bar->value()) {
        bar->setValue(at);
    } else if (at >= bar->value() + RowsInSight()) {
        bar->setValue(at - RowsInSight() + 1);
    }
}

void FlexGrid::ShowCol(int col) {
    QScrollBar* bar = horizontalScrollBar();
    const int left = columnViewportPosition(col);
    const int right = left + columnWidth(col);
    if (left < 0) {
        bar->setValue(bar->value() + left);
    } else if (right > viewport()->width()) {
        bar->setValue(bar->value() + std::min(left, right - viewport()->width()));
    }
}

void FlexGrid::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (const std::optional<int> top = std::exchange(state_->topOnShow, std::nullopt)) {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(std::min(*top, Rows() - 1) - FixedRows());
    }
    if (state_->rowOnShow) ShowRow(state_->row);
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
    State& s = *state_;
    const QScopedValueRollback quiet(s.fitting, true);
    const int at = s.row - FixedRows();
    const int y = (at - verticalScrollBar()->value()) * kRowHeight;
    const bool inSight = at >= 0 && y >= 0 && y < event->oldSize().height();
    QTableView::resizeEvent(event);
    s.columns->Refit();
    if (inSight) ShowRow(s.row);
    s.cover.Place();
}

void FlexGrid::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dx != 0) viewport()->update();  // the bar at the left edge does not scroll
    BeginWithWholeRow();
    if (state_->fitting)
        state_->cover.Place();
    else
        state_->cover.Leave();
}

void FlexGrid::updateGeometries() {
    const QScopedValueRollback quiet(state_->fitting, true);
    QTableView::updateGeometries();
    BeginWithWholeRow();
}

/// At its end the toolkit lays the last row on the lower edge and cuts the first; TopRow would not be the
/// row at the top.
void FlexGrid::BeginWithWholeRow() {
    QHeaderView* heads = verticalHeader();
    const int offset = verticalScrollBar()->value() * kRowHeight;
    if (heads->offset() == offset) return;
    heads->setOffset(offset);
    viewport()->update();
}

void FlexGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (state_->row < FixedRows() || state_->model->Loading()) return;
    const int y = rowViewportPosition(state_->row - FixedRows());
    QPainter painter(viewport());
    PaintEntryBlock(painter);
    painter.fillRect(QRect(0, y, kBarWidth, kRowHeight), paint::kAccent);
    if (!state_->cellFramed || !hasFocus()) return;
    painter.setPen(QPen(paint::kAccent, kCellFrame));
    painter.drawRect(CellRect(state_->row, state_->col).adjusted(1, 1, -1, -1));
}

void FlexGrid::PaintEntryBlock(QPainter& painter) const {
    const int first = state_->model->BlockFirst();
    if (first < FixedRows()) return;
    const int top = rowViewportPosition(first - FixedRows());
    const int rows = std::min(state_->model->BlockLast(), Rows() - 1) - first + 1;
    painter.fillRect(QRect(0, top, kBarWidth, rows * kRowHeight), paint::kAccentPale);
    paint::Hairline(painter, paint::kBlockLine, QLineF(0, top, viewport()->width(), top));
}

// ---------------------------------------------------------------- texts and rows

const QString& FlexGrid::TextMatrix(int row, int col) const {
    CheckRow(row, 0);
    CheckCol(col);
    return state_->model->Text(row, col);
}

int FlexGrid::RowOf(int col, const QString& text, int likely) const {
    CheckCol(col);
    const GridModel& model = *state_->model;
    if (likely >= FixedRows() && likely < Rows() && model.Text(likely, col) == text) return likely;
    for (int row = Rows() - 1; row >= FixedRows(); --row)
        if (model.Text(row, col) == text) return row;
    return 0;
}

void FlexGrid::SetTextMatrix(int row, int col, const QString& text) {
    CheckRow(row, 0);
    CheckCol(col);
    state_->model->SetText(row, col, text);
    if (row < FixedRows()) state_->header->viewport()->update();
}

void FlexGrid::Clear() {
    Change(0, [&] { state_->model->Clear(); });
    state_->header->viewport()->update();
}

void FlexGrid::AddItem(const QString& cells, int at) {
    const int row = at == -1 ? Rows() : at;
    if (row < FixedRows() || row > Rows()) throw RuntimeError(u"下标越界"_s);
    Change(row, [&] { state_->model->Insert(row, cells.split(u'\t')); });
}

void FlexGrid::RemoveItem(int row) {
    CheckRow(row, FixedRows());
    if (Rows() == FixedRows() + 1) throw RuntimeError(u"不能删除最后一个非固定行"_s);
    Change(row, [&] { state_->model->Remove(row); });
}

void FlexGrid::BeginLoad(int dataRows) {
    if (dataRows < 0) throw RuntimeError(u"下标越界"_s);
    Change(0, [&] { state_->model->BeginLoad(std::max(dataRows, 1)); });
}

void FlexGrid::LoadCell(int dataRow, int col, QString text) {
    GridModel& model = *state_->model;
    if (dataRow < 0 || dataRow >= model.Rows() - model.FixedRows() || col < 0 || col >= model.Cols())
        throw RuntimeError(u"下标越界"_s);
    model.LoadCell(dataRow + model.FixedRows(), col, std::move(text));
}

void FlexGrid::EndLoad() {
    State& s = *state_;
    if (!s.model->Loading()) return;
    Change(Rows(), [&] { s.model->EndLoad(); });
    s.row = s.rowSel = FixedRows();
    s.col = s.colSel = 0;
    s.topOnShow.reset();
    ShowWidths();
    Highlight();
    verticalScrollBar()->setValue(0);
}

std::size_t FlexGrid::MatrixBytes() const {
    return state_->model->Bytes();
}

// ---------------------------------------------------------------- columns and colours

int FlexGrid::GridColWidth(int col) const {
    CheckCol(col);
    return state_->columns->Width(col);
}

void FlexGrid::SetGridColWidth(int col, int width) {
    CheckCol(col);
    if (width < 0) throw RuntimeError(u"下标越界"_s);
    state_->columns->SetWidth(col, width);
    state_->cover.Place();
}

bool FlexGrid::ColWidthByHand(int col) const {
    CheckCol(col);
    return state_->columns->ByHand(col);
}

void FlexGrid::ShareWidths(const std::vector<int>& shares) {
    state_->columns->Share(shares);
    state_->cover.Place();
}

void FlexGrid::ShowWidths() {
    state_->columns->Show();
    state_->cover.Place();
}

void FlexGrid::SetColAlignment(int col, Qt::Alignment alignment) {
    CheckCol(col);
    state_->model->SetAlignment(col, alignment | Qt::AlignVCenter);
}

void FlexGrid::SetCellColor(int row, int col, const QColor& back) {
    CheckRow(row, 0);
    CheckCol(col);
    state_->model->SetBack(row, col, back);
}

void FlexGrid::SetCellBold(int row, int col, bool bold) {
    CheckRow(row, 0);
    CheckCol(col);
    state_->model->SetBold(row, col, bold);
}

void FlexGrid::SetRowStyle(int row, int fromCol, const QColor& back, bool bold) {
    CheckRow(row, 0);
    CheckCol(fromCol);
    state_->model->SetRowStyle(row, fromCol, back, bold);
}

void FlexGrid::SetWordColor(int col, const QString& word, const QColor& ink) {
    CheckCol(col);
    state_->model->SetWordColor(col, word, ink);
}

void FlexGrid::SetEntryBlock(int first, int last) {
    if (first > 0) CheckRow(first, FixedRows());
    state_->model->SetEntryBlock(first, last);
    viewport()->update();
}

void FlexGrid::SetMergeHeader(bool merge) {
    state_->header->SetMerge(merge);
}

void FlexGrid::SetCellFramed(bool framed) {
    state_->cellFramed = framed;
    viewport()->update();
}

void FlexGrid::SetFramed(bool framed) {
    setFrameShape(framed ? QFrame::StyledPanel : QFrame::NoFrame);
    Mark(this, "edge", framed ? QString() : u"none"_s);
}

}  // namespace controls
