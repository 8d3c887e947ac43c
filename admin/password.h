// The logged-in operator changes their own password.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <array>

/// 操作员修改密码. Passwords are taken as typed, blanks and case included.
class S2 : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit S2(QWidget* over);

  private:
    enum Box { Old, New, Again };
    void Change();

    std::array<controls::LineBox*, 3> Txt{};
};
