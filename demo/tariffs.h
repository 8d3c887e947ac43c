// How the company sets up what it sells, each form by its keys: the pricing standard, a zone with its places
// and list prices, a channel with what it asks for its own zones, and the customers with their quotes.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayStandard(Operator& op);
void PlayZone(Operator& op);
void PlayChannel(Operator& op);
void PlayCostZones(Operator& op);
/// Takes the salespersons and the zones as entered.
void PlayCustomers(Operator& op);

}  // namespace demo
