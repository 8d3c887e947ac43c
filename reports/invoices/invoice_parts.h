// What the forms of the invoice accounts share: the customers in a combo, cells as the lists show them.
#pragma once

#include "platform/controls/box.h"
#include "platform/dao/recordset.h"

#include <QString>

namespace invoices {

/// Code, point, name of every customer, in the order of their codes.
void AddCustomers(controls::ComboBox& combo);

/// An amount in yuan, "#0.00"; "" for null.
QString Money(const dao::Field& field);
/// A day without its time; "" for null.
QString Day(const dao::Field& field);

}  // namespace invoices
