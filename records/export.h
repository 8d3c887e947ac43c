// Exports a list as a workbook: its header rows and all its lines, without hidden columns.
//
// Always holds: the first row holds the field names F1, F2 and so on, without gaps; there are at most 30
// columns; every cell is text as the grid shows it. An existing file is never overwritten, and an incomplete
// file is not left behind.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/modal_form.h"

#include <QElapsedTimer>

/// Lets the operator export the grid; returns when the form is closed.
void ExportGrid(const controls::FlexGrid& grid);

/// 导出数据到EXCEL. After an export its button opens the file; another export requires opening the form
/// again.
class ToExcel : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit ToExcel(QWidget* over);

    const controls::FlexGrid* GD = nullptr;  ///< set by the caller that shows the form

  protected:
    void Load() override;
    void done(int result) override;

  private:
    void MakeControls();
    void ChooseFile();
    void Press();
    void Export();
    /// False, after a message, if the file was not written.
    bool WriteFile();
    void WriteRows(const QString& path);
    void OpenFile();
    void ShowProgress(int row);

    controls::ComboBox* Cmb = nullptr;
    controls::LineBox* Txt = nullptr;
    controls::Button* CmdSaveTo = nullptr;
    std::array<controls::Button*, 2> Cmd{};
    QElapsedTimer reported_;  ///< time since the caption last showed a row
};
