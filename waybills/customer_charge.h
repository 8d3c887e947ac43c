// The customer charge: the price of a consignment to the customer, from the received weight, the pricing
// standard and the customer's quote for the destination zone; and the total of the charges on the card.
// Weights are in kg, amounts in yuan. This module writes nothing to the database and shows no message box.
#pragma once

#include "platform/dao/database.h"
#include "waybills/computed.h"
#include "waybills/price_steps.h"

#include <QString>

namespace waybills {

/// The texts of the card.
struct ChargeInput {
    QString customer;     ///< `Cmb(31)`: code, point, name
    QString zone;         ///< `Cmb(6)`: code, point, name
    QString weight;       ///< `Txt(21)`: received weight, read by its leading number
    QString serviceType;  ///< `Cmb(17)`: its first character, D document or S parcel
};

/// The text for `Txt(26)`, in general number text, not rounded. Raises DatabaseError if a text makes its
/// statement invalid, and RuntimeError on overflow. `steps`, if it is not null, gets the steps of the amount,
/// or those up to the one where the computation ended.
Computed ComputeCustomerCharge(dao::Database& db, const ChargeInput& input, Steps* steps = nullptr);

/// The text for `Txt(28)`, "#0.00": (additional + basic) times the fuel factor, plus the other fees. An empty
/// factor counts as 0, so that only the other fees remain; unlike the channel's factor, it does not default
/// to 1. Takes the texts of `Txt(27)`, `Txt(26)`, `Txt(33)`, `Txt(43)`.
QString ChargeTotal(const QString& additional, const QString& basic, const QString& fuelFactor,
                    const QString& otherFees);

}  // namespace waybills
