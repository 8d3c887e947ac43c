// The places of a zone: their list and, below it while editing, the text boxes and buttons that change it.
//
// Always holds: the list ends in one empty row that is not data. The list is a copy; only Store writes it to
// the table. The key of a place is its Chinese name, trimmed.
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

    /// The form's text boxes for entering a place, in the order of the columns.
    explicit ZoneAreas(const std::array<Entry, Columns>& entries);

    void Clear();
    /// Reads the places of a zone. Raises DatabaseError.
    void Load(const QString& table, const QString& zone);
    /// Writes the places with the zone's code. Raises DatabaseError.
    void Store(const QString& table, const QString& zone) const;

    bool Empty() const { return GDdq->Rows() == 2; }
    /// The name in the first row, "" in an empty list.
    QString FirstName() const;

    void ShowEntry(bool shown);
    void GoToAdd() { Cmd[0]->SetFocus(); }
    /// The controls in tab order.
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
