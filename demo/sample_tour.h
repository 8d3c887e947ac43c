// A walk through the sample company: the lists of a company with two months of work in it, looked at and not
// touched.
#pragma once

#include "demo/operator.h"

namespace demo {

/// From the login to the closing of the main window.
void TellTour(Operator& op);

}  // namespace demo
