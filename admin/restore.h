// Putting a backup in the place of the database, from the menu or when start-up found no database that opens.
//
// Always holds: while another program has the open database open too, nothing is done. Else the file chosen
// is not looked at, whatever fails is passed over, and the program ends. A file that could not be copied
// leaves the old database as it was; one that takes its place leaves a dated copy of it.
#pragma once

#include "platform/controls/modal_form.h"

/// 数据恢复.
class S32 : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit S32(QWidget* over);

  private:
    void Restore();
};
