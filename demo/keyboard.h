// Simulates the operator's keyboard for the demonstration and the tests: keys go to the widget that has the
// focus. Nothing here waits; events that a key posts are processed when the caller returns to the event loop.
#pragma once

#include <QString>
#include <QWidget>

namespace keyboard {

/// The widget that receives a key: an open menu or list, else the focus widget, else the active window. Null
/// if no window is active.
QWidget* Target();

void Press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Character(QWidget& target, QChar character);
/// Alt and a letter triggers a command of a menu bar; in an open menu the letter alone is sent.
void Alt(QWidget& target, char16_t letter);

/// The name of the control that has the focus (an editor inside a combo counts as the combo); "" if none has
/// it.
QString FocusName();

}  // namespace keyboard
