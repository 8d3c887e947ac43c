// The quotes below a customer's card: the bar with the entry line, which adds, floats and removes quotes of
// zones, its drop-down (zone_drop_down.h), and the grid of prices (quote_grid.h), which unfolds below the
// bar.
//
// Always holds: nothing is written to the table before the customer is saved; the save then writes all quotes
// anew. The caption of CmdDel determines what it does; it is 批量增加 only while the drop-down is open.
#pragma once

#include "platform/controls/box.h"
#include "tariffs/quote_grid.h"
#include "tariffs/zone_drop_down.h"

#include <QBoxLayout>

#include <functional>
#include <vector>

class QuotePanel : public QWidget {
    Q_OBJECT
  public:
    /// What the panel needs of the form that contains it.
    struct Host {
        controls::TextBox* coefficient;        ///< Txt(11), in the panel's bar
        QLabel* coefficientCaption;            ///< Lab(10)
        std::function<int()> lastCustomerRow;  ///< of the customer list
        std::function<void(bool)> unfolded;    ///< true: takes the space below the card; false: frees it
    };
    QuotePanel(QWidget* form, Host host);

    /// Clears the grid and rebuilds its captions from the pricing standard.
    void BuildQuoteGrid();
    /// Reads a customer's quotes; without a code the grid stays empty. A message box reports a statement that
    /// fails.
    void LoadQuotes(const QString& customer);
    /// Whether the last LoadQuotes failed: the grid is empty and does not show what is stored.
    bool Unread() const { return unread_; }
    /// Writes the rows of the grid if the first row is a quote.
    void SaveQuotes(const QString& customer);

    const QuoteGrid& Quotes() const { return *GdMx; }

    /// Switches the add and edit state: shows or hides the entry line and folds the panel.
    void OpenEntry();
    void CloseEntry();

    void Fold();
    void Unfold();
    bool Folded() const;

    void CloseDownList();
    /// Finishes a cell edit. Every command that a key of the menu bar can trigger calls it first.
    void FinishCell();

    /// The controls in tab order.
    std::vector<QWidget*> TabOrder() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void BuildBar(QBoxLayout* bar);
    void BuildEntry();

    void ShowEntry(bool shown);
    void ShowChange();

    // The entry line and the buttons (quote_commands.cpp).
    void WireEntry();
    void OpenDownList();
    void PickFromDownList();
    void PressEnter();
    void PressDelete();
    void AddQuotes();
    void FloatAgain(int row, double coefficient);
    void DeleteQuote();
    void RemoveQuoteRow(int row);
    void ReNewPrice();
    /// Sets what CmdDel does: it adds the zones of the open drop-down, or it deletes.
    void SetBatchJob(bool batch);
    bool BatchJob() const;

    Host host_;
    bool unread_ = false;

    QuoteGrid* GdMx;
    ZoneDropDown* GdDownList;
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
