// The quotes below a customer's card: the grid of prices, and the line through which zones are quoted,
// floated and removed.
//
// Always holds: the panel shows a copy; nothing reaches the table before the customer is saved, and then all
// quotes are written anew. Rows 0 and 1 of GdMx are headers, quotes start at row 2, an empty grid has one
// blank row there. The job of CmdDel is what its caption says; it reads 批量增加 only while the drop-down is
// open.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"

#include <QBoxLayout>

#include <functional>
#include <vector>

class QuotePanel : public QWidget {
    Q_OBJECT
  public:
    /// What the panel needs of the form it stands in.
    struct Host {
        controls::TextBox* coefficient;        ///< Txt(11), which stands in the panel's bar
        QLabel* coefficientCaption;            ///< Lab(10)
        std::function<int()> lastCustomerRow;  ///< of the customer list
        std::function<void(bool)> unfolded;    ///< the panel takes the room below the card, or gives it back
    };
    QuotePanel(QWidget* form, Host host);

    /// Empties the grid and makes its captions anew from the pricing standard.
    void BuildQuoteGrid();
    /// Reads a customer's quotes; without a code the grid stays empty. A failing statement is told in a box.
    void LoadQuotes(const QString& customer);
    /// Writes what the grid shows, if the first row is a quote.
    void SaveQuotes(const QString& customer);

    /// Add and edit state: the entry line comes and goes, the panel folds.
    void OpenEntry();
    void CloseEntry();

    void Fold();
    void Unfold();
    bool Folded() const;

    void CloseDownList();
    /// Finishes a cell edit. Whatever may come by a key of the menu bar calls it first.
    void FinishCell();

    /// The controls in the order of Tab.
    std::vector<QWidget*> Stops() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildBar(QBoxLayout* bar);
    void BuildEntry();
    void BuildGrid();
    void BuildDownList(QWidget* form);

    void ShowEntry(bool shown);
    void WriteHeaders();
    void ReadQuotes(const QString& customer);
    void ShowChange();
    void FitColumns();
    const QString& LongestText(int col) const;
    void FitDownList(int rows);
    void PlaceDownList();

    // The entry line and the buttons (quote_commands.cpp).
    void WireEntry();
    void OpenDownList();
    void FillDownList();
    void PickFromDownList();
    void PressEnter();
    void PressDelete();
    bool AddQuotes();
    bool FloatRow(int row, double coefficient);
    void DeleteQuote();
    void RemoveQuoteRow(int row);
    void ReNewPrice();
    int FindQuoteRow(const QString& zone) const;

    // The grid (quote_panel.cpp).
    void ShowQuoteRow();
    void GridMoved();
    void GridClicked();
    void GridKey(controls::KeyPress& key);
    void EditCell(int row, int col);
    bool EditorKey(int key, Qt::KeyboardModifiers modifiers);
    void CellDone(int row, int col);
    bool HasQuotes() const;
    bool BatchJob() const;
    void MultiplyRow(int row, double coefficient);
    bool DownListOpen() const { return !GdDownList->isHidden(); }

    Host host_;
    bool entering_ = false;  ///< add or edit state
    int quoteRow_;           ///< the current quote row

    controls::FlexGrid* GdMx;
    controls::FlexGrid* GdDownList;
    controls::Button* CmdUpDown;
    controls::Button* CmdReNewPrice;
    controls::Button* CmdGdMxclear;
    QWidget* PicLRQ;
    QWidget* bar_;
    QLabel* count_;
    controls::LineBox* TxtHPBM;
    controls::LineBox* TxtSL;
    controls::Button* CmdDownList;
    controls::Button* CmdEnter;
    controls::Button* CmdDel;
};
