// The places that a zone contains: their list, and beneath it in an edit the boxes and buttons that change
// it.
//
// Always holds: the list always ends in one empty row that is no data; it is a copy, and reaches the table
// with Store alone. A place is known by its Chinese name, trimmed.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"

#include <array>
#include <vector>

class ZoneAreas : public QWidget {
    Q_OBJECT
  public:
    struct Entry {
        controls::TextBox* box;
        QLabel* caption;
    };
    enum Column { ChineseName, EnglishName, Remark, Columns };

    /// The boxes of the form that the places are typed into, in the order of the columns.
    explicit ZoneAreas(const std::array<Entry, Columns>& entries);

    void Clear();
    /// Reads the places of a zone. Raises DatabaseError.
    void Load(const QString& table, const QString& zone);
    /// Writes the places, as the zone's. Raises DatabaseError.
    void Store(const QString& table, const QString& zone) const;

    bool Empty() const { return GDdq->Rows() == 2; }
    /// Of the first row, "" in an empty list.
    QString FirstName() const;

    void ShowEntry(bool shown);
    void GoToAdd() { Cmd[0]->SetFocus(); }
    /// The controls in the order of Tab.
    std::vector<QWidget*> TabOrder() const;

  private:
    void MakeList();
    void BuildEntry();
    QString Typed(int col) const;
    int Find() const;
    void Add();
    void Remove();
    void TakeRow();

    std::array<Entry, Columns> entries_;
    controls::FlexGrid* GDdq;
    QWidget* FrmEddq;
    std::array<controls::Button*, 2> Cmd{};  ///< add, delete
};
