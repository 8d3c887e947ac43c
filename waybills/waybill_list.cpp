// The list of waybills and its commands: adding and editing begin here, releasing and deleting happen here.
#include "accounts/journal.h"
#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/paint.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "waybills/release.h"
#include "waybills/stored_steps.h"
#include "waybills/waybill_form.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;
using enum waybills::Box;
using waybills::Box;
using waybills::NotChecked;
using waybills::NotShipped;
using When = CommandRow::When;

namespace {

enum Column {
    NumberColumn = 0,
    ServiceTypeColumn = 3,
    PiecesColumn = 4,
    PaymentModeColumn = 5,
    ChannelColumn = 6,
    ReleaseColumn = 9
};

}  // namespace

B01::B01()
    : RecordForm({.form = u"B01"_s,
                  .caption = u"速递单"_s,
                  .listTab = u"速递单列表"_s,
                  .cardTab = u"速递单资料"_s,
                  .tabStripDisabled = true}) {
    SetCommands({
        {u"Menu_Add"_s, u"&A.增加"_s, When::Browsing, [this] { Menu_Add(); }},
        {u"Menu_edit"_s, u"&E.修改"_s, When::Browsing, [this] { Menu_edit(); }},
        {u"Menu_del"_s, u"&D.删除"_s, When::Browsing, [this] { Menu_del(); }},
        {u"Menu_Check"_s, u"&C.出货"_s, When::Browsing, [this] { Menu_Check(); }},
        {u"Menu_query"_s, u"&Q.查找"_s, When::Browsing, [this] { Menu_query(); }},
        {u"Menu_save"_s, u"&S.保存"_s, When::Editing, [this] { Menu_save(); }},
        {u"Menu_cancel"_s, u"&C.取消"_s, When::Editing, [this] { Menu_cancel(); }},
        {u"Menu_JSQ"_s, u"&J.计算器"_s, When::Always, [] { Menu_JSQ(); }},
        {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Browsing, [this] { ExportGrid(*GD); }},
        {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Menu_Return(); }},
    });
    BuildCard();
    // Here alone a click takes the line that is highlighted already; the masters' lists wait for another one.
    GD->Click = [this] { RowChanged(); };
    GD->SetCols(static_cast<int>(Headers().size()));
    GD->SetColAlignment(PiecesColumn, Qt::AlignRight | Qt::AlignVCenter);
    for (const Column col : {ServiceTypeColumn, PaymentModeColumn}) GD->SetColAlignment(col, Qt::AlignCenter);
    GD->SetWordColor(ReleaseColumn, NotChecked, controls::paint::kWarning);
    GD->SetWordColor(ReleaseColumn, NotShipped, controls::paint::kDanger);
}

void B01::Load() {
    // Only the administrator reads the shipping cost, whatever the rights say.
    if (!IsAdministrator()) Txt[ShippingCost]->SetMasked(true);
    FormMode = Browsing;
    if (!CanSeeFigures) MaskFigures();
    FillCombos();
    LoadGrid(ListStatement());
    EmptyBoxes(Number, DeliveryTime);
}

void B01::Activated() {
    TheFrame().SetPanel(MForm::PositionPanel, text::DateText(sys::Today()));
}

QStringList B01::Headers() const {
    return {u"速递单号"_s, u"寄件日期"_s, u"目的地"_s, u"服务类型"_s, u"货品件数"_s, u"付款方式"_s,
            u"出货渠道"_s, u"发件客户"_s, u"外务员"_s, u"出货审核"_s, u"备注"_s};
}

QString B01::ListColumns() {
    return u"select B01.F1,B01.F101,B01.F2031,B01.F301,B01.F401,B01.F501,M01.F2,M03.F2,B01.F602,B01.F604,B01.F103 "_s;
}

QString B01::ListStatement() {
    return ListColumns() +
           u"FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.f1=B01.f202    ORDER BY B01.F101 "_s;
}

QString B01::StatusText() const {
    if (text::Trim(GD->TextMatrix(1, NumberColumn)).isEmpty()) return u"速递单：无单据信息"_s;
    // The count comes from the grid and not from RecCount.
    return u"速递单：共 "_s + QString::number(GD->Rows() - 1) + u" 条记录 当前为第 "_s +
           QString::number(CurRow) + u" 条"_s;
}

void B01::DressCell(int col, QString& text) const {
    // Kept on purpose: the channel's name goes through an amount's format, so that a channel named 3 shows as
    // 3.00.
    if (col == ChannelColumn && text::IsPlainNumber(text))
        text = text::FormatFixed(text::Val(text::Trim(text)), 2);
}

void B01::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    // The channel zone, delivery, fees and sizes of the waybill seen before stay and are saved if nobody
    // touches them.
    EmptyBoxes(Number, IncidentExplanation);
    CombosTakeBoxes();
    DTP->SetValue(sys::Today());
    Txt[Maker]->SetText(OperatorName);
    Txt[Number]->SetLocked(false);
    Combo(CustomerCode).SetFocus();
    Txt[ReleaseMark]->SetText(NotChecked);
    ProposeOrigin();
    for (const Box box : {PaymentMode, Courier})
        if (Combo(box).ListCount() > 0) Combo(box).SetListIndex(0);
}

void B01::ProposeOrigin() {
    const auto last = text::ToInteger32(GetVal(u"select F67 from TE1 where F1="_s + Quoted(OperatorCode)));
    // -1 is what a typed origin left behind: nothing is chosen.
    if (last >= -1 && Combo(OriginName).ListCount() > last) Combo(OriginName).SetListIndex(last);
}

void B01::Menu_edit() {
    RowToCard();
    if (ChkChuHuo->Value() == 1 && !CanEditReleased) {
        sys::Inform(u"该速递单已经审核出货,您没有修改权限!"_s, MsgTitle);
        return;
    }
    FormMode = Editing;
    EnterEdit();
    CombosTakeBoxes();
    if (!text::ReadDate(BoxText(SendDate))) Txt[SendDate]->SetText(text::DateText(sys::Today()));
    DTP->SetValue(*text::ReadDate(BoxText(SendDate)));
    Txt[Maker]->SetText(OperatorName);
    Txt[Number]->SetLocked(false);
    Txt[Number]->SetFocus();
}

void B01::Menu_del() {
    if (RecCount == 0) return;
    RowToCard();
    if (ChkChuHuo->Value() == 1 && !IsAdministrator()) {
        sys::Inform(u"该速递单已经审核出货,非系统管理员,无权删除!"_s, MsgTitle);
        return;
    }
    const QString number = text::Trim(CurrentCell(NumberColumn));
    if (!sys::AskToDestroy(u"数据删除后将不可恢复！\r真的要删除单号为:"_s + number + u"的单据吗？"_s,
                           u"警告"_s))
        return;
    Db->Execute(u"delete from B01 WHERE F1="_s + Quoted(number));
    // The chains of customer and channel are left as they are: the rows behind keep their balances.
    accounts::DeleteWaybillEntries(*Db, number);
    waybills::DeleteSteps(*Db, number);
    // Released waybills left the list and not the count.
    RecCount = std::min(RecCount, GD->Rows() - 1);
    RemoveCurrentRecord(CurRowLimit::Records);
}

void B01::Menu_Check() {
    const QString refusal = waybills::Release(text::Trim(CurrentCell(NumberColumn)));
    if (!refusal.isEmpty()) return sys::Inform(refusal, MsgTitle);
    // It leaves the list at once, and comes back with the operator's name when the list is next loaded.
    const bool last = GD->Rows() < 3;
    RemoveCurrentLine();
    if (!last) CurRow -= 1;
    if (TabS->SelectedItem() == CardTab)
        RowToCard();
    else
        RowChanged();
}

/// The calculator is a program of the operator's own, in the program's folder.
void B01::Menu_JSQ() {
    const QString path = AppFolder + u"jisuan.exe"_s;
    if (!QFile::exists(path))
        sys::Inform(u"计算器(jisuan.exe)文件丢失！\r请找到jisuan.exe文件，并复制到本系统所在文件夹内！"_s,
                    MsgTitle);
    else if (!sys::seams().startProgram(path))
        sys::Inform(u"计算器(jisuan.exe)无法启动！"_s, MsgTitle);
}
