// The shipping cost: the company's payment to the channel for a consignment, from the shipped weight, the
// channel's brackets and the cost zone's prices. It differs from the customer charge: the fuel factor and the
// fees are included, the channel has its own number of segments, a flag prices a segment as first weight plus
// continuation, and the result is always "#0.00". Weights are in kg, amounts in yuan. This module shows no
// message box.
#pragma once

#include "platform/dao/database.h"
#include "waybills/computed.h"
#include "waybills/price_steps.h"

#include <QString>

namespace waybills {

/// The texts of the card.
struct CostInput {
    QString channel;         ///< `Cmb(5)`: code, point, name
    QString zone;            ///< `Cmb(40)`: code, point, name
    QString weight;          ///< `Txt(23)`: shipped weight, read by its leading number
    QString serviceType;     ///< `Cmb(17)`: its first character, D document or S parcel
    QString fuelFactor;      ///< `Txt(35)`: 0 or empty counts as 1
    QString additionalFees;  ///< `Txt(45)`: multiplied by the fuel factor
    QString otherFees;       ///< `Txt(44)`: not multiplied by it
};

/// The text for `Txt(34)`. Without a channel it computes nothing and gives no message. Raises DatabaseError
/// if a text makes its statement invalid, RuntimeError on overflow and for a channel with more segments than
/// bounds. `steps`, if it is not null, gets the steps of the amount, or those up to the one where the
/// computation ended.
Computed ComputeShippingCost(dao::Database& db, const CostInput& input, Steps* steps = nullptr);

}  // namespace waybills
