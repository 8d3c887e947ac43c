// The demonstration's chapter of the packing table: what is not released yet, a scanner that releases it, the
// manifest of what was scanned as a PDF in the folder, and a number in use that is noticed at once.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayPacking(Operator& op, const QString& folder);

}  // namespace demo
