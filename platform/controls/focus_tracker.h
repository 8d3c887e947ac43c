// Raises LostFocus and GotFocus for the controls that the operator leaves and enters.
//
// Always holds: LostFocus(old), then GotFocus(new), after the focus has settled and only when the control
// really changed. Popups, menus, message boxes, modal forms and window activation do not count as a change;
// neither does a move that the toolkit makes by itself because a control was hidden or disabled. A SetFocus
// in a handler overrides the pending change.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace controls {

class FocusTracker : public QObject {
    Q_OBJECT
  public:
    /// The application's one tracker; installs itself at first use.
    static FocusTracker& Get();

    /// The control that last received GotFocus in the active window; null between LostFocus and the next
    /// GotFocus.
    QWidget* Current() const;
    /// Raises the outstanding events at once. A click calls it, so that LostFocus of the control that was
    /// left precedes the click; otherwise a queued call raises them.
    void Settle();
    /// The program itself gives this control the focus: GotFocus is raised even if the toolkit had already
    /// moved the focus there.
    void Asked(QWidget* control);

    /// The focus goes back to a control that it left without an event, as its page was hidden. That is no
    /// entering: nothing is raised until the operator leaves the control.
    void Resume(QWidget* control);

    /// What has the focus in this widget is no change for its window either, as with a menu: for what is laid
    /// over a window for a moment.
    void LeaveOut(QWidget& overlay);

  private:
    /// The state of one top-level window. A message box or a modal form over it does not change the state.
    struct Window {
        QPointer<QWidget> window;
        QPointer<QWidget> current;     ///< last received GotFocus; null after LostFocus or hiding
        QPointer<QWidget> notEmitted;  ///< the toolkit moved here by itself; no event until Asked()
        bool left = false;             ///< the focus left current while it was visible and enabled
        bool emitting = false;         ///< a handler is running
    };

    explicit FocusTracker(QObject* parent);
    void FocusMoved(QWidget* old, QWidget* now);
    void Schedule();
    Window& Of(QWidget* window);
    bool EmitNext(QWidget* now);

    std::vector<Window> windows_;
    bool scheduled_ = false;
};

}  // namespace controls
