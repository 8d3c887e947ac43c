// What the operator does in the entry grid: where the cursor may go, the editor over a cell, what each
// column makes of what was typed.
#include "accounts/entry_form.h"
#include "app/data_access.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace accounts;
using controls::CellStep;

double EntryForm::AmountAt(int row) const {
    return text::Val(Cell(row, Amount));
}

/// What the save would write.
bool EntryForm::IsComplete(int row) const {
    return AmountAt(row) != 0 && !Cell(row, Party).isEmpty() && !Cell(row, Key).isEmpty();
}

/// Two rows that are begun within one second get the same key; the second is refused when its cell is left.
QString EntryForm::NewKey() const {
    return Kind().keyPrefix + sys::Now().toString(u"yyMMddHHmmss"_s);
}

// ---------------------------------------------------------------- where the cursor is

/// The cell routine: after a click, and after each key that leaves an editor.
void EntryForm::EnterCell() {
    GD->CommitEditor();
    GD->SetCol(target_);
    CurRow = GD->Row();
    if (FormMode == Browsing) return ShowRow();
    KeepInBlock();
    if (FormMode == Adding) BeginRow();
    if (GD->Col() == Maker) {
        GD->SetTextMatrix(CurRow, Maker, OperatorName);
        GD->SetCol(Remark);
    }
    OpenEditor(CurRow, GD->Col());
    ShowProgress();
}

void EntryForm::KeepInBlock() {
    CurRow = FormMode == Editing ? std::min(first_, CurRowLimit()) : std::max(CurRow, first_);
    if (GD->Row() != CurRow) GD->SetRow(CurRow);
}

/// A blank row begins with its key, which it gets once the row above it is whole.
void EntryForm::BeginRow() {
    if (!Cell(CurRow, Key).isEmpty()) return;
    GD->SetCol(Key);
    if (CurRow == 1 || IsComplete(CurRow - 1)) GD->SetTextMatrix(CurRow, Key, NewKey());
}

void EntryForm::GoTo(int row, int col) {
    GD->SetRow(row);
    target_ = col;
    EnterCell();
}

void EntryForm::OpenEditor(int row, int col) {
    const bool combo = col >= Date && col <= Summary;
    GD->SetRow(row);
    GD->SetCol(col);
    GD->EditCell(row, col, combo ? CmbEnter[static_cast<std::size_t>(col - Date)] : nullptr);
}

// ---------------------------------------------------------------- keys

/// A key has left the editor over (CurRow, Col), which is committed by now.
void EntryForm::GoOn(controls::CellMove& move) {
    if (FormMode == Browsing) return;
    move.taken = true;
    switch (move.step) {
        case CellStep::Enter:
        case CellStep::Next:
            return GoForward(GD->Col());
        case CellStep::Previous:
            return GoBack(GD->Col());
        case CellStep::Up:
            return GoToRow(GD->Row() - 1);
        case CellStep::Down:
            return GoToRow(GD->Row() + 1);
    }
}

void EntryForm::GoForward(int col) {
    if (col == Party) return GoTo(GD->Row(), Amount);  // past the hidden columns
    if (col < Remark) return GoTo(GD->Row(), col + 1);
    if (FormMode != Adding) return GoTo(GD->Row(), Key);
    if (GD->Row() == CurRowLimit()) {
        GD->AddItem({});
        GD->SetTextMatrix(CurRowLimit(), Key, NewKey());
    }
    GoTo(GD->Row() + 1, Key);
}

/// To the column before that is shown and typed into; from the first one to the end of the row above.
void EntryForm::GoBack(int col) {
    if (col == Key && GD->Row() > first_ && FormMode == Adding) return GoTo(GD->Row() - 1, Remark);
    const int before = col == Remark ? Handler : col == Amount ? Party : std::max<int>(col - 1, Key);
    GoTo(GD->Row(), before);
}

void EntryForm::GoToRow(int row) {
    GoTo(std::clamp(row, first_, BlockEnd()), GD->Col());
}

/// With no editor open, as after Esc or after scrolling.
void EntryForm::KeyInGrid(controls::KeyPress& key) {
    if (FormMode == Browsing) return;
    const std::pair<int, int> moves[] = {{Qt::Key_Up, GD->Row() - 1}, {Qt::Key_Down, GD->Row() + 1},
                                         {Qt::Key_PageUp, first_},    {Qt::Key_PageDown, BlockEnd()},
                                         {Qt::Key_Home, first_},      {Qt::Key_End, BlockEnd()}};
    for (const auto& [direction, row] : moves) {
        if (key.key != direction) continue;
        key.taken = true;
        return GoToRow(row);
    }
    GD->EditByKey(key, controls::EditStart::Characters, [this] { GoTo(GD->Row(), GD->Col()); });
}

// ---------------------------------------------------------------- what was typed

/// The editor's text is in the cell; `before` is what was there.
void EntryForm::Commit(int row, int col, const QString& before) {
    if (FormMode == Browsing) return;
    QString typed = Cell(row, col);
    CleanText(typed);
    switch (col) {
        case Key:
            return CommitKey(row, typed.toUpper(), before);
        case Date:
            if (!text::ReadDate(typed)) typed = text::DateText(sys::Today());
            break;
        case Amount:
            GD->SetTextMatrix(row, col, before);  // where the number is too large
            typed = text::GeneralText(text::Val(typed));
            break;
        default:
            break;
    }
    GD->SetTextMatrix(row, col, typed);
    ShowProgress();
}

void EntryForm::CommitKey(int row, QString key, const QString& before) {
    if (key.isEmpty()) return DropRow(row);
    GD->SetTextMatrix(row, Key, before);
    if (KeyIsTaken(row, key)) return;
    GD->SetTextMatrix(row, Key, key);
    if (row == CurRowLimit()) GD->AddItem({});
}

/// A row without a key goes; the last one is only emptied.
void EntryForm::DropRow(int row) {
    if (row < CurRowLimit()) {
        GD->RemoveItem(row);
        CurRow = 1;
        GD->SetRow(1);
    } else {
        for (int col = 0; col < EntryColumns; ++col) GD->SetTextMatrix(row, col, {});
    }
}

bool EntryForm::KeyIsTaken(int row, const QString& key) const {
    const bool found = !GetStrQuiet(u"select F2 from TB1 Where F1="_s + Quoted(key)).isEmpty();
    const bool own = FormMode == Editing && key.compare(oldKey_, Qt::CaseInsensitive) == 0;
    if (found && !own) {
        sys::Inform(u"在系统中，已经采用了["_s + key + u"]这个单据编号！"_s, {});
        return true;
    }
    if (found || FormMode != Adding) return false;
    for (int other = first_; other <= CurRowLimit(); ++other) {
        if (other == row || Cell(other, Key) != key) continue;
        sys::Inform(u"您已经录入了一张凭证号为["_s + key + u"]的记录！"_s, {});
        return true;
    }
    return false;
}

/// At the strip's right end: rows that have a key, and their sum.
void EntryForm::ShowProgress() {
    if (FormMode != Adding) return;
    int rows = 0;
    double sum = 0;
    for (int row = first_; row <= CurRowLimit(); ++row) {
        if (Cell(row, Key).isEmpty()) continue;
        ++rows;
        sum += AmountAt(row);
    }
    progress_->setText(u"本次录入 "_s + QString::number(rows) + u" 行，合计 "_s + text::GeneralText(sum));
}
