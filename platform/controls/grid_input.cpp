// The operator's side of a grid: keys, mouse, and what he types over a cell.
#include "platform/controls/grid_state.h"
#include "platform/controls/key_offer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>

namespace controls {

// ---------------------------------------------------------------- keys and mouse

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (event->key() == Qt::Key_Escape) state_->cover.TakeScrolled();
    if (!OfferKey(this, KeyPressed, *event)) return;
    if (event->matches(QKeySequence::Copy)) {
        CopyRows();
        return;
    }
    const Qt::KeyboardModifiers others = event->modifiers() & ~Qt::KeypadModifier;
    const bool ends = event->key() == Qt::Key_Home || event->key() == Qt::Key_End;
    const bool plain = others == Qt::NoModifier || (ends && others == Qt::ControlModifier);
    if (!plain || !MoveByKey(event->key())) event->ignore();
}

bool FlexGrid::MoveByKey(int key) {
    const int first = FixedRows();
    const int row = state_->row;
    int to = row;
    switch (key) {
        case Qt::Key_Up:
            to = row - 1;
            break;
        case Qt::Key_Down:
            to = row + 1;
            break;
        case Qt::Key_PageUp:
            to = row - RowsInSight();
            break;
        case Qt::Key_PageDown:
            to = row + RowsInSight();
            break;
        case Qt::Key_Home:
            to = first;
            break;
        case Qt::Key_End:
            to = Rows() - 1;
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
            state_->cover.TakeScrolled();
            state_->col = state_->colSel = ColBeside(key == Qt::Key_Left ? -1 : 1);
            ShowCol(state_->col);
            if (state_->cellFramed) viewport()->update();
            return true;
        default:
            return false;
    }
    Move(std::clamp(to, first, Rows() - 1), state_->col);
    return true;
}

/// The next column in sight of the current one, or that one itself at the end.
int FlexGrid::ColBeside(int step) const {
    for (int col = state_->col + step; col >= 0 && col < Cols(); col += step)
        if (!isColumnHidden(col)) return col;
    return state_->col;
}

void FlexGrid::CopyRows() const {
    QStringList lines;
    const auto [first, last] = std::minmax(state_->row, state_->rowSel);
    for (int row = std::max(first, FixedRows()); row <= last; ++row) {
        QStringList cells;
        for (int col = 0; col < Cols(); ++col)
            if (!isColumnHidden(col)) cells << state_->model->Text(row, col);
        lines << cells.join(u'\t');
    }
    if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    event->accept();
    state_->pressed = -1;
    const QPointer<FlexGrid> self(this);
    // The row that the operator sees there: what the form makes of the editor's text may remove rows.
    const QPersistentModelIndex index = indexAt(event->position().toPoint());
    state_->cover.Finish(true);
    if (!self || event->button() != Qt::LeftButton || !index.isValid()) return;
    state_->pressed = index.row() + FixedRows();
    Move(state_->pressed, index.column());
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const bool clicked = event->button() == Qt::LeftButton && std::exchange(state_->pressed, -1) >= 0;
    if (clicked && viewport()->rect().contains(event->position().toPoint())) Click();
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    state_->pressed = -1;
    if (event->button() != Qt::LeftButton) return;
    const QPointer<FlexGrid> self(this);
    const QPersistentModelIndex index = indexAt(event->position().toPoint());
    state_->cover.Finish(true);
    if (!self || !index.isValid()) return;
    Move(index.row() + FixedRows(), index.column());
    if (self) DoubleClick();
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
    event->accept();  // dragging selects nothing
}

void FlexGrid::wheelEvent(QWheelEvent* event) {
    QTableView::wheelEvent(event);
    event->accept();  // at its end the wheel does not begin to move the form behind
}

void FlexGrid::focusInEvent(QFocusEvent* event) {
    // The table view's own would make the first row current where none is.
    QAbstractScrollArea::focusInEvent(event);
    state_->cover.TakeScrolled();
    viewport()->update();
}

// ---------------------------------------------------------------- the editor over a cell

QRect FlexGrid::CellRect(int row, int col) const {
    CheckRow(row, FixedRows());
    CheckCol(col);
    return visualRect(state_->model->index(row - FixedRows(), col));
}

QLineEdit* FlexGrid::Editor() const {
    return state_->cover.Line();
}

bool FlexGrid::Editing() const {
    return state_->cover.Editing();
}

void FlexGrid::EditCell(int row, int col, ComboBox* combo) {
    CheckRow(row, FixedRows());
    CheckCol(col);
    CommitEditor();
    ShowRow(row);
    ShowCol(col);
    state_->cover.Open(row, col, combo);
}

void FlexGrid::EditByKey(KeyPress& key, EditStart start, const std::function<void()>& open) {
    const bool opens = key.IsEnter() || key.key == Qt::Key_F2;
    const bool number = (key.key >= Qt::Key_0 && key.key <= Qt::Key_9) || key.key == Qt::Key_Period ||
                        key.key == Qt::Key_Minus;
    const bool printable = !key.text.isEmpty() && key.text.front().isPrint();
    const bool empties = key.key == Qt::Key_Delete || key.key == Qt::Key_Backspace;
    const bool any = start == EditStart::Characters;
    const bool types = !key.IsChord() && ((printable && (number || any)) || (empties && any));
    if (!opens && !types) return;
    key.taken = true;
    const std::optional<CellCover::Typed> scrolled = state_->cover.TakeScrolled();
    open();
    if (!opens) state_->cover.Type(key, scrolled);
}

void FlexGrid::CommitEditor() {
    state_->cover.Finish(true);
    sys::ThrowIfEnded();
}

void FlexGrid::DropEditor() {
    state_->cover.Finish(false);
}

}  // namespace controls
