// The first code that runs: the session's globals, the one database, the main window and the login over it.
#pragma once

#include "app/main_window.h"
#include "app/registry.h"

#include <QString>

#include <functional>
#include <memory>

struct StartUpParts {
    QString folder;     ///< the program's own, with or without a separator at its end
    Registry registry;  ///< what the main window can open
    std::function<void(QWidget* over)> showLogin;
    std::function<void(QWidget* over)> showRestore;  ///< the way out when the database can't be opened
    std::function<void()> opened = {};               ///< the data file is open, nothing is shown yet
    QString vfs = {};                                ///< the engine's storage layer, for tests
};

/// Returns when the login has gone; the program then lives on in the main window's events. Any failure is
/// reported, the restore form is shown, and the program ends.
std::unique_ptr<MForm> StartUp(const StartUpParts& parts);
