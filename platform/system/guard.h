// Every event enters the program's own code through one guard, because an exception must not travel through
// the toolkit. What escapes an event is the platform's default error report: the error's text and the failing
// statement, and then the program ends with status 1. What was executed before stays executed.
//
// Always holds: when a guarded event ends, at any depth, what it wrote is committed.
#pragma once

#include <functional>
#include <utility>

namespace sys {

/// Thrown in tests in place of the process's end; the guard records it.
struct ProgramEnded {
    int status;
};

/// Thrown where the operator gives a command up before its first write. Everything it says is said; the guard
/// ends the event without a report, and the program goes on with what the windows show.
struct CommandGivenUp {};

/// Runs one event. Does nothing any more once the program has ended (which only a test outlives).
void Guarded(const std::function<void()>& body);

/// True once a ProgramEnded was recorded.
bool HasEnded();
/// For the places that wait or call back (boxes, modal forms, a row assignment): nothing after an end may
/// run.
void ThrowIfEnded();
/// For tests: forget the recorded end.
void ClearEnd();

/// Called at the end of every guarded event and before a message box or a modal form waits. Returns a handle
/// for removal.
int AddCommandEndHook(std::function<void()> hook);
void RemoveCommandEndHook(int handle);
/// Runs the hooks: commits what the command has written so far. Ends the program instead when a signal has
/// asked for that (stop_signals.h).
void CloseCommand();

/// Called by EndProgram after CloseCommand, to leave one whole file behind.
int AddProgramEndHook(std::function<void()> hook);
void RemoveProgramEndHook(int handle);
void RunProgramEndHooks();

/// Called by AbandonProgram: rolls back what is not committed and closes the files.
int AddAbandonHook(std::function<void()> hook);
void RemoveAbandonHook(int handle);
void RunAbandonHooks();

/// What else happens when an event fails. Neither may raise; a failure of theirs is passed over.
struct OnFailure {
    /// Before what was executed is committed: may write to the group.
    std::function<void()> noticed;
    /// After the report, before the program ends.
    std::function<void()> reported;
};
/// The one in use.
OnFailure& onFailure();

/// An event of a control: a form assigns a function, the control fires it through the guard.
template <class... Args>
class Event {
  public:
    template <class F>
    Event& operator=(F handler) {
        handler_ = std::move(handler);
        return *this;
    }
    explicit operator bool() const { return static_cast<bool>(handler_); }
    void operator()(Args... args) const {
        if (handler_) Guarded([&] { handler_(args...); });
    }

  private:
    std::function<void(Args...)> handler_;
};

}  // namespace sys
