// 未出货、未审核: the waybills of the last days that are not released, oldest first, with what each still
// lacks before it can go out.
//
// Always holds: a waybill is listed when its release mark is one of the two that 出货 accepts, 未审核 (new)
// or 未出货 (unmarked again). The list is a copy, built anew by 刷新数据 and when the form comes to the
// front.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"

namespace dao {
class Recordset;
}

class Unreleased : public ChildForm {
    Q_OBJECT
  public:
    Unreleased();
    void Load() override;
    void Activated() override;
    QWidget* FirstFocus() const override { return GD; }

  private:
    QWidget* MakeStrip();
    void MakeList();
    /// Days back from today; 0, after a message, when the text box holds no number from 1 to 9999.
    int DaysBack() const;
    void Refresh();
    void List();
    void Fill(dao::Recordset& rows);
    void ShowStatus();
    void OpenWaybill();
    void Print();

    controls::LineBox* Txt;
    controls::FlexGrid* GD;
    CommandBar commands_;
    int days_ = 7;  ///< back from today, of the last 刷新数据
    int RecCount = 0;
};
