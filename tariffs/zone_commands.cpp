// What the commands and buttons of a zone form do: its places, adding, changing, deleting, saving.
#include "app/data_access.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "tariffs/zone_form.h"

using namespace Qt::StringLiterals;

namespace {

enum Box { Code = 0, Name = 1, AreaName = 6, AreaEnglish = 7, AreaRemark = 8 };

constexpr int AreaCols = 3;
constexpr int RequiredBoxes = 2;
constexpr int LastChecked = 17;  // the heavy prices behind are not looked at

}  // namespace

// ------------------------------------------------------------------------------------------ the places

void ZoneForm::ClearAreas() {
    GDdq->Clear();
    GDdq->SetRows(2);
    GDdq->SetCols(AreaCols);
    const QString headers[AreaCols] = {u"中文名称"_s, u"英文名称"_s, u"备注"_s};
    for (int col = 0; col < AreaCols; ++col) GDdq->SetTextMatrix(0, col, headers[col]);
    GDdq->ShareWidths();
}

void ZoneForm::FillAreas() {
    ClearAreas();
    auto rows = Db->OpenRecordset(u"select F1,F2,F8 FROM "_s + zone_.areaTable + u" WHERE F0="_s +
                                  Quoted(TrimmedBox(Code)));
    for (; !rows.Eof(); rows.MoveNext()) {
        const int last = GDdq->Rows() - 1;
        for (int col = 0; col < AreaCols; ++col) GDdq->SetTextMatrix(last, col, rows.Fields(col).Text());
        GDdq->AddItem({});
    }
    rows.Close();
}

/// The row that holds the place of the box, or 0.
int ZoneForm::FindArea() const {
    const QString name = TrimmedBox(AreaName);
    for (int row = 1; row < GDdq->Rows(); ++row)
        if (text::Trim(GDdq->TextMatrix(row, 0)) == name) return row;
    return 0;
}

void ZoneForm::AddArea() {
    if (TrimmedBox(AreaName).isEmpty()) return Txt[AreaName]->SetFocus();
    if (const int found = FindArea()) {
        GDdq->SetRow(found);
        sys::Inform(u"已经录入了“"_s + BoxText(AreaName) + u"”！"_s, u"提示"_s);
        return Txt[AreaName]->SetFocus();
    }
    const int last = GDdq->Rows() - 1;
    for (int col = 0; col < AreaCols; ++col) GDdq->SetTextMatrix(last, col, TrimmedBox(AreaName + col));
    GDdq->AddItem({});
    GDdq->SetRow(last);
    Txt[AreaName]->SetFocus();
}

void ZoneForm::DeleteArea() {
    if (TrimmedBox(AreaName).isEmpty()) return Txt[AreaName]->SetFocus();
    if (const int found = FindArea()) return GDdq->RemoveItem(found);
    sys::Inform(u"不存在地区“"_s + BoxText(AreaName) + u"”!"_s, u"提示"_s);
    Txt[AreaName]->SetFocus();
}

void ZoneForm::AreaToBoxes() {
    for (int col = 0; col < AreaCols; ++col) Txt[AreaName + col]->SetText(GDdq->TextMatrix(GDdq->Row(), col));
}

// ------------------------------------------------------------------------------------------ the commands

void ZoneForm::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Code]->SetLocked(false);
    Txt[Code]->SetText({});
    ClearAreas();
    Txt[Code]->SetFocus();
}

void ZoneForm::Menu_edit() {
    FormMode = Editing;
    EnterEdit();
    Txt[Code]->SetLocked(IsUsed(CurrentCell(zone_.codeCol)));
    Txt[Code]->SetFocus();
}

/// By design no zone counts as used: it may be recoded and deleted, and quotes and waybills keep the old
/// code.
bool ZoneForm::IsUsed(const QString& /*code*/) const {
    return false;
}

void ZoneForm::Menu_del() {
    if (text::Trim(GD->TextMatrix(1, zone_.codeCol)).isEmpty()) return;
    const QString code = text::Trim(CurrentCell(zone_.codeCol));
    const QString name = CurrentCell(zone_.nameCol);
    const Consent consent =
        AskToDelete(name, IsUsed(code), u"真的要删除"_s + name + u"吗?"_s, sys::BoxAnswer::No);
    if (consent == Consent::No) return;
    // Not reached while no zone counts as used.
    if (consent == Consent::Whole)
        for (const QString& cascade : zone_.cascades) Db->Execute(cascade + code + u"'"_s);
    Db->Execute(u"delete from "_s + zone_.table + u" WHERE F1="_s + Quoted(code));
    Db->Execute(u"delete from "_s + zone_.areaTable + u" WHERE F0="_s + Quoted(code));
    ForgetCurrentRecord();
}

void ZoneForm::Menu_query() {
    RunQuery(*this, *GD, zone_.search,
             [this](const QString& sql) { LoadGridOrTell(sql + zone_.searchTail); });
}

bool ZoneForm::RequireAreas() const {
    // Only the first row is looked at.
    if (!text::Trim(GDdq->TextMatrix(1, 0)).isEmpty()) return true;
    sys::Inform(u"请输入该区域包含的具体地区名！"_s, MsgTitle);
    return false;
}

bool ZoneForm::RequirePrices() const {
    for (int box = zone_.firstPrice; box <= LastChecked; ++box) {
        if (text::Val(BoxText(box)) >= 0) continue;
        sys::Inform(zone_.negativePrice, MsgTitle);
        return false;
    }
    return true;
}

/// The refusals in their order.
bool ZoneForm::TestCard() {
    return RequireFilled(RequiredBoxes) && RequireChoice() && RequireAreas() && RequirePrices();
}

/// False, with a message, when another zone has the code; takes the old zone away in an edit.
bool ZoneForm::MakeRoom() {
    const QString code = TrimmedBox(Code);
    const QString old = CurrentCell(zone_.codeCol);
    const QString found = GetStr(u"select F2 from "_s + zone_.table + u" where F1="_s + Quoted(code));
    if (!found.isEmpty() && (FormMode == Adding || code != old)) {
        sys::Inform(LangText(u"["_s) + found + LangText(u"]已经使用了"_s) + BoxText(Code) +
                        LangText(u"这个编号，请重新设置编号!"_s),
                    MsgTitle);
        Txt[Code]->SetFocus();
        return false;
    }
    if (FormMode == Adding) {
        RecCount += 1;
        return true;
    }
    Db->Execute(u"delete from "_s + zone_.table + u" where F1="_s + Quoted(old));
    Db->Execute(u"delete from "_s + zone_.areaTable + u" where F0="_s + Quoted(old));
    RemoveCurrentLine();
    return true;
}

void ZoneForm::StoreAreas() {
    for (int row = 1; row <= GDdq->Rows() - 2; ++row) {
        QStringList values{BoxText(Code)};  // as it stands, not trimmed
        for (int col = 0; col < AreaCols; ++col) values += GDdq->TextMatrix(row, col);
        Db->Execute(u"insert into "_s + zone_.areaTable + u" (F0,F1,F2,F8) VALUES ('"_s +
                    values.join(u"','"_s) + u"')"_s);
    }
}

void ZoneForm::Menu_save() {
    DropTrailingBlanks();  // the box may not have been left
    if (!TestCard() || !MakeRoom()) return;
    Db->Execute(InsertStatement());
    StoreAreas();
    AppendLine(SavedLine());
    LeaveEdit();
    CurRow = GD->Rows() - 1;
}
