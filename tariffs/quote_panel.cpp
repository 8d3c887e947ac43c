// The panel itself: how it stands below the card, and its grid of prices with the editor over a cell.
#include "tariffs/quote_panel.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/look.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"
#include "tariffs/quote_rules.h"

#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace tariffs;
using controls::Button;
using controls::FlexGrid;
using controls::LineBox;

namespace {

constexpr int StatusPanel = 4;
constexpr int UnitsPerPixel = 15;  // of a grid's column widths

constexpr int BarHeight = 40;
constexpr int BarMargin = 16;
constexpr int CodeWidth = 76;
constexpr int CoefficientWidth = 56;
constexpr int DownListWidth = 424;
constexpr int DownListRows = 10;  // before it scrolls
constexpr int RowHeight = 24;
constexpr int HeaderHeight = 28;

/// Narrowest columns, pixels. A longer caption or text widens its column, a name only so far.
constexpr int ZoneWidth = 46;
constexpr int NameWidth = 64;
constexpr int NameWidthMost = 110;
constexpr int PriceWidth = 44;
constexpr int CaptionPixels = 12;
constexpr int CaptionPadding = 4;
constexpr int CellPadding = 12;

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
    : QWidget(form), host_(std::move(host)), quoteRow_(FirstQuoteRow), bar_(new QWidget) {
    setObjectName(u"FrmBtm"_s);
    bar_->setProperty("role", u"strip"_s);
    bar_->setAttribute(Qt::WA_StyledBackground);
    bar_->setFixedHeight(BarHeight);
    auto* row = new QHBoxLayout(bar_);
    row->setContentsMargins(BarMargin, 0, BarMargin, 0);
    row->setSpacing(6);
    BuildBar(row);
    BuildGrid();
    BuildDownList(form);
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
    row->addSpacing(18);
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
    CmdDownList->setFocusPolicy(Qt::NoFocus);  // its key is the arrow down in the box beside it
    CmdDownList->setAccessibleName(u"选择区域"_s);
    TxtSL = Named(new LineBox, u"TxtSL"_s);
    TxtSL->setFixedWidth(CoefficientWidth);
    TxtSL->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    TxtSL->SetText(u"1"_s);
    CmdEnter = Named(new Button(u"增加报价"_s), u"CmdEnter"_s);
    CmdDel = Named(new Button(u"删除报价"_s), u"CmdDel"_s);
    auto* row = new QHBoxLayout(PicLRQ);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(Named(controls::MakeCaption(u"区域编码："_s, TxtHPBM, PicLRQ), u"Label1"_s));
    auto* code = new QHBoxLayout;
    code->setSpacing(2);
    code->addWidget(TxtHPBM);
    code->addWidget(CmdDownList);
    row->addLayout(code);
    row->addSpacing(8);
    row->addWidget(Named(controls::MakeCaption(u"客户加价系数："_s, TxtSL, PicLRQ), u"Label2"_s));
    row->addWidget(TxtSL);
    row->addWidget(CmdEnter);
    row->addWidget(CmdDel);
}

void QuotePanel::BuildGrid() {
    GdMx = Named(new FlexGrid, u"GdMx"_s);
    GdMx->setAccessibleName(u"客户报价"_s);
    GdMx->SetFixedRows(FirstQuoteRow);
    GdMx->SetCols(QuoteColumns);
    GdMx->SetMergeHeader(true);
    GdMx->setProperty("kind", u"dense"_s);
    for (int col = 0; col < QuoteColumns; ++col) GdMx->SetColAlignment(col, Qt::AlignCenter);
    GdMx->Editor()->setObjectName(u"TxtEnter"_s);
    GdMx->Editor()->setAccessibleName(u"报价"_s);
    GdMx->Editor()->installEventFilter(this);
    GdMx->viewport()->installEventFilter(this);
    GdMx->RowChange = [this] { GridMoved(); };
    GdMx->Click = [this] { GridClicked(); };
    GdMx->KeyPressed = [this](controls::KeyPress& key) { GridKey(key); };
    GdMx->CellEdited = [this](int row, int col, const QString&) { CellDone(row, col); };
}

void QuotePanel::BuildDownList(QWidget* form) {
    GdDownList = Named(new FlexGrid(form), u"GdDownList"_s);
    GdDownList->setAccessibleName(u"区域"_s);
    GdDownList->SetFramed(true);
    GdDownList->SetCols(3);
    FitDownList(DownListRows);
    GdDownList->hide();
}

std::vector<QWidget*> QuotePanel::Stops() const {
    // The list stands before the button whose job it changes, so that Tab leads from the one to the other.
    return {CmdUpDown,     TxtHPBM, TxtSL,        CmdEnter,
            GdDownList,    CmdDel,  CmdGdMxclear, host_.coefficient->Widget(),
            CmdReNewPrice, GdMx};
}

// ---------------------------------------------------------------- states

void QuotePanel::ShowEntry(bool shown) {
    entering_ = shown;
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
    FitColumns();
    CmdUpDown->SetCaption(u"6"_s);
    controls::Mark(bar_, "edge", u"both"_s);
    host_.unfolded(true);
}

void QuotePanel::CloseDownList() {
    if (!DownListOpen()) return;
    GdDownList->hide();
    CmdDel->SetCaption(u"删除报价"_s);
}

void QuotePanel::FinishCell() {
    GdMx->CommitEditor();
}

/// What the texts decide: the count in the bar and the widths.
void QuotePanel::ShowChange() {
    if (!Folded()) FitColumns();
    count_->setText(u"共 "_s + QString::number(HasQuotes() ? GdMx->Rows() - FirstQuoteRow : 0) +
                    u" 个区域"_s);
}

// ---------------------------------------------------------------- the grid

void QuotePanel::BuildQuoteGrid() {
    GdMx->BeginLoad(0);
    GdMx->EndLoad();
    quoteRow_ = FirstQuoteRow;
    WriteHeaders();
    ShowChange();
}

void QuotePanel::WriteHeaders() {
    const QStringList fixed{u"区域"_s, u"区域名称"_s};
    QStringList upper = fixed + QStringList{u"文件资料"_s, u"文件资料"_s, u"小包裹"_s, u"小包裹"_s};
    while (upper.size() < QuoteColumns) upper += u"重包裹优惠价"_s;
    const auto standard = ReadStandard(*Db);
    const QStringList lower = fixed + (standard ? QuoteCaptions(*standard) : QStringList());
    for (int col = 0; col < QuoteColumns; ++col) {
        GdMx->SetTextMatrix(0, col, upper[col]);
        GdMx->SetTextMatrix(1, col, lower.value(col));
    }
}

void QuotePanel::LoadQuotes(const QString& customer) {
    const QString code = text::Trim(customer);
    if (code.isEmpty()) return BuildQuoteGrid();
    try {
        ReadQuotes(code);
    } catch (const PlatformError& error) {
        BuildQuoteGrid();
        sys::Inform(error.Text(), MsgTitle);
    }
}

void QuotePanel::ReadQuotes(const QString& customer) {
    WriteHeaders();
    auto rows = Db->OpenRecordset(QuoteSelect(customer));
    int count = 0;
    if (!rows.Eof()) {
        rows.MoveLast();
        count = rows.RecordCount();
        rows.MoveFirst();
    }
    GdMx->BeginLoad(count);
    for (int row = 0; row < count; ++row, rows.MoveNext())
        for (int col = 0; col < QuoteColumns; ++col)
            GdMx->LoadCell(row, col, DressedPrice(col, rows.Fields(col).Text()));
    GdMx->EndLoad();
    rows.Close();
    quoteRow_ = FirstQuoteRow;
    ShowChange();
}

bool QuotePanel::HasQuotes() const {
    return !text::Trim(GdMx->TextMatrix(FirstQuoteRow, NameColumn)).isEmpty();
}

void QuotePanel::SaveQuotes(const QString& customer) {
    if (!HasQuotes()) return;
    for (int row = FirstQuoteRow; row < GdMx->Rows(); ++row) {
        QStringList cells;
        for (int col = 0; col < QuoteColumns; ++col) cells += GdMx->TextMatrix(row, col);
        Db->Execute(QuoteInsert(customer, cells));
    }
}

void QuotePanel::ShowQuoteRow() {
    GdMx->SetRow(quoteRow_);
    GdMx->SetRowSel(quoteRow_);
    TheFrame().SetPanel(StatusPanel,
                        LangText(u"报价单：共 "_s + QString::number(GdMx->Rows() - FirstQuoteRow) +
                                 u" 条记录 当前为第 "_s + QString::number(quoteRow_ - 1) + u" 条"_s));
}

void QuotePanel::GridMoved() {
    quoteRow_ = GdMx->Row();
    ShowQuoteRow();
    // The operator's own keys do what his click does; a row that the program chooses changes no box.
    if (GdMx->hasFocus()) TxtHPBM->SetText(text::Trim(GdMx->TextMatrix(quoteRow_, ZoneColumn)));
}

void QuotePanel::GridClicked() {
    CloseDownList();
    const int row = GdMx->Row();
    const int col = GdMx->Col();
    quoteRow_ = row;
    ShowQuoteRow();
    TxtHPBM->SetText(text::Trim(GdMx->TextMatrix(row, ZoneColumn)));
    EditCell(row, col);
}

/// Lays the editor over a price of a quote, in add and edit state only.
void QuotePanel::EditCell(int row, int col) {
    const bool quote = !text::Trim(GdMx->TextMatrix(row, NameColumn)).isEmpty();
    if (!entering_ || col < FirstPrice || !quote) return;
    FinishCell();
    quoteRow_ = row;
    ShowQuoteRow();
    GdMx->SetCol(col);
    GdMx->EditCell(row, col);
}

void QuotePanel::CellDone(int row, int col) {
    GdMx->SetTextMatrix(row, col, text::GeneralText(text::Val(GdMx->TextMatrix(row, col))));
    FitColumns();
}

/// Enter or F2 opens the editor over the current price; a digit does too and is its first character.
void QuotePanel::GridKey(controls::KeyPress& key) {
    const bool opens = key.key == Qt::Key_Return || key.key == Qt::Key_Enter || key.key == Qt::Key_F2;
    const bool chord = key.modifiers & (Qt::ControlModifier | Qt::AltModifier);
    const bool digit = key.key >= Qt::Key_0 && key.key <= Qt::Key_9 && !key.text.isEmpty() && !chord;
    if (!opens && !digit) return;
    key.taken = true;
    EditCell(GdMx->Row(), std::max<int>(GdMx->Col(), FirstPrice));
    if (digit && GdMx->Editing()) GdMx->Editor()->insert(key.text);
}

/// In the editor Tab and the arrows up and down go on to another price and edit it; past the last the grid
/// has the focus.
bool QuotePanel::EditorKey(int key, Qt::KeyboardModifiers modifiers) {
    constexpr int prices = LastPrice - FirstPrice + 1;
    int step = 0;
    if (key == Qt::Key_Tab) step = 1;
    if (key == Qt::Key_Backtab || (key == Qt::Key_Tab && modifiers.testFlag(Qt::ShiftModifier))) step = -1;
    if (key == Qt::Key_Down) step = prices;
    if (key == Qt::Key_Up) step = -prices;
    if (step == 0) return false;
    const int at = (GdMx->Row() - FirstQuoteRow) * prices + GdMx->Col() - FirstPrice + step;
    FinishCell();
    if (at >= 0 && at < (GdMx->Rows() - FirstQuoteRow) * prices)
        EditCell(FirstQuoteRow + at / prices, FirstPrice + at % prices);
    return true;
}

void QuotePanel::MultiplyRow(int row, double coefficient) {
    for (int col = FirstPrice; col <= LastPrice; ++col)
        GdMx->SetTextMatrix(row, col, FloatedPrice(GdMx->TextMatrix(row, col), coefficient));
}

// ---------------------------------------------------------------- sizes

bool QuotePanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == GdMx->viewport() && event->type() == QEvent::Resize) FitColumns();
    if (watched == GdMx->Editor() && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        bool taken = false;
        sys::Guarded([&] { taken = EditorKey(key->key(), key->modifiers()); });
        if (taken) return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// The longest text of a column. By characters: prices are digits of one width.
const QString& QuotePanel::LongestText(int col) const {
    int longest = FirstQuoteRow;
    for (int row = longest + 1; row < GdMx->Rows(); ++row)
        if (GdMx->TextMatrix(row, col).size() > GdMx->TextMatrix(longest, col).size()) longest = row;
    return GdMx->TextMatrix(longest, col);
}

/// Every caption and price can be read; what room is left is shared, and where there is too little the grid
/// scrolls.
void QuotePanel::FitColumns() {
    QFont small = GdMx->font();
    small.setPixelSize(CaptionPixels);
    const QFontMetrics captions(small);
    const QFontMetrics cells = GdMx->fontMetrics();
    std::vector<int> widths;
    int room = GdMx->viewport()->width();
    for (int col = 0; col < QuoteColumns; ++col) {
        const int cell = cells.horizontalAdvance(LongestText(col)) + CellPadding;
        const int caption = captions.horizontalAdvance(GdMx->TextMatrix(1, col)) + CaptionPadding;
        if (col == ZoneColumn)
            widths.push_back(std::max(ZoneWidth, cell));
        else if (col == NameColumn)
            widths.push_back(std::clamp(cell, NameWidth, NameWidthMost));
        else
            widths.push_back(std::max({PriceWidth, cell, caption}));
        room -= widths.back();
    }
    for (int col = 0; col < QuoteColumns; ++col) {
        const int share = room > 0 ? room * (col + 1) / QuoteColumns - room * col / QuoteColumns : 0;
        const int width = (widths[static_cast<std::size_t>(col)] + share) * UnitsPerPixel;
        if (GdMx->GridColWidth(col) != width) GdMx->SetGridColWidth(col, width);
    }
}

void QuotePanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (DownListOpen()) PlaceDownList();
}

/// As high as its rows; an empty one keeps the blank row of an empty grid.
void QuotePanel::FitDownList(int rows) {
    const int frame = 2 * GdDownList->frameWidth();
    GdDownList->resize(DownListWidth, HeaderHeight + std::clamp(rows, 1, DownListRows) * RowHeight + frame);
}

/// Under its box, or above it where the panel is folded at the foot of the form.
void QuotePanel::PlaceDownList() {
    const QWidget* form = GdDownList->parentWidget();
    const QPoint below = TxtHPBM->mapTo(form, QPoint(0, TxtHPBM->height() + 2));
    const QPoint above = TxtHPBM->mapTo(form, QPoint(0, -2 - GdDownList->height()));
    const bool fits = below.y() + GdDownList->height() <= form->height();
    GdDownList->move(fits || above.y() < 0 ? below : above);
}
