// Tells which control the operator left and which one he entered.
//
// Always holds: LostFocus(old), then GotFocus(new), after the focus has settled and only when the control
// really changed. Popups, menus, message boxes, modal forms and window activation are no change; neither is a
// move that the toolkit makes by itself because a control was hidden or disabled. A SetFocus in a handler
// wins.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace controls {

class FocusTracker : public QObject {
    Q_OBJECT
  public:
    /// The application's one tracker; installs itself at first use.
    static FocusTracker& Get();

    /// The control that has the focus for the forms: the last one that GotFocus was told to.
    QWidget* Current() const { return current_; }
    /// Tells what is outstanding at once. Tests call it; the program waits for the event loop.
    void Settle();

  private:
    FocusTracker();
    bool eventFilter(QObject* watched, QEvent* event) override;

    QPointer<QWidget> current_;
    bool scheduled_ = false;
};

}  // namespace controls
