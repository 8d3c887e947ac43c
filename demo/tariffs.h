// How the company sets up what it sells, each form by its keys: the pricing standard, a zone with its places
// and list prices, a channel with what it asks for its own zones, and the customers with their quotes.
#pragma once

#include "demo/operator.h"

namespace demo {

void TellStandard(Operator& op);
void TellZone(Operator& op);
void TellChannel(Operator& op);
void TellCostZones(Operator& op);
/// Takes the salespersons and the zones as entered.
void TellCustomers(Operator& op);

}  // namespace demo
