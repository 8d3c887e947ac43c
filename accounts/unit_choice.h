// The combo in which a form over the journal is narrowed down to a counterparty: the names of the side's
// master behind an item for all of them.
#pragma once

#include "platform/controls/box.h"

#include <QString>

namespace accounts {

/// The names of either master, in the order of their codes.
inline const QString kChannelNames = QStringLiteral("select F2 from M01 order by F1");
inline const QString kCustomerNames = QStringLiteral("select F2 from M03 order by F1");

/// Fills the combo anew: "所有" and what they are called, then the names of the channels or of the customers.
/// Chooses all of them.
void FillUnits(controls::ComboBox& combo, const QString& called, bool payable);

/// The name that is filtered on, clean for a statement and with the wildcards of `like`; "" for all of them.
QString ChosenUnit(const controls::ComboBox& combo);

}  // namespace accounts
