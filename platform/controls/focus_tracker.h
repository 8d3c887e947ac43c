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

#include <vector>

namespace controls {

class FocusTracker : public QObject {
    Q_OBJECT
  public:
    /// The application's one tracker; installs itself at first use.
    static FocusTracker& Get();

    /// The control of the active window that was told of the focus last; none while it was told of its loss
    /// and nobody else has been told yet.
    QWidget* Current() const;
    /// Tells what is outstanding at once. A click calls it, so that the loss of the box that was left comes
    /// first; else the program waits for the event loop.
    void Settle();
    /// The program itself gives this control the focus: tells it even where the toolkit had moved there
    /// first.
    void Asked(QWidget* control);

  private:
    /// What is known of one top-level window; a box or a modal form over it leaves it as it is.
    struct Window {
        QPointer<QWidget> window;
        QPointer<QWidget> current;     ///< the last one reported
        QPointer<QWidget> notEmitted;  ///< where the toolkit went by itself
        bool left = false;             ///< current was left while it could be seen and used
        bool emitting = false;         ///< a handler is at work
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
