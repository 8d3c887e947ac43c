// The events that every control raises for its form: focus changes and keys.
//
// Always holds: GotFocus and LostFocus come from the focus tracker alone (focus_tracker.h), after the focus
// has settled and only when the control really changed; every event enters the form through the guard.
#pragma once

#include "platform/system/guard.h"

#include <QKeyEvent>
#include <QString>
#include <QWidget>

namespace controls {

/// Gives a control the focus. If it already has the focus, GotFocus is raised if it has not been raised yet
/// (focus_tracker.cpp).
void MoveFocus(QWidget* control);

/// The events that the focus tracker raises. Every control that accepts the focus derives from this.
class FocusEvents {
  public:
    virtual ~FocusEvents() = default;
    sys::Event<> GotFocus;
    sys::Event<> LostFocus;
};

/// A key press before the control handles it, or in a text box of one row what an input method commits. A
/// form that sets `taken` consumes it.
struct KeyPress {
    int key = 0;  ///< Qt::Key; 0 for committed text
    Qt::KeyboardModifiers modifiers;
    /// The character, or all that is committed; a form may replace it (upper-casing); if emptied, nothing is
    /// typed.
    QString text;
    bool repeats = false;  ///< auto-repeat of a key that is held down
    bool taken = false;

    bool IsEnter() const { return key == Qt::Key_Return || key == Qt::Key_Enter; }
    /// Enter without auto-repeat: a command on Enter runs once for a key that is held down.
    bool IsFirstEnter() const { return IsEnter() && !repeats; }
    /// With a key held that makes it a command's, whether there is one or not: its text is not to be typed.
    bool IsChord() const { return modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier); }
};

}  // namespace controls
