// How entered rows reach the journal, and how a row is read again before it is edited. The two ways differ on
// purpose: adding is checked and takes the whole counterparty, editing is checked by nothing and cuts it at a
// point.
#include "accounts/entry_form.h"
#include "app/data_access.h"
#include "app/session.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace accounts;

namespace {

/// Up to the first point, if that is not the first character.
QString CutAtPoint(const QString& name) {
    const qsizetype point = name.indexOf(u'.');
    return point > 0 ? name.left(point) : name;
}

/// Whether a text that was written from the grid reads so in the file.
bool IsStoredAs(int col, const QString& cell, const QString& stored) {
    switch (col) {
        case Date:
            return cell == stored || (text::ReadDate(cell) && text::ReadDate(cell) == text::ReadDate(stored));
        case Party:
            return cell == stored || CutAtPoint(cell) == stored;
        case Amount:
        case Sequence:
            return text::Val(cell) == text::Val(stored);
        default:
            return cell == stored;
    }
}

QDate DateOf(const LedgerEntry& entry) {
    if (const auto date = text::ReadDate(entry.date)) return *date;
    throw RuntimeError(u"类型不匹配"_s);  // only the last row, which no check looks at, can be without a date
}

}  // namespace

/// The save of an edit writes all fields, and a waybill may have written its row since the list was loaded.
/// False if the row has gone; rows that share a key stay as they are in the list. Of any kind, since a search
/// with "或者" lists other kinds too.
bool EntryForm::ReadAgain(int row) {
    auto rows = Db->OpenRecordset(settings_.search.base + u"Where TB1.F1="_s + Quoted(Cell(row, Key)));
    const int found = CountRows(rows);
    for (int col = 0; found == 1 && col < EntryColumns; ++col) {
        const QString stored = rows.Fields(col).Text();
        if (!IsStoredAs(col, Cell(row, col), stored)) GD->SetTextMatrix(row, col, stored);
    }
    rows.Close();
    return found > 0;
}

void EntryForm::Menu_save() {
    refused_ = false;
    GD->CommitEditor();
    if (refused_) return GoTo(GD->Row(), GD->Col());  // the amount is another one than was typed
    if (FormMode == Editing) return SaveEdited();
    if (TestBlock()) SaveBlock();
}

/// Also while a cell is being typed: what is on the screen is exported.
void EntryForm::Menu_TE() {
    refused_ = false;
    GD->CommitEditor();
    if (!refused_) ExportGrid(*GD);
    if (InEdit()) GoTo(GD->Row(), GD->Col());
}

/// The last row is not looked at: it is written if it is whole, and dropped if not.
bool EntryForm::TestBlock() const {
    const auto refuse = [this](int row, int col, const QString& what) {
        sys::Inform(u"第"_s + QString::number(row) + u"行["_s + Cell(0, col) + u"]不能为"_s + what + u"！"_s,
                    {});
        return false;
    };
    for (int row = first_; row < CurRowLimit(); ++row) {
        for (const int col : {Key, Date, Party})
            if (Cell(row, col).isEmpty()) return refuse(row, col, u"空"_s);
        if (AmountAt(row) == 0) return refuse(row, Amount, u"0"_s);
        GD->SetTextMatrix(row, Maker, OperatorName);
    }
    return true;
}

LedgerEntry EntryForm::EntryAt(int row) const {
    return {.kind = Side().kind,
            .key = Cell(row, Key),
            .date = Cell(row, Date),
            .counterparty = Cell(row, Party),
            .amount = AmountAt(row),
            .handler = Cell(row, Handler),
            .maker = OperatorName,
            .remark = Cell(row, Remark)};
}

void EntryForm::SaveBlock() {
    int row = first_;
    for (; row <= CurRowLimit() && IsComplete(row); ++row) {
        LedgerEntry entry = EntryAt(row);
        entry.sequence = AllocateSequence(*Db, DateOf(entry), entry.key);
        PostEntry(*Db, entry);
        GD->SetTextMatrix(row, Sequence, text::GeneralText(entry.sequence));
    }
    if (row == 1)
        DressGrid();
    else if (row <= CurRowLimit())
        GD->SetRows(row);
    RecCount += row - first_;
    CurRow = std::min(first_, CurRowLimit());  // before LeaveEdit, which marks it: E and D act on it
    LeaveEdit();
}

void EntryForm::SaveEdited() {
    if (editedRowGone_) {  // what is in its place now is another record
        sys::Inform(u"请选择要修改的行！"_s, {});
        return LeaveAndReload();
    }
    const int row = std::min(first_, CurRowLimit());
    LedgerEntry entry = EntryAt(row);
    entry.counterparty = CutAtPoint(entry.counterparty);
    entry.sequence = MoveSequence(*Db, entry.kind, oldKey_, oldSequence_, oldParty_, DateOf(entry));
    UpdateEntry(*Db, oldKey_, entry);
    GD->SetTextMatrix(row, Sequence, text::GeneralText(entry.sequence));
    CurRow = row;
    LeaveEdit();
}
