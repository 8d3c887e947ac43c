// Putting a backup, or one of the copies that the program makes by itself, in the place of the database, from
// the menu or when start-up found no database that opens.
//
// Always holds: while another program has the open database open too, nothing is done. Else the file chosen
// is not looked at, whatever fails is passed over, and the program ends. A file that could not be copied
// leaves the old database as it was; one that takes its place leaves a dated copy of it.
#pragma once

#include "admin/daily_copies.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/modal_form.h"

#include <QLabel>

/// 数据恢复.
class S32 : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit S32(QWidget* over);

  private:
    QLayout* CopyList();
    QLayout* SecondFolderRow();
    void FillList();
    void ShowSecondFolder();
    void Restore();
    void RestoreCopy();
    void ChooseSecondFolder();
    void ForgetSecondFolder();

    admin::DailyCopies copies_;
    std::vector<admin::DailyCopy> list_;  ///< the rows of GD
    controls::FlexGrid* GD;
    controls::Button* CmdCopy;
    QLabel* LabSecond;
    controls::Button* CmdForget;
};
