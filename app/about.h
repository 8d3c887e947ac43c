// The form 关于本系统: the product's name, the copyright notice and buttons that open a mail and the web
// site.
#pragma once

#include "platform/controls/modal_form.h"

class AboutUS : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit AboutUS(QWidget* over);
};
