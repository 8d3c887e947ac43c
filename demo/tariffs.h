// Sets up the tariffs, each form by its keys: the pricing standard, a zone with its places and list prices, a
// channel with its costs for its own zones, and the customers with their quotes.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayStandard(Operator& op);
void PlayZone(Operator& op);
void PlayChannel(Operator& op);
void PlayCostZones(Operator& op);
/// Requires that the salespersons and the zones are entered.
void PlayCustomers(Operator& op);

}  // namespace demo
