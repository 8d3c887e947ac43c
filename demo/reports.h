// The demonstration's chapter of the reports: each is built, printed into the preview and saved as a PDF into
// the folder; its pages are among the pictures.
#pragma once

#include "demo/operator.h"

namespace demo {

/// Saves the report in the preview as a PDF, keeps pictures of its pages and closes the preview.
void SavePaper(Operator& op, const QString& file, const QString& picture, const QString& caption);

void PlayReports(Operator& op, const QString& folder);

}  // namespace demo
