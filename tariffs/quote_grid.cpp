#include "tariffs/quote_grid.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"
#include "tariffs/quote_rules.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using enum tariffs::QuoteColumn;
using tariffs::DressedPrice;
using tariffs::FirstQuoteRow;
using tariffs::FloatedPrice;
using tariffs::QuoteCaptions;
using tariffs::QuoteInsert;
using tariffs::QuoteLine;
using tariffs::QuoteSelect;
using tariffs::ReadStandard;

namespace {

/// Narrowest columns, pixels. A longer caption or text widens its column, a name only so far.
constexpr int ZoneWidth = 46;
constexpr int NameWidth = 64;
constexpr int NameWidthMost = 110;
constexpr int PriceWidth = 44;
constexpr int CaptionPixels = 12;
constexpr int CaptionPadding = 4;
constexpr int CellPadding = 12;

}  // namespace

QuoteGrid::QuoteGrid() {
    setObjectName(u"GdMx"_s);
    setAccessibleName(u"客户报价"_s);
    setProperty("kind", u"dense"_s);
    SetFixedRows(FirstQuoteRow);
    SetCols(QuoteColumns);
    SetMergeHeader(true);
    SetCellFramed(true);
    for (int col = 0; col < QuoteColumns; ++col) SetColAlignment(col, Qt::AlignCenter);
    Editor()->setObjectName(u"TxtEnter"_s);
    Editor()->setAccessibleName(u"报价"_s);
    RowChange = [this] { Moved(); };
    Click = [this] { Clicked(); };
    KeyPressed = [this](controls::KeyPress& key) {
        EditByKey(key, controls::EditStart::Digits,
                  [this] { EditPrice(Row(), std::max<int>(Col(), FirstPrice)); });
    };
    CellLeft = [this](controls::CellMove& move) { GoOn(move); };
    CellEdited = [this](int row, int col, const QString&) { PriceEdited(row, col); };
}

// ---------------------------------------------------------------- from the table and back

void QuoteGrid::DropQuotes() {
    BeginLoad(0);
    EndLoad();
}

void QuoteGrid::Empty() {
    DropQuotes();
    WriteHeaders();
}

void QuoteGrid::WriteHeaders() {
    const QStringList fixed{u"区域"_s, u"区域名称"_s};
    QStringList upper = fixed + QStringList{u"文件资料"_s, u"文件资料"_s, u"小包裹"_s, u"小包裹"_s};
    while (upper.size() < QuoteColumns) upper += u"重包裹优惠价"_s;
    const auto write = [this](int row, const QStringList& texts) {
        for (int col = 0; col < QuoteColumns; ++col) SetTextMatrix(row, col, texts.value(col));
    };
    write(0, upper);
    QStringList lower = fixed;
    try {
        if (const auto standard = ReadStandard(*Db)) lower += QuoteCaptions(*standard);
    } catch (const PlatformError&) {
        write(1, fixed);  // the captions of an older standard must not remain
        throw;
    }
    write(1, lower);
}

void QuoteGrid::LoadQuotes(const QString& customer) {
    WriteHeaders();
    auto rows = Db->OpenRecordset(QuoteSelect(customer));
    const int count = CountRows(rows);
    BeginLoad(count);
    for (int row = 0; row < count; ++row, rows.MoveNext())
        for (int col = 0; col < QuoteColumns; ++col)
            LoadCell(row, col, DressedPrice(col, rows.Fields(col).Text()));
    EndLoad();
    rows.Close();
}

void QuoteGrid::SaveQuotes(const QString& customer) const {
    if (Quotes() == 0) return;
    for (int row = FirstQuoteRow; row < Rows(); ++row) {
        QStringList cells;
        for (int col = 0; col < QuoteColumns; ++col) cells += TextMatrix(row, col);
        Db->Execute(QuoteInsert(customer, cells));
    }
}

// ---------------------------------------------------------------- the quotes

QString QuoteGrid::ZoneAt(int row) const {
    return text::Trim(TextMatrix(row, ZoneColumn));
}

int QuoteGrid::Quotes() const {
    const bool some = !text::Trim(TextMatrix(FirstQuoteRow, NameColumn)).isEmpty();
    return some ? Rows() - FirstQuoteRow : 0;
}

int QuoteGrid::FindQuote(const QString& zone) const {
    for (int row = 1; row < Rows(); ++row)
        if (ZoneAt(row) == zone) return row;
    return 0;
}

void QuoteGrid::AddQuote(const dao::Recordset& zone, double coefficient) {
    AddItem(QuoteLine(zone, coefficient).join(u'\t'));
}

void QuoteGrid::DropBlankRow() {
    if (ZoneAt(FirstQuoteRow).isEmpty() && Rows() > FirstQuoteRow + 1) RemoveItem(FirstQuoteRow);
}

void QuoteGrid::RemoveQuote(int row) {
    if (Rows() > FirstQuoteRow + 1) {
        if (row >= FirstQuoteRow) RemoveItem(row);  // the code 区域 finds a header, which stays
        return;
    }
    // The last quote leaves a blank row with the prices further right still in it; without a name they are
    // never stored.
    constexpr int LastBlanked = 6;
    for (int col = 0; col <= LastBlanked; ++col) SetTextMatrix(FirstQuoteRow, col, {});
}

void QuoteGrid::FloatQuote(int row, double coefficient) {
    for (int col = FirstPrice; col <= LastPrice; ++col)
        SetTextMatrix(row, col, FloatedPrice(TextMatrix(row, col), coefficient));
}

void QuoteGrid::ShowQuote(int row) {
    SetRow(row);
    TheFrame().SetPanel(MForm::PositionPanel,
                        LangText(u"报价单：共 "_s + QString::number(Rows() - FirstQuoteRow) +
                                 u" 条记录 当前为第 "_s + QString::number(row - 1) + u" 条"_s));
}

// ---------------------------------------------------------------- what the operator does

void QuoteGrid::Moved() {
    ShowQuote(Row());
    // The operator's own keys do what his click does; a row that the program chooses changes no box.
    if (hasFocus()) OperatorChose(ZoneAt(Row()));
}

void QuoteGrid::Clicked() {
    Pressed();
    ShowQuote(Row());
    OperatorChose(ZoneAt(Row()));
    EditPrice(Row(), Col());
}

/// Lays the editor over a price of a quote, in add and edit state only. The current row may be a header row:
/// after a quote was deleted it follows the customer list.
void QuoteGrid::EditPrice(int row, int col) {
    const bool quote = row >= FirstQuoteRow && !text::Trim(TextMatrix(row, NameColumn)).isEmpty();
    if (!open_ || col < FirstPrice || !quote) return;
    CommitEditor();
    ShowQuote(row);
    SetCol(col);
    EditCell(row, col);
}

void QuoteGrid::PriceEdited(int row, int col) {
    SetTextMatrix(row, col, text::GeneralText(text::Val(TextMatrix(row, col))));
    FitColumns();
}

/// Tab, Up and Down go on to another price and edit it; before the first and past the last the
/// grid has the focus.
void QuoteGrid::GoOn(controls::CellMove& move) {
    using controls::CellStep;
    constexpr int prices = LastPrice - FirstPrice + 1;
    if (move.step == CellStep::Enter) return;
    move.taken = true;
    const bool back = move.step == CellStep::Previous || move.step == CellStep::Up;
    const bool beside = move.step == CellStep::Next || move.step == CellStep::Previous;
    const int step = (back ? -1 : 1) * (beside ? 1 : prices);
    const int at = (Row() - FirstQuoteRow) * prices + Col() - FirstPrice + step;
    if (at >= 0 && at < (Rows() - FirstQuoteRow) * prices)
        EditPrice(FirstQuoteRow + at / prices, FirstPrice + at % prices);
}

// ---------------------------------------------------------------- widths

void QuoteGrid::resizeEvent(QResizeEvent* event) {
    FitColumns();
    FlexGrid::resizeEvent(event);
}

/// The longest text of a column. By characters: prices are digits of one width.
const QString& QuoteGrid::LongestText(int col) const {
    int longest = FirstQuoteRow;
    for (int row = longest + 1; row < Rows(); ++row)
        if (TextMatrix(row, col).size() > TextMatrix(longest, col).size()) longest = row;
    return TextMatrix(longest, col);
}

/// Pixels.
int QuoteGrid::NeededWidth(int col, const QFontMetrics& captions) const {
    const int cell = fontMetrics().horizontalAdvance(LongestText(col)) + CellPadding;
    if (col == ZoneColumn) return std::max(ZoneWidth, cell);
    if (col == NameColumn) return std::clamp(cell, NameWidth, NameWidthMost);
    return std::max({PriceWidth, cell, captions.horizontalAdvance(TextMatrix(1, col)) + CaptionPadding});
}

void QuoteGrid::FitColumns() {
    QFont small = font();
    small.setPixelSize(CaptionPixels);
    const QFontMetrics captions(small);
    std::vector<int> widths;
    int space = viewport()->width();
    for (int col = 0; col < QuoteColumns; ++col) {
        const bool byHand = ColWidthByHand(col);
        widths.push_back(byHand ? GridColWidth(col) / UnitsPerPixel : NeededWidth(col, captions));
        space -= widths.back();
    }
    // Where a shorter name saves the operator from scrolling, its tool tip shows the rest.
    int& name = widths[NameColumn];
    if (space < 0 && !ColWidthByHand(NameColumn) && name + space >= NameWidth)
        name += std::exchange(space, 0);
    for (int col = 0; col < QuoteColumns; ++col) {
        if (ColWidthByHand(col)) continue;
        const int share = space > 0 ? space * (col + 1) / QuoteColumns - space * col / QuoteColumns : 0;
        const int width = (widths[col] + share) * UnitsPerPixel;
        if (GridColWidth(col) != width) SetGridColWidth(col, width);
    }
}
