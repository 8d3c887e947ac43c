// The forms that the main window can open, by the names that the menu table uses. The composition root fills
// it, so that the main window includes no form of the modules above it.
#pragma once

#include <QString>

#include <functional>
#include <map>
#include <memory>

class ChildForm;
class QWidget;

struct Registry {
    std::map<QString, std::function<std::unique_ptr<ChildForm>()>> children;
    /// Shows the form modally over the given window and returns when it has gone.
    std::map<QString, std::function<void(QWidget* over)>> modals;
    /// Menu commands that are no form (the backup).
    std::map<QString, std::function<void()>> commands;

    // At the end of the program in order, where there is something to do: before the database is closed, and
    // when it is closed and the child forms are gone.
    std::function<void()> closing = {};
    std::function<void()> closed = {};
};
