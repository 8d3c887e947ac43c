// What a computation on the waybill's card comes to. The computations show nothing themselves: the form puts
// the amount into its box, or shows the box that says why there is none and leaves the amount as it was.
#pragma once

#include "platform/system/seams.h"

#include <QString>

namespace waybills {

struct Computed {
    enum class Kind {
        Amount,          ///< `amount` is the new text of the box, yuan
        Refused,         ///< `box` says why; the amount stays
        Unchanged,       ///< nothing to compute and nothing to say; the amount stays
        StandardMissing  ///< as Refused, and the pricing standard has to be set after the box
    };

    Kind kind = Kind::Refused;
    QString amount;  ///< "" but for Amount
    sys::BoxRequest box;
    /// The channel's fuel factor read as 0 and was taken as 1; its box shows that.
    bool fuelFactorDefaulted = false;
};

}  // namespace waybills
