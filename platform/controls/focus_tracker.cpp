#include "platform/controls/focus_tracker.h"

#include "platform/controls/control_events.h"
#include "platform/controls/input_order.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace controls {
namespace {

/// Two handlers that send each other the focus for ever are left after so many steps.
constexpr int kMostSteps = 64;

constexpr const char* kLeftOut = "leftOutOfFocus";

bool IsLeftOut(const QWidget* widget) {
    for (const QWidget* w = widget; w; w = w->parentWidget())
        if (w->property(kLeftOut).toBool()) return true;
    return false;
}

/// The control that a widget belongs to: an inner line, a list or a calendar that drops down count as the
/// control itself. Nothing for menus, other popups and what is left out.
QWidget* ControlOf(QWidget* widget) {
    if (IsLeftOut(widget)) return nullptr;
    for (QWidget* w = widget; w; w = w->parentWidget())
        if (dynamic_cast<FocusEvents*>(w)) return w;
    if (!widget || qobject_cast<QMenuBar*>(widget) || qobject_cast<QMenu*>(widget)) return nullptr;
    return widget->window()->windowType() == Qt::Popup ? nullptr : widget;
}

bool Usable(const QWidget* widget) {
    return widget && widget->isVisible() && widget->isEnabled();
}

}  // namespace

void MoveFocus(QWidget* control) {
    FocusTracker::Get().Asked(control);
    control->setFocus(Qt::OtherFocusReason);
}

FocusTracker& FocusTracker::Get() {
    static QPointer<FocusTracker> only;
    if (!only) only = new FocusTracker(qApp);
    return *only;
}

FocusTracker::FocusTracker(QObject* parent) : QObject(parent) {
    connect(qApp, &QApplication::focusChanged, this, &FocusTracker::FocusMoved);
}

FocusTracker::Window& FocusTracker::Of(QWidget* window) {
    std::erase_if(windows_, [](const Window& w) { return !w.window && !w.emitting; });
    for (Window& known : windows_)
        if (known.window == window) return known;
    return windows_.emplace_back(Window{.window = window});
}

QWidget* FocusTracker::Current() const {
    QWidget* active = QApplication::activeWindow();
    for (const Window& known : windows_)
        if (active && known.window == active) return known.current;
    return nullptr;
}

void FocusTracker::Asked(QWidget* control) {
    Of(control->window()).notEmitted = nullptr;
    Schedule();
}

void FocusTracker::Resume(QWidget* control) {
    Window& known = Of(control->window());
    known.current = ControlOf(control);
    known.notEmitted = nullptr;
    known.left = false;
    control->setFocus(Qt::OtherFocusReason);
}

void FocusTracker::LeaveOut(QWidget& overlay) {
    overlay.setProperty(kLeftOut, true);
}

void FocusTracker::FocusMoved(QWidget* old, QWidget* now) {
    QWidget* to = ControlOf(now);
    // Hidden or disabled while it had the focus: what follows is the toolkit's own move.
    if (old && !Usable(old)) {
        Window& known = Of(old->window());
        if (!Usable(known.current)) known.current = nullptr;
        known.notEmitted = to && to != known.current && to->window() == old->window() ? to : nullptr;
    } else if (to) {
        Window& known = Of(to->window());
        if (to != known.notEmitted) known.notEmitted = nullptr;
        if (old && ControlOf(old) == known.current && to != known.current) known.left = true;
    }
    if (to) Schedule();
}

void FocusTracker::Schedule() {
    if (scheduled_) return;
    scheduled_ = true;
    InputOrder::Get().Post([this] {
        scheduled_ = false;
        Settle();
    });
}

void FocusTracker::Settle() {
    for (int step = 0; step < kMostSteps; ++step) {
        QWidget* now = ControlOf(QApplication::focusWidget());
        if (!now || !EmitNext(now)) return;
    }
}

/// Emits one event, the loss before the gain; false when there is nothing to emit. The focus is looked at
/// again after each, so that what a handler asked for wins.
bool FocusTracker::EmitNext(QWidget* now) {
    QWidget* window = now->window();
    Window& known = Of(window);
    if (known.emitting || now == known.current || now == known.notEmitted) return false;
    const bool loses = known.current;
    const QPointer<QWidget> reported = loses ? known.current.data() : now;
    const bool emits = !loses || known.left || Usable(reported);
    known.current = loses ? nullptr : now;
    known.left = false;
    auto* events = dynamic_cast<FocusEvents*>(reported.data());
    if (!events || !emits) return true;
    known.emitting = true;
    (loses ? events->LostFocus : events->GotFocus)();
    for (Window& w : windows_)  // the handler may have opened windows, so the list may have moved
        if (w.window == window || !w.window) w.emitting = false;
    return true;
}

}  // namespace controls
