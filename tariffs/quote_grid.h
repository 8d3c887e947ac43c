// A customer's quotes as a grid of prices: captions, reading and storing, the editor over a price, widths.
//
// Always holds: the grid shows a copy; nothing reaches the table before SaveQuotes, which writes every quote
// anew. Rows 0 and 1 are headers, quotes start at FirstQuoteRow, an empty grid has one blank row there. The
// grid's own Row is the current quote, and the status bar shows its number. Prices are in yuan.
#pragma once

#include "platform/controls/flex_grid.h"

#include <functional>

namespace dao {
class Recordset;
}

class QuoteGrid : public controls::FlexGrid {
    Q_OBJECT
  public:
    QuoteGrid();

    /// Drops the quotes and makes the captions anew from the pricing standard.
    void Empty();
    /// Drops the quotes and leaves the captions as they are. Never raises.
    void DropQuotes();
    /// Reads a customer's quotes. What fails is thrown, and DropQuotes has to follow.
    void LoadQuotes(const QString& customer);
    /// Writes what the grid shows, if the first row is a quote; the customer's old ones are gone by then.
    void SaveQuotes(const QString& customer) const;

    /// 0 where the first row has no zone's name.
    int Quotes() const;
    /// A code is compared as it is, capitals included. Begins with a header row, which only the code 区域
    /// could match. 0 when there is none.
    int FindQuote(const QString& zone) const;
    /// A row of ListPriceSelect, its prices times the coefficient, at the end.
    void AddQuote(const dao::Recordset& zone, double coefficient);
    /// Drops the blank row of an empty grid, once quotes follow it.
    void DropBlankRow();
    /// A header row stays.
    void RemoveQuote(int row);
    void FloatQuote(int row, double coefficient);
    /// Makes it the current one; a row out of range raises RuntimeError.
    void ShowQuote(int row);

    /// Whether prices can be edited over their cells, which only a card in add or edit state allows.
    void SetOpen(bool open) { open_ = open; }
    /// Every caption and price can be read; the space that is left is shared, and where there is too little
    /// the grid scrolls.
    void FitColumns();

    std::function<void()> Pressed;                      ///< a click on a quote, before it is shown
    std::function<void(const QString&)> OperatorChose;  ///< the zone's code of a quote that he went to

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void WriteHeaders();
    QString ZoneAt(int row) const;

    void Moved();
    void Clicked();
    void GoOn(controls::CellMove& move);
    void EditPrice(int row, int col);
    void PriceEdited(int row, int col, const QString& before);

    const QString& LongestText(int col) const;
    int NeededWidth(int col, const QFontMetrics& captions) const;

    bool open_ = false;
};
