// What every control tells the form that it stands in: the focus that comes and goes, and keys.
//
// Always holds: GotFocus and LostFocus come from the focus tracker alone (focus_tracker.h), after the focus
// has settled and only when the control really changed; every event enters the form through the guard.
#pragma once

#include "platform/system/guard.h"

#include <QKeyEvent>
#include <QString>
#include <QWidget>

namespace controls {

/// Gives a control the focus, also when it has it already: then the form is told if it was not before
/// (focus_tracker.cpp).
void MoveFocus(QWidget* control);

/// What the focus tracker tells; every control that takes the focus has these two.
class FocusEvents {
  public:
    virtual ~FocusEvents() = default;
    sys::Event<> GotFocus;
    sys::Event<> LostFocus;
};

/// A key before the control itself sees it. A form that sets `taken` keeps it from the control.
struct KeyPress {
    int key = 0;  ///< Qt::Key
    Qt::KeyboardModifiers modifiers;
    QString text;  ///< the character; a form may replace it (upper-casing); emptied, it is not typed
    bool repeats = false;  ///< comes from a key that is held down
    bool taken = false;

    bool IsEnter() const { return key == Qt::Key_Return || key == Qt::Key_Enter; }
    /// For Enter that runs something: once for a key that is held down.
    bool IsFirstEnter() const { return IsEnter() && !repeats; }
};

}  // namespace controls
