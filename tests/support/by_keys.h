// What an operator without a mouse, and one without a screen, needs of a window: every control that takes
// input is in the tab order, and every control has a name and a role for who has it read out.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <QStringList>
#include <QWidget>

#include <vector>

namespace tests {

/// Presses Tab until a control comes for the second time; the controls in their order, each once.
std::vector<QWidget*> ControlsInTabOrder();

/// The controls of a form that take input and are not in the tab order, by their names. While browsing the
/// boxes of a card take none.
QStringList NotReachedByTab(QWidget& form, bool browsing = false);

/// What the accessibility tree of a window holds that can be seen and used and lacks a name or a role.
QStringList WithoutNameOrRole(QWidget& window);

/// The commands of a bar, those of its menus in the menu's place.
QStringList CommandsOf(const QMenuBar& bar);

/// Presses the keys of a command: Alt and its letter, in a menu the letter alone, or Down and Enter for an
/// entry without one. Where several that can be
/// used share the letter, it is pressed until the command's turn has come, and Enter takes it. False when the
/// command was not run by that.
bool RunByKeys(QMenuBar& bar, const QString& command);

/// Leaves the modal form that is in front: by Esc, or by Enter on one of its buttons, the last first. False
/// when it is still there.
bool LeaveByKeys(QWidget& form);

}  // namespace tests
