// The test's own connection to the X server: keys as a keyboard sends them, the windows that the window
// manager knows, pictures.
//
// Always holds: keys are queued until Flush, so that a burst reaches the server as one request stream.
#pragma once

#include <QImage>
#include <QRect>
#include <QString>

#include <memory>
#include <vector>

namespace display {

/// A key by its X keysym, for instance 0xff0d for Return; printable characters of ASCII are their own.
using Keysym = unsigned long;

struct TopWindow {
    unsigned long id = 0;
    QString title;
};

class XClient {
  public:
    /// Throws std::runtime_error when the display does not open or has no XTest.
    explicit XClient(const QString& displayName);
    ~XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    /// Presses or releases the key that bears this symbol; Shift is the caller's.
    void Key(Keysym key, bool down);
    /// Whether the symbol is on the shifted level of its key.
    bool NeedsShift(Keysym key) const;
    void Flush();

    /// A window manager has taken over the display.
    bool HasWindowManager() const;
    /// In the order of their mapping.
    std::vector<TopWindow> Windows() const;
    /// The window that keys go to.
    unsigned long Focus() const;
    /// The window's program has read everything that was sent to it up to here; false after 30 s.
    bool Ping(unsigned long window);
    /// In the coordinates of the screen; the whole screen without an area.
    QImage Picture(const QRect& area = {}) const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace display
