// The day's work as a sequence of operator steps.
#pragma once

#include "demo/operator.h"

namespace demo {

/// Runs from the login to the closing of the main window; exports are written to the folder.
void PlayDay(Operator& op, const QString& folder);

}  // namespace demo
