// The base of every form that is shown inside the main window.
//
// Always holds: a form exists at most once, from its first showing until it unloads; it fills the frame;
// while it is in front its own menu bar, if it has one, replaces the frame's. When it unloads, the
// tool bar shows again and the last panel of the status bar shows the date.
#pragma once

#include "platform/system/guard.h"

#include <QMenuBar>
#include <QString>
#include <QWidget>

#include <functional>

class ChildForm : public QWidget {
    Q_OBJECT
  public:
    /// The name is the form's name in the system ("A04") and its objectName; the caption its title.
    ChildForm(const QString& name, const QString& caption);
    ~ChildForm() override;

    /// The form's own menu bar, made at first use; the frame takes it in while the form is in front.
    QMenuBar* MenuBar();
    bool HasMenuBar() const { return menuBar_ != nullptr; }

    /// Asks QueryUnload and, unless it refuses, lets the frame take the form away. The object lives until
    /// control is back in the event loop, so that a menu handler of its own may call this.
    void Unload();

    /// Runs once, before the form is first shown.
    virtual void Load() = 0;
    /// False refuses to close. The record forms warn while an edit is in progress.
    virtual bool QueryUnload() { return true; }
    /// What has the focus when the form is first shown; null for the first of its tab order.
    virtual QWidget* FirstFocus() const { return nullptr; }
    /// The form came to the front.
    virtual void Activated() {}

    /// Set by the frame that shows the form: removes the form from it.
    std::function<void()> LeaveFrame;

    /// The document kind that a menu row sets before the form is shown: positive the payable side, negative
    /// the receivable side. Only the forms of the accounts read it.
    int LB = 0;

  private:
    QMenuBar* menuBar_ = nullptr;
};
