// The operator's keyboard: keys to whatever has the focus, as the demonstration and the tests press them.
// Nothing here waits; what a key has posted happens when the caller gets back to the event loop.
#pragma once

#include <QString>
#include <QWidget>

namespace keyboard {

/// Where a key goes: an open menu or list, else what has the focus, else the active window. Null if no window
/// is active.
QWidget* Target();

void Press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Character(QWidget& target, QChar character);
/// Alt and a letter: the command of a menu bar; in an open menu the letter alone.
void Alt(QWidget& target, char16_t letter);

/// The name of the control that has the focus (an editor inside a combo counts as the combo); "" if none.
QString FocusName();

}  // namespace keyboard
