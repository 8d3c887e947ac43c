// SIGTERM and SIGHUP end the program in order: whoever logs out or shuts the machine down answers no message
// box. What the running command has written is rolled back, an edit is dropped, the files are closed, and the
// status is 0.
//
// The signal is acted on where the program's own code waits or is between two commands: in every event loop,
// those of message boxes and modal forms included, before a command is committed, and before each of its
// statements.
#pragma once

#include <QSocketNotifier>

#include <memory>

namespace sys {

/// Takes the two signals while it lives; one that the program was started to ignore stays ignored. Needs the
/// application object, and there is one at a time.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

  private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

/// Ends the program if such a signal has come.
void EndIfStopped();

}  // namespace sys
