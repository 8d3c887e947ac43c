// The four small master forms: two text fields, the key first, the visible name being the key itself. What
// one of them says and does differently is a row of one table (small_masters.cpp).
//
// Always holds: an edit is a delete followed by an insert, with no transaction, so an insert that fails loses
// the record. Waybills store the name as text, which is why a used name may not change.
#pragma once

#include "records/record_form.h"

struct SmallMasterSettings {
    QString form;     ///< "A04"
    QString caption;  ///< "外务员资料"
    QString listTab, cardTab;
    QString group;  ///< the card's group title
    QString table;  ///< "M04"
    QString keyCaption, noteCaption;
    QStringList headers;      ///< none: the captions of the boxes
    int keyLimit, noteLimit;  ///< characters
    int keySpan;              ///< pairs of the card's half that the key's box takes
    int noteRows;             ///< rows of the note's box
    int requiredBoxes;        ///< Txt(0) up to here must not be empty
    QString usedIn;           ///< in-use test, up to the key
    QString cascade;          ///< what goes with a used record, up to the key
    QString duplicateTest;    ///< up to the key
    bool duplicateNamesKey;   ///< the message begins with the text of Txt(0)
    QString duplicateText;    ///< the message
};

extern const SmallMasterSettings CourierSettings;      ///< FieldCourier, table M04
extern const SmallMasterSettings SalespersonSettings;  ///< Salesperson, table M030
extern const SmallMasterSettings OriginSettings;       ///< Origin, table M05
extern const SmallMasterSettings IncidentSettings;     ///< IncidentReason, table M06

class SmallMaster : public RecordForm {
    Q_OBJECT
  public:
    explicit SmallMaster(const SmallMasterSettings& settings);
    void Load() override;

  protected:
    QStringList Headers() const override;
    void RowToCard() override;
    void OpenCard() override;
    void CloseCard() override;

  private:
    void Menu_Add() override;
    void Menu_edit() override;
    void Menu_del() override;
    void Menu_query() override;
    void Menu_save() override;
    bool IsUsed(const QString& key) const;
    bool CheckKey();

    const SmallMasterSettings& master_;
};

/// 外务员资料: the field couriers.
class A04 : public SmallMaster {
  public:
    A04() : SmallMaster(CourierSettings) {}
};

/// 业务员资料: the salespersons.
class A030 : public SmallMaster {
  public:
    A030() : SmallMaster(SalespersonSettings) {}
};

/// 始发地资料: where consignments begin.
class A05 : public SmallMaster {
  public:
    A05() : SmallMaster(OriginSettings) {}
};

/// 速递事故原因设置: why consignments fail.
class A06 : public SmallMaster {
  public:
    A06() : SmallMaster(IncidentSettings) {}
};
