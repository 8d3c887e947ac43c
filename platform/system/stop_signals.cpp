#include "platform/system/stop_signals.h"

#include "platform/system/guard.h"
#include "platform/system/seams.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace sys {
namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP};

std::atomic<bool> stopped = false;
std::array<int, 2> wakeUp{-1, -1};  // a pipe: the handler writes, the event loop reads
std::array<struct sigaction, kSignals.size()> before;

static_assert(std::atomic<bool>::is_always_lock_free, "the handler sets it");

void Handle(int) {
    const int error = errno;
    stopped = true;
    // A full pipe has woken the loop already.
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], "", 1);
    errno = error;
}

}  // namespace

StopSignals::StopSignals() {
    if (::pipe2(wakeUp.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category());
    notifier_ = std::make_unique<QSocketNotifier>(wakeUp[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [] {
        char byte = 0;
        while (::read(wakeUp[0], &byte, 1) == 1) {
        }
        Guarded(EndIfStopped);
    });
    struct sigaction action {};
    action.sa_handler = Handle;
    action.sa_flags = SA_RESTART;  // no writing to a file fails for it
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
    }
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &before[i], nullptr);
    notifier_.reset();
    for (int& end : wakeUp) {
        ::close(end);
        end = -1;
    }
    stopped = false;
}

void EndIfStopped() {
    if (stopped.exchange(false)) AbandonProgram(0);
}

}  // namespace sys
