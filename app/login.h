// Who works: the login, shown by start-up and again by the frame's menu.
//
// Always holds: the form goes by a good login or ends the program; it has no close box, and Esc and Alt+F4 do
// nothing. The code that counts stands in Txt(0), out of sight; it gets there only when the combo is left.
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
