// The result of a computation on the waybill's card. The computations show nothing themselves. The form puts
// the amount into its text box, or shows the message box that says why there is no amount and keeps the old
// one.
#pragma once

#include "platform/system/seams.h"

#include <QString>

namespace waybills {

struct Computed {
    enum class Kind {
        Amount,          ///< `amount` is the new text of the text box, in yuan
        Refused,         ///< the message box `box` says why; the amount is unchanged
        Unchanged,       ///< nothing to compute and no message; the amount is unchanged
        StandardMissing  ///< as Refused; after the message box the operator must set the pricing standard
    };

    Kind kind = Kind::Refused;
    QString amount;  ///< "" unless the kind is Amount
    sys::BoxRequest box;
    /// The channel's fuel factor reads as 0, so 1 is used; its text box then shows 1.
    bool fuelFactorDefaulted = false;
};

}  // namespace waybills
