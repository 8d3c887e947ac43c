// The operator's side of a grid: keys, mouse, and the boxes that are laid over a cell.
#include "platform/controls/grid_state.h"
#include "platform/errors.h"

#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <QStyle>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kTextShift = 3;  // from where a box draws its text to where a cell does

}  // namespace

// ---------------------------------------------------------------- keys and mouse

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    KeyPress press{event->key(), event->modifiers(), event->text(), false};
    const QPointer<FlexGrid> self(this);
    KeyPressed(press);
    event->accept();
    if (!self || press.taken || sys::HasEnded()) return;
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
            state_->col = state_->colSel = ColBeside(key == Qt::Key_Left ? -1 : 1);
            ShowCol(state_->col);
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
    FinishEditor(true);
    if (!self || event->button() != Qt::LeftButton) return;
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) return;
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
    FinishEditor(true);
    const QModelIndex index = self ? indexAt(event->position().toPoint()) : QModelIndex();
    if (!index.isValid()) return;
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
    viewport()->update();
}

// ---------------------------------------------------------------- boxes over a cell

QRect FlexGrid::CellRect(int row, int col) const {
    CheckRow(row, FixedRows());
    CheckCol(col);
    return visualRect(state_->model->index(row - FixedRows(), col));
}

QLineEdit* FlexGrid::Editor() const {
    return state_->editor;
}

bool FlexGrid::Editing() const {
    return state_->editing;
}

void FlexGrid::LayOver(QWidget* box, int row, int col) {
    CheckRow(row, FixedRows());
    CheckCol(col);
    CommitEditor();
    State& s = *state_;
    s.cover = nullptr;  // what is scrolled now is no scrolling of the operator
    ShowRow(row);
    ShowCol(col);
    s.cover = box;
    s.coverRow = row;
    s.coverCol = col;
    if (box->parentWidget() != viewport()) {
        box->setProperty("kind", u"cell"_s);  // fills the cell: no round corners, no height of its own
        box->setParent(viewport());
        if (auto* line = qobject_cast<QLineEdit*>(box)) line->setTextMargins(kTextShift, 0, kTextShift, 0);
        box->style()->unpolish(box);
        box->style()->polish(box);
    }
    PlaceCover();
    box->show();
    box->raise();
}

void FlexGrid::EditCell(int row, int col) {
    CheckRow(row, FixedRows());
    CheckCol(col);
    CommitEditor();
    State& s = *state_;
    s.editor->setTextMargins(kTextShift, 0, kTextShift, 0);
    s.editor->setAlignment(s.model->Alignment(col));
    s.editor->setText(s.model->Text(row, col));
    s.editor->selectAll();
    LayOver(s.editor, row, col);
    s.editing = true;
    s.editor->setFocus(Qt::OtherFocusReason);
}

void FlexGrid::CommitEditor() {
    FinishEditor(true);
    sys::ThrowIfEnded();
}

void FlexGrid::FinishEditor(bool keep, bool tell) {
    State& s = *state_;
    if (s.editing) {
        s.editing = false;
        s.cover = nullptr;
        if (keep) {
            s.untold = State::Edited{s.coverRow, s.coverCol, s.model->Text(s.coverRow, s.coverCol)};
            // A pasted tab would part the cell in two when the row is copied or added again.
            s.model->SetText(s.coverRow, s.coverCol, s.editor->text().replace(u'\t', u' '));
        }
        if (window()->focusWidget() == s.editor) setFocus(Qt::OtherFocusReason);
    }
    if (!tell) return;
    s.editor->hide();
    TellEdited();
}

void FlexGrid::TellEdited() {
    const std::optional<State::Edited> edited = std::exchange(state_->untold, std::nullopt);
    if (edited && edited->row < Rows() && edited->col < Cols())  // the cell may have gone meanwhile
        CellEdited(edited->row, edited->col, edited->before);
}

void FlexGrid::PlaceCover() {
    State& s = *state_;
    if (!s.cover || s.coverRow >= Rows() || s.coverCol >= Cols() || s.model->Loading()) return;
    s.cover->setGeometry(CellRect(s.coverRow, s.coverCol));
}

void FlexGrid::LeaveCover() {
    State& s = *state_;
    if (s.editing) {
        FinishEditor(true);
    } else if (s.cover && s.cover->isVisible()) {
        PlaceCover();
        const QWidget* focus = QApplication::focusWidget();
        if (focus && (focus == s.cover || s.cover->isAncestorOf(focus))) SetFocus();
    }
}

}  // namespace controls
