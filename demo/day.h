// The day's work, told to the operator step by step.
#pragma once

#include "demo/operator.h"

#include <QDateTime>

namespace demo {

/// From the login to the closing of the main window. The clock is the program's own, moved by the day; what
/// is exported goes into the folder.
void TellDay(Operator& op, QDateTime& clock, const QString& folder);

}  // namespace demo
