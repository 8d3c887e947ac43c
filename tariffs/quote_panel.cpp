// How the panel below the card is laid out: its bar and folding.
#include "tariffs/quote_panel.h"

#include "app/session.h"
#include "platform/controls/numeric.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;
using controls::Button;
using controls::LineBox;

namespace {

constexpr int BarHeight = 40;
constexpr int BarMargin = 8;
constexpr int CodeWidth = 76;
constexpr int CoefficientWidth = 76;

QLabel* BarLabel(const QString& text, const QString& role) {
    auto* label = new QLabel(text);
    label->setProperty("role", role);
    return label;
}

template <class Control>
Control* Named(Control* control, const QString& name) {
    control->setObjectName(name);
    return control;
}

}  // namespace

QuotePanel::QuotePanel(QWidget* form, Host host)
    : QWidget(form), host_(std::move(host)), GdMx(new QuoteGrid), bar_(new QWidget) {
    setObjectName(u"FrmBtm"_s);
    bar_->setProperty("role", u"strip"_s);
    bar_->setAttribute(Qt::WA_StyledBackground);
    bar_->setFixedHeight(BarHeight);
    auto* row = new QHBoxLayout(bar_);
    row->setContentsMargins(BarMargin, 0, BarMargin, 0);
    row->setSpacing(6);
    BuildBar(row);
    GdDownList = new ZoneDropDown(form, TxtHPBM);
    WireEntry();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addWidget(GdMx, 1);
    ShowEntry(false);
    GdMx->hide();
}

void QuotePanel::BuildBar(QBoxLayout* row) {
    CmdUpDown = Named(new Button(u"5"_s), u"CmdUpDown"_s);
    count_ = BarLabel({}, u"form"_s);
    CmdGdMxclear = Named(new Button(u"清空报价"_s), u"CmdGdMxclear"_s);
    CmdGdMxclear->setProperty("role", u"danger"_s);
    CmdReNewPrice = Named(new Button(u"更新报价"_s), u"CmdReNewPrice"_s);
    BuildEntry();
    host_.coefficient->Widget()->setFixedWidth(CoefficientWidth);
    row->addWidget(CmdUpDown);
    row->addWidget(BarLabel(u"客户报价"_s, u"group"_s));
    row->addSpacing(6);
    row->addWidget(PicLRQ);
    row->addWidget(CmdGdMxclear);
    row->addWidget(count_);
    row->addStretch(1);
    row->addWidget(host_.coefficientCaption);
    row->addWidget(host_.coefficient->Widget());
    row->addWidget(CmdReNewPrice);
}

void QuotePanel::BuildEntry() {
    PicLRQ = Named(new QWidget, u"PicLRQ"_s);
    TxtHPBM = Named(new LineBox, u"TxtHPBM"_s);
    TxtHPBM->setFixedWidth(CodeWidth);
    CmdDownList = Named(new Button(u"6"_s), u"CmdDownList"_s);
    CmdDownList->setFocusPolicy(Qt::NoFocus);  // its key is Down in the text box beside it
    CmdDownList->setAccessibleName(u"选择区域"_s);
    TxtSL = Named(new LineBox, u"TxtSL"_s);
    TxtSL->setFixedWidth(CoefficientWidth);
    TxtSL->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    controls::SetNumeric(*TxtSL);
    TxtSL->SetText(u"1"_s);
    CmdEnter = Named(new Button(u"增加报价"_s), u"CmdEnter"_s);
    CmdDel = Named(new Button({}), u"CmdDel"_s);
    SetBatchJob(false);
    auto* row = new QHBoxLayout(PicLRQ);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(Named(controls::MakeCaption(u"区域编码："_s, TxtHPBM, PicLRQ), u"Label1"_s));
    auto* code = new QHBoxLayout;
    code->setSpacing(2);
    code->addWidget(TxtHPBM);
    code->addWidget(CmdDownList);
    row->addLayout(code);
    row->addSpacing(2);
    row->addWidget(Named(controls::MakeCaption(u"客户加价系数："_s, TxtSL, PicLRQ), u"Label2"_s));
    row->addWidget(TxtSL);
    row->addWidget(CmdEnter);
    row->addWidget(CmdDel);
}

std::vector<QWidget*> QuotePanel::TabOrder() const {
    // The list comes before the button whose job it changes, so that Tab leads from the one to the other.
    return {CmdUpDown,     TxtHPBM, TxtSL,        CmdEnter,
            GdDownList,    CmdDel,  CmdGdMxclear, host_.coefficient->Widget(),
            CmdReNewPrice, GdMx};
}

// ---------------------------------------------------------------- states

void QuotePanel::ShowEntry(bool shown) {
    GdMx->SetOpen(shown);
    for (QWidget* widget : {PicLRQ, static_cast<QWidget*>(CmdGdMxclear), static_cast<QWidget*>(CmdReNewPrice),
                            static_cast<QWidget*>(host_.coefficientCaption), host_.coefficient->Widget()})
        widget->setVisible(shown);
    count_->setVisible(!shown);
}

void QuotePanel::OpenEntry() {
    ShowEntry(true);
    Fold();
}

void QuotePanel::CloseEntry() {
    FinishCell();
    CloseDownList();
    ShowEntry(false);
    Fold();
}

bool QuotePanel::Folded() const {
    return GdMx->isHidden();
}

void QuotePanel::Fold() {
    CloseDownList();
    GdMx->hide();
    CmdUpDown->SetCaption(u"5"_s);
    controls::Mark(bar_, "edge", u"top"_s);
    host_.unfolded(false);
}

void QuotePanel::Unfold() {
    CloseDownList();
    GdMx->show();
    GdMx->FitColumns();
    CmdUpDown->SetCaption(u"6"_s);
    controls::Mark(bar_, "edge", u"both"_s);
    host_.unfolded(true);
}

void QuotePanel::CloseDownList() {
    if (!GdDownList->IsOpen()) return;
    GdDownList->hide();
    SetBatchJob(false);
}

void QuotePanel::FinishCell() {
    GdMx->CommitEditor();
}

/// What the texts decide: the count in the bar and the widths.
void QuotePanel::ShowChange() {
    if (!Folded()) GdMx->FitColumns();
    count_->setText(u"共 "_s + QString::number(GdMx->Quotes()) + u" 个区域"_s);
}

// ---------------------------------------------------------------- the customer's quotes

void QuotePanel::BuildQuoteGrid() {
    GdMx->Empty();
    ShowChange();
}

void QuotePanel::LoadQuotes(const QString& customer) {
    const QString code = text::Trim(customer);
    unread_ = true;
    try {
        if (code.isEmpty())
            GdMx->Empty();
        else
            GdMx->LoadQuotes(code);
        ShowChange();
        unread_ = false;
    } catch (const PlatformError& error) {
        // Nothing is read here: what failed may be the standard, and would fail once more.
        GdMx->DropQuotes();
        ShowChange();
        sys::Inform(error.Text(), MsgTitle);
    }
}

void QuotePanel::SaveQuotes(const QString& customer) {
    GdMx->SaveQuotes(customer);
}

void QuotePanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (GdDownList->IsOpen()) GdDownList->Place();
}
