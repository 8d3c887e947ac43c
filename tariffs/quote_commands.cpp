// What the entry line and the buttons of the quote panel do: adding, floating, removing, updating quotes.
#include "app/data_access.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "tariffs/quote_panel.h"
#include "tariffs/quote_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using enum tariffs::QuoteColumn;
using tariffs::FirstQuoteRow;
using tariffs::ListPriceSelect;
using tariffs::PercentOf;

namespace {

// The button's caption is its job.
const QString BatchCaption = u"批量增加"_s;
const QString DeleteCaption = u"删除报价"_s;

}  // namespace

void QuotePanel::WireEntry() {
    GdMx->Pressed = [this] { CloseDownList(); };
    GdMx->OperatorChose = [this](const QString& zone) { TxtHPBM->SetText(zone); };
    CmdUpDown->Click = [this] { Folded() ? Unfold() : Fold(); };
    TxtHPBM->GotFocus = [this] { CloseDownList(); };
    TxtHPBM->KeyPressed = [this](controls::KeyPress& key) {
        const bool down = key.key == Qt::Key_Down;
        key.taken = down || key.IsEnter();
        if (down) OpenDownList();
        if (key.IsEnter()) TxtSL->SetFocus();
    };
    TxtSL->GotFocus = [this] {
        CloseDownList();
        const double coefficient = text::Val(host_.coefficient->Text());
        if (coefficient != 0) TxtSL->SetText(text::GeneralText(coefficient));
    };
    TxtSL->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsEnter()) return;
        key.taken = true;
        if (key.repeats) return;
        text::Trim(TxtHPBM->Text()).isEmpty() ? TxtHPBM->SetFocus() : PressEnter();
    };
    CmdDownList->Click = [this] { OpenDownList(); };
    GdDownList->DoubleClick = [this] { PickFromDownList(); };
    GdDownList->KeyPressed = [this](controls::KeyPress& key) {
        key.taken = key.key == Qt::Key_Escape || key.IsEnter();
        if (key.key == Qt::Key_Escape) TxtHPBM->SetFocus();
        if (key.IsFirstEnter()) PickFromDownList();
    };
    CmdEnter->Click = [this] { PressEnter(); };
    CmdDel->Click = [this] { PressDelete(); };
    CmdGdMxclear->Click = [this] {
        FinishCell();
        BuildQuoteGrid();
    };
    CmdReNewPrice->Click = [this] { ReNewPrice(); };
}

// ---------------------------------------------------------------- the drop-down

void QuotePanel::OpenDownList() {
    FinishCell();
    if (GdDownList->IsOpen()) {
        TxtHPBM->SetFocus();
        return;
    }
    if (GdDownList->Fill(text::Trim(TxtHPBM->Text())) > 0) SetBatchJob(true);
    GdDownList->Open();
}

void QuotePanel::PickFromDownList() {
    TxtHPBM->SetText(GdDownList->Code());
    TxtSL->SetFocus();
}

void QuotePanel::SetBatchJob(bool batch) {
    CmdDel->SetCaption(batch ? BatchCaption : DeleteCaption);
}

bool QuotePanel::BatchJob() const {
    return CmdDel->Caption() == BatchCaption;
}

// ---------------------------------------------------------------- adding

void QuotePanel::PressEnter() {
    FinishCell();
    // With the drop-down open it looks for zones whose codes begin with the chosen zone's name, not its code.
    if (BatchJob()) TxtHPBM->SetText(GdDownList->Name());
    AddQuotes();
    TxtHPBM->SetFocus();
}

void QuotePanel::AddQuotes() {
    const double coefficient = text::Val(TxtSL->Text());
    if (coefficient == 0) return;
    const QString code = text::Trim(TxtHPBM->Text());
    const int existing = BatchJob() ? 0 : GdMx->FindQuote(code);
    if (existing > 0) return FloatAgain(existing, coefficient);
    // Many are looked for by the text with its blanks, one without them.
    auto zones = Db->OpenRecordset(ListPriceSelect() +
                                   (BatchJob() ? u" where F1 like "_s + Quoted(TxtHPBM->Text() + u'*')
                                               : u" where F1="_s + Quoted(code)));
    const bool found = !zones.Eof();
    if (!found) sys::Inform(u"无效的"_s + GdMx->TextMatrix(0, ZoneColumn) + u"编码!"_s, MsgTitle);
    for (; !zones.Eof(); zones.MoveNext())
        if (GdMx->FindQuote(text::Trim(zones.Fields(ZoneColumn).Text())) == 0)
            GdMx->AddQuote(zones, coefficient);
    zones.Close();
    if (found) {
        GdMx->DropBlankRow();
        SetBatchJob(false);
    }
    ShowChange();
    GdMx->ShowQuote(found ? GdMx->Rows() - 1 : GdMx->Row());
}

void QuotePanel::FloatAgain(int row, double coefficient) {
    if (sys::Ask(u"已经存在针对该区域的报价！\r需要在现有报价基础上，再次浮动报价吗？"_s, u"提示"_s))
        GdMx->FloatQuote(row, coefficient);
    ShowChange();
}

// ---------------------------------------------------------------- removing

void QuotePanel::PressDelete() {
    FinishCell();
    if (!BatchJob()) {
        DeleteQuote();
        return;
    }
    AddQuotes();
    TxtHPBM->SetFocus();
}

void QuotePanel::DeleteQuote() {
    const QString code = text::Trim(TxtHPBM->Text());
    if (code.isEmpty()) {
        sys::Inform(u"请输入要删除的区域编码或点击要删除的行!"_s, MsgTitle);
        TxtHPBM->SetFocus();
        return;
    }
    const int row = GdMx->FindQuote(code);
    if (row == 0) {
        sys::Inform(u"此客户资料中没有指定区域编号的相关报价："_s + TxtHPBM->Text() + u"!"_s, MsgTitle);
        return;
    }
    const QString name = text::Trim(GdMx->TextMatrix(row, NameColumn));
    if (sys::AskToDestroy(u"真的要删除["_s + name + u"]的报价吗?"_s, MsgTitle)) RemoveQuoteRow(row);
}

void QuotePanel::RemoveQuoteRow(int row) {
    GdMx->RemoveQuote(row);
    // Kept on purpose: the new row is bounded by the customer list and not by this grid. With more customers
    // than quotes, deleting the last row selects a row that is gone: the operator sees "下标越界", and the
    // program ends.
    ShowChange();
    GdMx->ShowQuote(std::min(row, host_.lastCustomerRow()));
}

// ---------------------------------------------------------------- updating

void QuotePanel::ReNewPrice() {
    FinishCell();
    const double coefficient = text::Val(host_.coefficient->Text());
    if (coefficient == 1 || coefficient <= 0) {
        sys::Inform(u"请首先输入有意义的加价系数！"_s, MsgTitle);
        return;
    }
    if (GdMx->Quotes() == 0) {
        sys::Inform(u"请先输入报价资料！"_s, MsgTitle);
        return;
    }
    const sys::BoxRequest question{
        .text = u"您打算把下列所有报价再浮动"_s + PercentOf(coefficient) + u"%吗？"_s,
        .title = MsgTitle,
        .icon = sys::BoxIcon::Information,
        .buttons = sys::BoxButtons::YesNo,
        .defaultButton = sys::BoxAnswer::Yes};
    if (sys::MsgBox(question) != sys::BoxAnswer::Yes) return;
    for (int row = FirstQuoteRow; row < GdMx->Rows(); ++row) GdMx->FloatQuote(row, coefficient);
    ShowChange();
    sys::Inform(u"报价已更新！请及时保存更新的报价！"_s, MsgTitle);
}
