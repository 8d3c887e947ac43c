#include "platform/controls/cell_cover.h"

#include "platform/controls/box.h"

#include <QApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kTextShift = 3;  // from where a box draws its text to where a cell does

void IndentText(QLineEdit& line) {
    line.setTextMargins(kTextShift, 0, kTextShift, 0);
}

}  // namespace

CellCover::CellCover(FlexGrid& grid, GridModel& model)
    : grid_(grid), model_(model), editor_(new CellEditor(grid.viewport())) {
    editor_->Entered = [this] {
        const QPointer<FlexGrid> alive(&grid_);
        Finish(true);
        if (alive) alive->CellEntered();
    };
    editor_->Dropped = [this] { Finish(false); };
    editor_->Left = [this] { LeftByFocus(); };
    editor_->MovedOn = [this](QKeyEvent* event) {
        const QPointer<FlexGrid> alive(&grid_);
        Finish(true);
        if (alive && !alive->Editing()) QCoreApplication::sendEvent(alive, event);
    };
}

void CellCover::Lay(QWidget* box, int row, int col) {
    box_ = box;
    row_ = row;
    col_ = col;
    if (box->parentWidget() != grid_.viewport()) {
        box->setParent(grid_.viewport());
        if (auto* line = qobject_cast<QLineEdit*>(box)) IndentText(*line);
        Mark(box, "kind", u"cell"_s);  // fills the cell: no round corners, no height of its own
    }
    Place();
    box->show();
    box->raise();
}

void CellCover::FillEditor(int row, int col) {
    IndentText(*editor_);
    editor_->setAlignment(model_.Alignment(col));
    editor_->setText(model_.Text(row, col));
    editor_->selectAll();
}

void CellCover::StartEditing() {
    editing_ = true;
    editor_->setFocus(Qt::OtherFocusReason);
}

void CellCover::Finish(bool keep, bool tell) {
    if (editing_) {
        editing_ = false;
        box_ = nullptr;
        if (keep) {
            notEmitted_ = Edited{row_, col_, model_.Text(row_, col_)};
            // A pasted tab would part the cell in two when the row is copied or added again.
            model_.SetText(row_, col_, editor_->text().replace(u'\t', u' '));
        }
        if (grid_.window()->focusWidget() == editor_) grid_.setFocus(Qt::OtherFocusReason);
    }
    if (!tell) return;
    editor_->hide();
    Tell();
}

/// The focus is still on its way. When it has arrived the editor goes, since hiding it before would look like
/// the toolkit's own doing, and the form hears of the cell.
void CellCover::LeftByFocus() {
    Finish(true, false);
    QMetaObject::invokeMethod(
        &grid_,
        [this] {
            if (!editing_) editor_->hide();
            Tell();
        },
        Qt::QueuedConnection);
}

void CellCover::DropFrom(int row) {
    if (!editing_ || row_ < row) return;
    Finish(false, false);
    editor_->hide();
}

void CellCover::Tell() {
    const std::optional<Edited> edited = std::exchange(notEmitted_, std::nullopt);
    if (edited && edited->row < model_.Rows() && edited->col < model_.Cols())  // it may have gone meanwhile
        grid_.CellEdited(edited->row, edited->col, edited->before);
}

void CellCover::Place() {
    if (!box_ || row_ >= model_.Rows() || col_ >= model_.Cols() || model_.Loading()) return;
    box_->setGeometry(grid_.CellRect(row_, col_));
}

void CellCover::Leave() {
    if (editing_) {
        Finish(true);
    } else if (box_ && box_->isVisible()) {
        Place();
        const QWidget* focus = QApplication::focusWidget();
        if (focus && (focus == box_ || box_->isAncestorOf(focus))) grid_.SetFocus();
    }
}

}  // namespace controls
