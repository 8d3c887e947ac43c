// Putting a backup in the place of the database, from the menu or when start-up found no database that opens.
//
// Always holds: the file chosen is not looked at, whatever fails is passed over, and the program ends. A file
// that could not be copied leaves the old database as it was.
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
