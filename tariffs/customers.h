// The customers: the senders, their salespersons, and the quotes of each.
//
// Always holds: an edit deletes the customer and all its quotes and then inserts them, with no transaction,
// so an insert that fails loses them. The markup coefficient (Txt(11)) applies while the card is edited and
// is stored as 1, since the quotes already contain its effect.
#pragma once

#include "platform/controls/card.h"
#include "records/record_form.h"
#include "tariffs/quote_panel.h"
#include "tariffs/quote_sheet.h"

#include <vector>

/// 客户资料与报价: the customers with their quotes.
class A03 : public RecordForm {
    Q_OBJECT
  public:
    A03();
    void Load() override;

  protected:
    QStringList Headers() const override;
    QString StatusText() const override;
    void RowToCard() override;
    void OpenCard() override;
    void CloseCard() override;

  private:
    void BuildCard();
    void PlaceFields(controls::Card& card);
    controls::LineBox* MakeMemo(int index);
    void WireCard();
    std::vector<QWidget*> TabOrder() const;
    void FillSalespersons();

    void EnterBox(int box);
    void LeaveEnglishName();

    void Menu_Add() override;
    void Menu_edit() override;
    void Menu_del() override;
    void Menu_query() override;
    void Menu_save() override;
    void PrintQuotes(const QuoteSheet& sheet);
    bool NoCustomer() const;
    static bool IsUsed(const QString& code);
    bool CheckCode();
    QString InsertStatement() const;
    void AppendSavedLine();

    std::vector<controls::LineBox*> TxtMEMO;  ///< four more remark lines
    controls::ComboBox* CmbYWY;               ///< over Txt(9)
    QuotePanel* FrmBtm;
    bool inputSwitched_ = false;  ///< entering Txt(3) switched the input method
};
