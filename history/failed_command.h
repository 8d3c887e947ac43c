// A command that fails has kept what it executed before: an edit has deleted its row. The report of the
// failure is followed by the offer to put the rows back at once, and the next login says what is still
// missing.
#pragma once

namespace history {

/// From now on a failing command's deleted records are noted in HNow and offered.
void WatchFailures();

/// Where the last failed command's records are still missing: says so in the last panel of the status bar,
/// once.
void SayWhatWasLost();

}  // namespace history
