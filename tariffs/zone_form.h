// A zone with its places and its prices: the record form that the company's own selling zones and the
// carriers' cost zones have in common. What differs is a row of settings (zone_settings.cpp) and a few
// routines of the form.
//
// Always holds: an edit deletes the zone and its places and then inserts them, with no transaction, so an
// insert that fails loses them. Prices are in yuan. Whatever refers to a zone keeps its own code: no
// reference is looked up or followed.
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

    // What a form says of its own.
    virtual QString InsertStatement() const = 0;
    /// The saved zone as a line of the list.
    virtual QStringList SavedLine() const = 0;
    /// What a save asks of the choice, between the names and the places; false after a message.
    virtual bool RequireChoice() { return true; }
    void Menu_Add() override;
    /// What is never locked looks as the rest of the card does.
    virtual void LookLocked(bool locked);

    QStringList Headers() const override { return zone_.headers; }
    int LoadedCols() const override { return zone_.loadedCols; }
    void OpenCard() override;
    void CloseCard() override;

    void ClearAreas() { areas_->Clear(); }
    /// Reads the places of the zone in Txt(0).
    void LoadAreas() { areas_->Load(zone_.areaTable, TrimmedBox(0)); }
    /// A control right of a price, behind it for Tab.
    void PutBeside(int price, QWidget* part) { prices_->PutBeside(Txt[price]->Widget(), part); }
    controls::Card& TheCard() const { return *card_; }

    QString TrimmedBox(int box) const;
    /// The box's number in general form, for a statement.
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
    void StopAtBoxes(bool stop);

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
