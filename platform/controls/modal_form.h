// The base class of the modal forms over the main window.
//
// Always holds: no button is auto-default; Enter on a focused button presses it; Esc closes only after
// SetClosedByEsc(true); the command's commit group is committed before the form waits.
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

    /// Runs Load, shows the form over its parent and waits until it is closed. Then activates the window that
    /// was active before.
    void ShowModal();
    void Unload();
    void SetClosedByEsc(bool closed) { closedByEsc_ = closed; }
    void SetCloseBox(bool shown);

    /// Seam that replaces the operator where the program runs without one: a queued call in the form's event
    /// loop passes each modal form that is shown. A form that it leaves open is closed afterwards.
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
