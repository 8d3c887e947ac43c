// Feedback during long work: the wait pointer, and painting of a progress text.
#pragma once

namespace controls {

/// RAII guard: shows the wait pointer. Message boxes and modal forms meanwhile show the ordinary pointer.
class WaitPointer {
  public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

/// RAII guard: shows the ordinary pointer inside a WaitPointer.
class OrdinaryPointer {
  public:
    OrdinaryPointer();
    ~OrdinaryPointer();
    OrdinaryPointer(const OrdinaryPointer&) = delete;
    OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;

  private:
    bool set_;
};

/// Paints what has changed. Processes no user input and closes no commit group.
void ShowProgress();

/// The same for long work that the operator can stop: whether Esc was pressed since the last call. All other
/// input that has come meanwhile is dropped. Other events are processed, so no command may be half executed.
bool EscWasPressed();

}  // namespace controls
