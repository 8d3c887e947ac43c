// The day's work, told to the operator step by step.
#pragma once

#include "demo/operator.h"

namespace demo {

/// From the login to the closing of the main window; what is exported goes into the folder.
void PlayDay(Operator& op, const QString& folder);

}  // namespace demo
