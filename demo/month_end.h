// The demonstration's chapter of the end of a month: the statements of all customers in one go, into a folder
// of their own.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayMonthEnd(Operator& op, const QString& folder);

}  // namespace demo
