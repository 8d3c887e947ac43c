// The login form, shown at start-up and again from the frame's menu.
//
// Always holds: the form closes after a valid login or ends the program; it has no close button, and Esc and
// Alt+F4 do nothing. The operator code that is checked is the text of the hidden Txt(0), which is set only
// when the combo loses the focus.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <QLabel>

/// 用户登录.
class Login : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit Login(QWidget* over);

  protected:
    void Load() override;

  private:
    void Build();
    void FillOperators();
    void TakeCode();
    void TryLogin();
    void Enter(const QString& code);
    void KeyInBox(controls::KeyPress& key);

    controls::ComboBox* cmbhu_;
    controls::LineBox* code_;      ///< Txt(0)
    controls::LineBox* password_;  ///< Txt(1)
    controls::Button* ok_;         ///< Cmd(0)
    controls::Button* quit_;       ///< Cmd(1)
    QLabel* company_;
};
