// The base of the forms that stand modally over the main window.
//
// Always holds: no button is auto-default; Enter on a focused button presses it; Esc closes only where it is
// told; what the command has written so far is committed before the form waits.
#pragma once

#include "platform/system/guard.h"

#include <QDialog>

#include <functional>

namespace controls {

class ModalForm : public QDialog {
    Q_OBJECT
  public:
    /// The name is the form's name in the system ("Login"), the caption its title.
    ModalForm(const QString& name, const QString& caption, QWidget* parent);

    /// Runs Load, shows the form over its parent and waits until it has gone. Activation goes back to the
    /// window it stood over.
    void ShowModal();
    /// Closes the form.
    void Unload();
    void SetClosedByEsc(bool closed) { closedByEsc_ = closed; }
    void SetCloseBox(bool shown);

    /// The operator's stand-in, where the program runs without one: called, from inside the waiting loop,
    /// with each modal form that is shown. A form that it leaves open is closed after it.
    static std::function<void(ModalForm&)>& Driver();

  protected:
    virtual void Load() {}
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

  private:
    bool closedByEsc_ = false;
    bool closable_ = true;
    bool gone_ = false;
};

}  // namespace controls
