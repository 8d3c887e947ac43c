// The payments on delivery notes: a list that only grows, by the small window in which a payment is
// registered (payment_entry.h).
//
// Always holds: the grid is a copy. A registered payment is its last line, whatever it is sorted by, until
// the list is loaded again. CurRow counts from 1.
#pragma once

#include "app/child_form.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"

#include <QStringList>

/// 客户付款记录.
class D2 : public ChildForm {
    Q_OBJECT
  public:
    D2();
    void Load() override;
    void Activated() override { ShowStatus(); }
    QWidget* FirstFocus() const override { return GD; }

    /// A payment that was registered: the cells of its line, which becomes the current one.
    void AddPayment(const QStringList& cells);

    int CurRow = 1;
    int RecCount = 0;

  private:
    void SetCommands();
    void DressGrid();
    void LoadGrid(const QString& order);
    void Sort(int index);
    void RowChanged();
    void ShowRow();
    void ShowStatus();

    controls::FlexGrid* GD;
    CommandBar commands_;
};
