// The print of a waybill's charge for the customer, who gets how it came about and never the cost. It fills
// the work table PRNTB01 and runs its layout.
#pragma once

#include "waybills/explanation.h"

namespace waybills {

/// Of the waybill on the card, with the steps of its charge. A message box says why there is nothing to print
/// or that the layout is missing. Apostrophes become ’ in what the card shows. Raises DatabaseError and what
/// RunReport raises.
void PrintExplanation(const Priced& charge, const CardText& card);

}  // namespace waybills
