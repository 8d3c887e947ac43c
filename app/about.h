// The information box of the product.
#pragma once

#include "platform/controls/modal_form.h"

/// 关于本系统.
class AboutUS : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit AboutUS(QWidget* over);
};
