// The form 关于本系统: the product's name, its copyright notice and buttons for the maker's mail and site.
#pragma once

#include "platform/controls/modal_form.h"

class AboutUS : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit AboutUS(QWidget* over);
};
