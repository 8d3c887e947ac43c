// What long work shows: the wait pointer, and a progress text that is painted while the work goes on.
#pragma once

namespace controls {

/// The wait pointer while it lives. Boxes and modal forms that come up meanwhile have the ordinary pointer.
class WaitPointer {
  public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

/// The ordinary pointer while it lives, whatever work is going on beneath.
class OrdinaryPointer {
  public:
    OrdinaryPointer();
    ~OrdinaryPointer();
    OrdinaryPointer(const OrdinaryPointer&) = delete;
    OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;

  private:
    bool set_;
};

/// Paints what has changed. Takes no input of the operator and closes no command.
void ShowProgress();

}  // namespace controls
