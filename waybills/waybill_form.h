// The waybill: the form in which the operator enters, prices and posts a consignment.
//
// Always holds: the card shows dressed texts (code, point, name); the save reduces them to codes. The release
// mark (Txt[ReleaseMark]) determines whether a waybill is released; ChkChuHuo only mirrors that text box. An
// operator who may not see figures sees "*" in those text boxes and cannot enter any of them.
#pragma once

#include "platform/controls/card.h"
#include "records/record_form.h"
#include "waybills/computed.h"
#include "waybills/explanation.h"
#include "waybills/price_steps.h"
#include "waybills/waybill_fields.h"

#include <QDate>

#include <map>

class PriceExplanation;

/// 速递单: the waybills.
class B01 : public RecordForm {
    Q_OBJECT
  public:
    B01();
    void Load() override;
    void Activated() override;

    /// Narrows the list to that number, as a search does, and shows the card. In browsing state only.
    void ShowWaybill(const QString& number);

  protected:
    // The list (waybill_list.cpp).
    QStringList Headers() const override;
    QString StatusText() const override;
    void DressCell(int col, QString& text) const override;

    // The card (waybill_card.cpp).
    void RowToCard() override;
    void OpenCard() override;
    void CloseCard() override;

    /// The columns of a SELECT that the list and a search show of a waybill, in the order of the headers.
    static QString ListColumns();
    /// Selects all waybills, ordered by the text of their date.
    static QString ListStatement();
    /// The same rows without an order: a search lists its results in the order of entry. Ends before its
    /// conditions.
    static QString SearchStatement();

    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void BuildCard();
    void PlaceFields(controls::Card& card);
    void MakeCombo(waybills::Box box);
    void WireCard();
    /// Shows the combo in place of its text box, or the text box.
    void ShowCombo(waybills::Box box, bool shown);
    void FillCombos();
    void FillCombo(waybills::Box box, const QString& sql, bool withName);
    void MaskFigures();
    void EmptyBoxes(int first, int last);
    void CombosTakeBoxes();
    void DressBoxes();

    /// Shows what the save will refuse; the save asks for itself.
    void LeaveNumber();
    void ShowNumberRefusal(const QString& refusal);
    void LeaveChannel();
    void LeaveServiceZone();
    void LeaveCustomer();
    void MirrorRelease();
    void ClickRelease();
    /// Puts the result of a computation into its text box, which is locked meanwhile, and keeps its steps; or
    /// shows the message box that says why there is none.
    void Compute(waybills::Side side, waybills::Box box,
                 const std::function<waybills::Computed(waybills::Steps&)>& computation);
    void EnterBasicCharge();
    void EnterTotal();
    void EnterCost();

    void MakeExplanation();
    /// What the card shows for a text box, the combo's text in add and edit state.
    QString CardText(waybills::Box box) const;
    waybills::CardText ShownText() const;

    // The commands.
    void Menu_Add() override;
    void Menu_edit() override;
    void Menu_save() override;
    void Menu_del() override;
    void Menu_Check();
    static void Menu_JSQ();
    void Menu_query() override;  ///< waybill_search.cpp
    void ProposeOrigin();

    // The save (waybill_save.cpp).
    QString TakeCode(waybills::Box box);
    /// False, with a message, when the combo is empty.
    bool RequireCode(waybills::Box box);
    void Missing(waybills::Box box) const;
    void Wrong(waybills::Box box) const;
    bool TakeCombos();
    bool TestMasters() const;
    bool TestNumberAndTotal() const;
    bool CheckNumber();
    QString NumberRefusal(const QString& found) const;
    QString InsertStatement() const;
    void AppendSavedLine();
    void Post();
    /// Of the waybill with that number before, and with what this edit computed anew.
    waybills::BothSides StepsToStore(const QString& old) const;

    controls::ComboBox& Combo(waybills::Box box) const { return *Cmb.at(box); }

    std::map<waybills::Box, controls::ComboBox*> Cmb;  ///< over the text boxes of the same index
    controls::DTPicker* DTP = nullptr;                 ///< over Txt[SendDate]
    controls::CheckBox* ChkChuHuo = nullptr;
    QString panelBeforeRefusal_;  ///< the position panel's text while the number is marked as in use
    QString customerAtEntry_;     ///< trimmed text of Cmb(31) when it got the focus
    PriceExplanation* explanation_ = nullptr;
};
