// The shipping cost: what the company pays the channel for a consignment, by the shipped weight, the
// channel's brackets and the cost zone's prices. The sibling of the customer charge, with a shape of its own:
// the fuel factor and the fees are inside, the channel counts its own segments, a flag lets a segment run as
// first weight plus continuation, and the result is always "#0.00". Weights are in kg, amounts in yuan. No
// box is shown here.
#pragma once

#include "platform/dao/database.h"
#include "waybills/computed.h"

#include <QString>

namespace waybills {

/// The card's boxes as they stand.
struct CostInput {
    QString channel;         ///< `Cmb(5)`: code, point, name
    QString zone;            ///< `Cmb(40)`: code, point, name
    QString weight;          ///< `Txt(23)`: shipped weight, read by its leading number
    QString serviceType;     ///< `Cmb(17)`: its first character, D document or S parcel
    QString fuelFactor;      ///< `Txt(35)`: 0 or empty counts as 1
    QString additionalFees;  ///< `Txt(45)`: multiplied by the fuel factor
    QString otherFees;       ///< `Txt(44)`: outside it
};

/// The text for `Txt(34)`. Without a channel nothing is computed and nothing said. Raises DatabaseError for a
/// text that breaks its statement, RuntimeError on overflow and for a channel with more segments than it has
/// bounds.
Computed ComputeShippingCost(dao::Database& db, const CostInput& input);

}  // namespace waybills
