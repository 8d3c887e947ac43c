// The demonstration's chapter of a channel's bill at the month's end: a bill is written as the channel sends
// it, chosen, compared and exported.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayChannelBill(Operator& op, const QString& folder);

}  // namespace demo
