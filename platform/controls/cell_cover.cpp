#include "platform/controls/cell_cover.h"

#include "platform/controls/input_order.h"
#include "platform/controls/key_offer.h"
#include "platform/controls/numeric.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kTextShift = 3;  // from where a text box draws its text to where a cell does

/// Its context menu would take the focus, which leaves the cell.
class CellLine : public QLineEdit {
  public:
    explicit CellLine(QWidget* parent) : QLineEdit(parent) {
        connect(this, &QLineEdit::textEdited, this, [this] {
            if (IsNumeric(*this)) TidyLine(this, last_);
        });
        connect(this, &QLineEdit::textChanged, this, [this] { last_ = text(); });
    }

  protected:
    void contextMenuEvent(QContextMenuEvent*) override {}

  private:
    QString last_;
};

std::optional<CellStep> StepOf(const QKeyEvent& key) {
    if (key.modifiers() & Qt::AltModifier) return std::nullopt;  // Alt+Down opens a combo
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return CellStep::Enter;
        case Qt::Key_Tab:
            return key.modifiers() & Qt::ShiftModifier ? CellStep::Previous : CellStep::Next;
        case Qt::Key_Backtab:
            return CellStep::Previous;
        case Qt::Key_Up:
            return CellStep::Up;
        case Qt::Key_Down:
            return CellStep::Down;
        default:
            return std::nullopt;
    }
}

}  // namespace

CellCover::CellCover(FlexGrid& grid, GridModel& model)
    : grid_(grid), model_(model), line_(new CellLine(grid.viewport())) {
    line_->setTextMargins(kTextShift, 0, kTextShift, 0);
    line_->setProperty("kind", u"cell"_s);
    line_->hide();
    line_->installEventFilter(this);
}

// ---------------------------------------------------------------- opening

/// A combo becomes a part of the grid when it is first laid over a cell.
void CellCover::Take(QWidget* editor) {
    if (editor->parentWidget() == grid_.viewport()) return;
    editor->setParent(grid_.viewport());
    editor->installEventFilter(this);
    Mark(editor, "kind", u"cell"_s);
}

QLineEdit* CellCover::TextLine() const {
    const auto* combo = qobject_cast<QComboBox*>(editor_.data());
    return combo ? combo->lineEdit() : line_;
}

void CellCover::Open(int row, int col, ComboBox* combo) {
    QWidget* next = combo ? static_cast<QWidget*>(combo) : line_;
    if (editor_ && editor_ != next) editor_->hide();
    editor_ = next;
    row_ = row;
    col_ = col;
    if (combo) {
        Take(combo);
        combo->SetText(model_.Text(row, col));
    } else {
        line_->setAlignment(model_.Alignment(col));
        line_->setText(model_.Text(row, col));
    }
    editing_ = true;
    Place();
    editor_->show();
    editor_->raise();
    editor_->setFocus(Qt::OtherFocusReason);
    TextLine()->selectAll();
}

void CellCover::Type(const KeyPress& key, const std::optional<Typed>& scrolled) {
    if (!editing_) return;
    QLineEdit* line = TextLine();
    const bool goesOn = scrolled && scrolled->row == row_ && scrolled->col == col_;
    if (goesOn && key.key != Qt::Key_Delete) line->setText(scrolled->text);
    if (key.key == Qt::Key_Backspace)
        line->backspace();
    else if (key.key == Qt::Key_Delete)
        line->del();
    else
        line->insert(key.text);
}

void CellCover::Place() {
    if (!editing_ || row_ >= model_.Rows() || col_ >= model_.Cols() || model_.Loading()) return;
    editor_->setGeometry(grid_.CellRect(row_, col_));
}

// ---------------------------------------------------------------- closing

/// The editor stays in sight until Hide.
void CellCover::Write(bool keep) {
    if (!std::exchange(editing_, false)) return;
    if (keep) {
        notEmitted_ = Edited{row_, col_, model_.Text(row_, col_)};
        // A pasted tab would part the cell in two when the row is copied or added again.
        model_.SetText(row_, col_, TextLine()->text().replace(u'\t', u' '));
    }
    if (grid_.window()->focusWidget() == editor_) grid_.setFocus(Qt::OtherFocusReason);
}

void CellCover::Hide() {
    if (editor_) editor_->hide();
}

void CellCover::Finish(bool keep) {
    scrolled_.reset();
    Write(keep);
    Hide();
    EmitEdited();
}

void CellCover::DropFrom(int row) {
    if (scrolled_ && scrolled_->row >= row) scrolled_.reset();
    if (!editing_ || row_ < row) return;
    Write(false);
    Hide();
}

void CellCover::EmitEdited() {
    const std::optional<Edited> edited = std::exchange(notEmitted_, std::nullopt);
    if (edited && edited->row < model_.Rows() && edited->col < model_.Cols())  // it may have gone meanwhile
        grid_.CellEdited(edited->row, edited->col, edited->before);
}

void CellCover::Leave() {
    if (editing_) InputOrder::Get().CommitComposition();  // while the editor has the focus
    if (!editing_) return;
    const Typed typed{row_, col_, TextLine()->text()};
    Write(true);
    scrolled_ = typed;  // before the form hears of it: what the form does then may forget it
    Hide();
    EmitEdited();
}

// ---------------------------------------------------------------- keys and focus

bool CellCover::eventFilter(QObject* watched, QEvent* event) {
    if (editing_ && watched == editor_) {
        if (event->type() == QEvent::KeyPress && OnKey(*static_cast<QKeyEvent*>(event))) return true;
        if (event->type() == QEvent::FocusOut) OnFocusOut(static_cast<QFocusEvent*>(event)->reason());
    }
    return QObject::eventFilter(watched, event);
}

/// Handled before the editor gets it: a combo would move through its items, and the toolkit would look for
/// the next control, which from inside the grid would be anything.
bool CellCover::OnKey(QKeyEvent& key) {
    if (const std::optional<CellStep> step = StepOf(key)) {
        key.accept();
        Step(*step, key);
        return true;
    }
    if (key.key() == Qt::Key_Escape) {
        key.accept();
        Finish(false);
        return true;
    }
    if (key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown) {
        key.accept();
        const QPointer<FlexGrid> grid(&grid_);
        Finish(true);
        if (grid && !grid->Editing()) QCoreApplication::sendEvent(grid, &key);
        return true;
    }
    return false;
}

void CellCover::Step(CellStep step, QKeyEvent& key) {
    const QPointer<FlexGrid> grid(&grid_);
    Finish(true);
    if (!grid || grid->Editing()) return;
    CellMove move{step};
    grid->CellLeft(move);
    if (!grid || grid->Editing() || move.taken || step == CellStep::Enter) return;
    QCoreApplication::sendEvent(grid, &key);
}

/// The focus is still on its way. When it has arrived the editor is hidden, since hiding it before would look
/// like the toolkit's own doing, and the form hears of the cell.
void CellCover::OnFocusOut(Qt::FocusReason reason) {
    switch (reason) {
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
        case Qt::ActiveWindowFocusReason:
            return;
        default:
            break;
    }
    const auto* combo = qobject_cast<const QComboBox*>(editor_.data());
    if (combo && combo->view()->isVisible()) return;  // the focus is in its list
    Write(true);
    InputOrder::Get().Post([cover = QPointer<CellCover>(this)] {
        if (!cover) return;
        if (!cover->editing_) cover->Hide();
        cover->EmitEdited();
    });
}

}  // namespace controls
