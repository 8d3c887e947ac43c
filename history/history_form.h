// 操作记录: what was done to which record, and by whom; below it the chosen record before and after, from
// where it can be put back.
//
// Always holds: an operator sees the objects whose menus he has, and figures only with that right. The list
// is a copy; it is read anew by 查找 and after 恢复.
#pragma once

#include "app/child_form.h"
#include "history/entries.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"

#include <QLabel>

#include <array>

class History : public ChildForm {
    Q_OBJECT
  public:
    History();
    void Load() override;
    QWidget* FirstFocus() const override { return GD; }
    void Activated() override { ShowStatus(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QWidget* MakeStrip();
    QWidget* MakeSplit();
    void MakeList();
    void MakeDetails();
    void FillCombos();
    void Search();
    void FillList();
    void ShowStatus();
    void ShowEntry();
    void ShowItems(const history::Entry& entry);
    void ShowPrices(const history::Entry& entry);
    void AskAndPutBack();
    const history::Entry* Chosen() const;

    controls::ComboBox* CmbObject;
    controls::ComboBox* CmbOperator;
    std::array<controls::DTPicker*, 2> DTP{};  ///< from, to
    controls::LineBox* Txt;
    controls::FlexGrid* GD;
    QLabel* LabEntry;
    controls::CheckBox* ChkChanged;
    controls::Button* CmdBack;
    controls::FlexGrid* GDItem;
    controls::FlexGrid* GDPrice;
    CommandBar commands_;
    std::vector<history::Entry> entries_;
    bool cut_ = false;  ///< whether the list lacks older ones
};
