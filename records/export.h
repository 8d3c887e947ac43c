// What a list shows, as a workbook: its header rows and all its lines, hidden columns left out.
//
// Always holds: the first row are the field names F1 and so on, without gaps; at most 30 columns; every cell
// is a text as the grid shows it. A file that is there is never overwritten, and one that could not be
// finished is not left behind.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/modal_form.h"

#include <QElapsedTimer>

/// Lets the operator export the grid; returns when the form has gone.
void ExportGrid(const controls::FlexGrid& grid);

/// 导出数据到EXCEL. After an export its button opens the file; another export needs the form opened anew.
class ToExcel : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit ToExcel(QWidget* over);

    const controls::FlexGrid* GD = nullptr;  ///< set by whoever shows the form

  protected:
    void Load() override;
    void done(int result) override;

  private:
    void MakeControls();
    void ChooseFile();
    void Press();
    void Export();
    /// False, with a message, when there is no file afterwards.
    bool WriteFile();
    void WriteRows(const QString& path);
    void OpenFile();
    void PlayRow(int row);

    controls::ComboBox* Cmb = nullptr;
    controls::LineBox* Txt = nullptr;
    controls::Button* CmdSaveTo = nullptr;
    std::array<controls::Button*, 2> Cmd{};
    QElapsedTimer reported_;  ///< since the caption last showed a row
};
