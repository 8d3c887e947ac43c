// Makes the sample company: the real forms are opened in the real main window, their boxes filled and their
// commands given, so that every row in the file is one that the program wrote.
//
// Always holds: the clock stands at the day that is being entered; a message box that nobody foresaw, a
// command that is not enabled and an end of the program stop the making with a RuntimeError.
#pragma once

#include <QString>

namespace sample {

/// Makes the data file in a folder that holds none; it bears its name only when it is whole. A QApplication
/// has to be there, best on a display without a screen. Raises RuntimeError and DatabaseError.
void MakeSampleCompany(const QString& folder);

}  // namespace sample
