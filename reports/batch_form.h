// 批量对帐单: the customers with waybills on monthly account in a period, and the statements of the chosen
// ones written into a folder. No menu row opens it.
//
// Always holds: the list is a copy, built anew by each 刷新数据. While statements are written no other input
// than Esc counts; what was written before it remains.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"
#include "reports/batch_statements.h"

#include <array>
#include <vector>

class BatchStatements : public ChildForm {
    Q_OBJECT
  public:
    BatchStatements();
    void Load() override;
    void Activated() override { ShowStatus(); }
    QWidget* FirstFocus() const override { return DTP.front(); }

  private:
    struct Run;

    QWidget* MakeStrip();
    QWidget* MakeFolderStrip();
    void MakeList();
    reports::Scope ShownPeriod() const;
    void Refresh();
    void ShowStatus() const;
    int Chosen() const;
    bool IsChosen(std::size_t index) const;
    void Choose(std::size_t index, bool chosen);
    void ChooseAll(bool chosen);
    void ToggleSelected();
    void ChooseFolder();
    /// Whether statements can be written, for the period of the list; else a message box has said why.
    bool Ready() const;
    void Generate();
    void WriteChosen(reports::StatementBatch& batch, Run& run);
    void ShowResult(std::size_t index, const reports::BatchResult& result);
    void Report(const reports::StatementBatch& batch, Run& run);

    std::array<controls::DTPicker*, 2> DTP{};  ///< from, to
    controls::FlexGrid* GD;
    controls::LineBox* Txt;  ///< the folder
    controls::Button* CmdFolder;
    controls::Button* CmdGenerate;
    CommandBar commands_;
    reports::Scope period_;  ///< that the list was built for
    std::vector<reports::BatchCustomer> customers_;
};
