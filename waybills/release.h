// The release of a waybill (出货), the same for the list of waybills and for the scanner at the packing
// table; and what is looked up by a waybill's number outside of the card. Numbers compare as the data file
// compares them: case-blind in ASCII.
#pragma once

#include "platform/dao/database.h"

#include <QString>

#include <optional>

namespace waybills {

/// Writes the operator of the session as the one who released the waybill with that number, without blanks
/// around it. Returns the refusal, "" when it is released. Posts nothing to the journal. Raises
/// DatabaseError; where the question alone fails, the message box of GetStr says so and the refusal comes.
QString Release(const QString& number);

/// What a list shows of a waybill.
struct Brief {
    QString number;  ///< as it is stored
    QString consignee;
    QString channelCode, channelName;
    QString weight;  ///< received, kg
    QString releaseMark;
};
/// Nothing when no waybill has that number. Raises DatabaseError.
std::optional<Brief> FindBrief(dao::Database& db, const QString& number);

/// The number as table B01 holds it; "" when no waybill has it. Raises DatabaseError.
QString StoredNumber(dao::Database& db, const QString& number);

}  // namespace waybills
