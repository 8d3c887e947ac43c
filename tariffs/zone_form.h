// A zone with its places and its prices: the record form shared by the company's own selling zones and the
// carriers' cost zones. They differ in a row of settings (zone_settings.cpp) and a few member functions of
// the form.
//
// Always holds: an edit deletes the zone and its places and then inserts them, with no transaction, so an
// insert that fails loses them. Prices are in yuan. Records that refer to a zone keep their own code: no
// reference is looked up or updated.
#pragma once

#include "platform/controls/card.h"
#include "records/record_form.h"
#include "tariffs/zone_areas.h"
#include "tariffs/zone_prices.h"
#include "tariffs/zone_settings.h"

#include <vector>

class ZoneForm : public RecordForm {
    Q_OBJECT
  protected:
    explicit ZoneForm(const ZoneSettings& settings);

    // Specific to each form.
    virtual QString InsertStatement() const = 0;
    /// The saved zone as a line of the list.
    virtual QStringList SavedLine() const = 0;
    /// Checks the choice on saving, after the names and before the places; returns false after a message.
    virtual bool RequireChoice() { return true; }
    void Menu_Add() override;
    /// Shows the text boxes that are never locked in the same state as the rest of the card.
    virtual void LookLocked(bool locked);

    QStringList Headers() const override { return zone_.headers; }
    int LoadedCols() const override { return zone_.loadedCols; }
    int KeyCol() const override { return zone_.codeCol; }
    void OpenCard() override;
    void CloseCard() override;

    void ClearAreas() { areas_->Clear(); }
    /// Reads the places of the zone in Txt(0).
    void LoadAreas() { areas_->Load(zone_.areaTable, TrimmedBox(0)); }
    /// Places a control to the right of a price and after it in the tab order.
    void PutBeside(int price, QWidget* part) { prices_->PutBeside(Txt[price]->Widget(), part); }
    controls::Card& TheCard() const { return *card_; }

    QString TrimmedBox(int box) const;
    /// The number in the text box in general form, for a statement.
    QString NumberBox(int box) const;

    controls::ComboBox* choice_;

  private:
    void MakeBoxes();
    void MakeChoice();
    ZoneAreas* MakeAreas() const;
    ZonePrices* MakePrices() const;
    void BuildCard();
    void PlaceZone();
    void WireCard();
    std::vector<QWidget*> TabOrder() const;
    void ShowForEdit(bool shown);
    void SetBoxesInTabOrder(bool inOrder);

    void EnterBox(int box);
    void ProposeFor(int box);
    void KeyInBox(int box, controls::KeyPress& key) const;
    void DropTrailingBlanks();

    void Menu_edit() override;
    void Menu_del() override;
    void Menu_query() override;
    void Menu_save() override;
    bool TestCard();
    bool RequireAreas() const;
    bool RequirePrices() const;
    bool IsUsed(const QString& code) const;
    bool CheckCode();

    const ZoneSettings& zone_;
    controls::Card* card_ = nullptr;
    QLabel* choiceLabel_ = nullptr;
    ZoneAreas* areas_ = nullptr;
    ZonePrices* prices_ = nullptr;
};
