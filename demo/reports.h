// The demonstration's chapter of the reports: each is built, printed into the preview and saved as a PDF into
// the folder; its pages are among the pictures.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayReports(Operator& op, const QString& folder);

}  // namespace demo
