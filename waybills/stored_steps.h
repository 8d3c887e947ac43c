// The steps of a waybill's charge and cost in the data file, table B011: a waybill of last year is explained
// by the prices of then. One row a waybill, only where at least one side was computed.
#pragma once

#include "platform/dao/database.h"
#include "waybills/price_steps.h"

#include <QString>

namespace waybills {

/// Neither side where none are stored. All three raise DatabaseError, also for an apostrophe in the number.
BothSides ReadSteps(dao::Database& db, const QString& number);
/// Replaces what is stored under the number.
void StoreSteps(dao::Database& db, const QString& number, const BothSides& sides);
void DeleteSteps(dao::Database& db, const QString& number);

}  // namespace waybills
