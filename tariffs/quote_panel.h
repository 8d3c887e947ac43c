// The quotes below a customer's card: the bar with the line through which zones are quoted, floated and
// removed, and the grid of prices (quote_grid.h) that unfolds beneath it.
//
// Always holds: nothing reaches the table before the customer is saved, and then all quotes are written anew.
// The job of CmdDel is what its caption says; it reads 批量增加 only while the drop-down is open.
#pragma once

#include "platform/controls/box.h"
#include "tariffs/quote_grid.h"

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
    std::vector<QWidget*> TabOrder() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void BuildBar(QBoxLayout* bar);
    void BuildEntry();
    void BuildDownList(QWidget* form);

    void ShowEntry(bool shown);
    void ShowChange();
    void FitDownList(int rows);
    void PlaceDownList();
    bool DownListOpen() const { return !GdDownList->isHidden(); }

    // The entry line and the buttons (quote_commands.cpp).
    void WireEntry();
    void OpenDownList();
    void FillDownList();
    void PickFromDownList();
    void PressEnter();
    void PressDelete();
    void AddQuotes();
    void FloatAgain(int row, double coefficient);
    void DeleteQuote();
    void RemoveQuoteRow(int row);
    void ReNewPrice();
    /// What CmdDel does: it adds the zones of the open drop-down, or it deletes.
    void SetBatchJob(bool batch);
    bool BatchJob() const;

    Host host_;

    QuoteGrid* GdMx;
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
