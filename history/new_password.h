// Asks for the new password of an operator who is put back, since no password is kept.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <array>
#include <optional>

/// 操作员新密码.
class NewPassword : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit NewPassword(QWidget* over);

    /// What was typed twice; nothing when the operator gave up.
    std::optional<QString> Entered;

  private:
    void Take();

    std::array<controls::LineBox*, 2> Txt{};
};
