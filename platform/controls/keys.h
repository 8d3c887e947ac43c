// Keystrokes that the program sends itself, and commands that hang on a menu bar.
//
// Always holds: a command's key runs it, on the bar with Alt, in an open menu alone. Where several commands
// that can be used share a key, it selects the next and Enter runs the selected one; a disabled command does
// not count.
#pragma once

#include "platform/controls/control_events.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QString>

#include <functional>
#include <utility>
#include <vector>

namespace controls {

/// Sends "{TAB}" to whatever has the focus, after the handler that asked for it. Other keys are not sent.
void SendKeys(const QString& keys);

/// Runs a command of the operator through the guard. A key that is held down runs it once; text that an input
/// method is still composing is put into its text box first.
void RunCommand(const std::function<void()>& handler);

/// What Enter does in nearly every box: it acts as Tab.
void EnterMovesOn(KeyPress& key);

/// A command: objectName is its name in the system, the caption with its "&" key; the handler is run by
/// RunCommand.
QAction* AddCommand(QMenuBar* bar, const QString& name, const QString& caption,
                    std::function<void()> handler);
QAction* AddCommand(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler);
/// Enables and disables commands of a bar together: it measures itself anew once and not for each.
void EnableCommands(QMenuBar* bar, const std::vector<std::pair<QAction*, bool>>& commands);
QMenu* AddMenu(QMenuBar* bar, const QString& name, const QString& caption);

}  // namespace controls
