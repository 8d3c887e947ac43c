// What a command does whose first write finds another program writing to the same file. Nothing of it is
// written yet, so it may wait as long as the operator likes, or be given up.
#pragma once

#include <functional>

namespace dao {

struct WhenBusy {
    int patience = 30'000;  ///< milliseconds of one wait
    /// Calls wait once or more often, each time for up to the patience, until it says that the file is free,
    /// and returns; the statement fails as locked where it never was. May throw to end the command otherwise.
    /// Without it there is one wait.
    std::function<void(const std::function<bool()>& wait)> handle;
};

/// The one in use.
WhenBusy& whenBusy();

}  // namespace dao
