// 渠道帐单核对: a channel's bill, a workbook or CSV, beside our own weights and costs.
//
// Always holds: the result is that of the last 核对; another file, another sheet or another channel empties
// it. The columns that were compared are kept for the channel. It shows what 渠道对帐明细表 shows and needs
// the same right.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "reconcile/channel_bill.h"
#include "records/command_bar.h"

#include <array>
#include <optional>

class ChannelBill : public ChildForm {
    Q_OBJECT
  public:
    ChannelBill();
    void Load() override;
    QWidget* FirstFocus() const override;
    void Activated() override { ShowStatus(); }

  private:
    enum Combo { Channel, SheetName, Basis, NumberColumn, WeightColumn, CostColumn, Filter, Combos };
    enum TextBoxes { FileName, FirstRow, WeightTolerance, CostTolerance, Boxes };

    QWidget* MakeFileStrip();
    QWidget* MakeColumnStrip();
    QWidget* MakeCompareStrip();
    QWidget* MakeUpperGrids();
    void MakeResultGrid();

    void ChooseFile();
    /// False after a message; what was read before stays then.
    bool Read(const QString& path, int which);
    void ChooseChannel();
    void ChooseColumns();
    void FillColumnCombos();
    void ShowBill();
    /// nullopt after a message.
    std::optional<reconcile::BillColumns> Chosen() const;
    int ChosenFirstRow() const;
    QString ChannelCode() const;
    void Compare();
    void EmptyResult();
    void ShowResult();
    void ShowSums();
    void ShowStatus();

    std::array<controls::ComboBox*, Combos> Cmb{};
    std::array<controls::LineBox*, Boxes> Txt{};
    std::array<controls::DTPicker*, 2> DTP{};  ///< from, to
    controls::Button* CmdCompare = nullptr;
    controls::FlexGrid* GDBill;  ///< the first rows of the bill
    controls::FlexGrid* GDSum;
    controls::FlexGrid* GD;  ///< the result
    CommandBar commands_;
    QString channel_;    ///< whose columns are shown
    bool kept_ = false;  ///< they are those of an earlier comparison
    QString path_;
    int which_ = 0;  ///< the sheet that was read
    std::optional<sheet::Sheet> bill_;
    std::optional<reconcile::Reconciliation> result_;
};
