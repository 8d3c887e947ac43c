// A screen for the display tests: an X server without hardware on a free display number, with a window
// manager.
#pragma once

#include "tests/display/child_process.h"
#include "tests/display/x_client.h"

#include <QTemporaryDir>

#include <functional>

namespace display {

class Screen {
  public:
    /// The suite's one screen, made at first use. Throws std::runtime_error when a piece of it does not
    /// start.
    static Screen& Get();

    XClient& Client() { return *client_; }
    /// For a program on this screen: no input method, a home folder of its own.
    QProcessEnvironment Environment() const { return environment_; }
    /// Saves the screen as a picture under the folder of the failures; its path.
    QString SavePicture(const QString& name);

  private:
    Screen();

    QTemporaryDir home_;
    QProcessEnvironment environment_;
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<XClient> client_;
    std::unique_ptr<ChildProcess> windowManager_;
};

/// Asks every few milliseconds until it holds; false after that many milliseconds.
bool WaitUntil(const std::function<bool()>& holds, int patience = 30'000);

}  // namespace display
