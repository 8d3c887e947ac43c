// A zone with its places and its prices: the record form that the company's own selling zones and the
// carriers' cost zones have in common. What differs is a row of settings and a few routines of the form.
//
// Always holds: an edit deletes the zone and its places and then inserts them, with no transaction, so an
// insert that fails loses them. The list of places always ends in one empty row that is no data. Prices are
// in yuan. Whatever refers to a zone keeps its own code: no reference is looked up or followed.
#pragma once

#include "platform/controls/look.h"
#include "records/record_form.h"
#include "tariffs/map_picture.h"

#include <array>
#include <vector>

/// What a zone form says and does differently. Boxes are indexes of Txt, columns those of GD.
struct ZoneSettings {
    QString form;  ///< "A02"
    QString caption, listTab, cardTab;
    QString table, areaTable;                ///< "M02", "M021"
    QStringList headers;                     ///< one for each column
    int shownCols;                           ///< the columns behind are out of sight
    int loadedCols;                          ///< the columns that a load fills
    int codeCol, nameCol;                    ///< of the list
    std::vector<QString> captions;           ///< of all boxes, as designed
    int englishName, days, remark;           ///< boxes; Txt(0) is the code, Txt(1) the name
    int unused;                              ///< the box that fills the index and is never shown
    int firstPrice, lastPrice;               ///< boxes
    QString priceGroup;                      ///< "报价(元)"
    QString negativePrice;                   ///< the refusal
    QString selectionCaption;                ///< what is chosen beside the days: "范围"
    QString selectionLabel, selectionCombo;  ///< control names
    QStringList cascades;                    ///< would take along what uses a zone, up to the apostrophe
};

class ZoneForm : public RecordForm {
    Q_OBJECT
  protected:
    explicit ZoneForm(const ZoneSettings& settings);

    // What a form says of its own.
    virtual QString InsertStatement() const = 0;
    /// The saved zone as a line of the list.
    virtual QStringList SavedLine() const = 0;
    /// The refusals before a save, in their order; false after a message.
    virtual bool TestCard();

    QStringList Headers() const override { return zone_.headers; }
    QString StatusText() const override;
    int LoadedCols() const override { return zone_.loadedCols; }
    void OpenCard() override;
    void CloseCard() override;

    bool RequireAreas() const;
    bool RequirePrices() const;
    /// Reads the places of the zone in Txt(0).
    void FillAreas();

    QString BoxText(int box) const { return Txt[static_cast<std::size_t>(box)]->Text(); }
    QString TrimmedBox(int box) const;
    /// The box's number in general form, for a statement.
    QString NumberBox(int box) const;

    controls::ComboBox* selection_;
    QLabel* selectionLabel_;

  private:
    void MakeBoxes();
    void MakeAreas();
    void BuildCard();
    QWidget* AreaPanel();
    QWidget* PricePanel();
    QWidget* MapPanel();
    void WireCard();
    std::vector<QWidget*> Stops() const;
    void ShowForEdit(bool shown);
    void LookLocked(bool locked);

    void EnterBox(int box);
    void ProposeFor(int box);
    void KeyInBox(int box, controls::KeyPress& key);
    void DropTrailingBlanks();
    void SwapPictures();

    // The list of places.
    void ClearAreas();
    int FindArea() const;
    void AddArea();
    void DeleteArea();
    void AreaToBoxes();

    // The commands.
    void Menu_Add();
    void Menu_edit();
    void Menu_del();
    void Menu_save();
    bool IsUsed(const QString& code) const;
    bool MakeRoom();
    void StoreAreas();

    const ZoneSettings& zone_;
    controls::FlexGrid* GDdq = nullptr;
    QWidget* FrmEddq = nullptr;
    std::array<controls::Button*, 2> Cmd{};  ///< add, delete a place
    std::array<MapPicture*, 2> ImgMap{};     ///< east, west; one of them in sight
};
