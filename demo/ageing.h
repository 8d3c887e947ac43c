// The demonstration's chapter of the ageing: who owes since when, the overdue list, and a reminder to one of
// them.
#pragma once

#include "demo/operator.h"

namespace demo {

/// The three papers are saved as PDF files in the folder.
void PlayAgeing(Operator& op, const QString& folder);

}  // namespace demo
