// Creates the sample company: it opens the real forms in the real main window, fills in their controls and
// triggers their commands, so that the program itself writes every row in the file.
//
// Always holds: the clock is set to the day that is being entered. An unexpected message box, a command that
// is not enabled and an end of the program each end the creation with a RuntimeError.
#pragma once

#include <QString>

namespace sample {

/// Creates the data file in a folder that has none; the file gets its final name only when it is complete. A
/// QApplication must exist, preferably on a display without a screen. Raises RuntimeError and DatabaseError.
void MakeSampleCompany(const QString& folder);

}  // namespace sample
