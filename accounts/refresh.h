// The refresh of stored balances, without a screen: whole chains are rebuilt from their first row. `SN` is
// never touched.
#pragma once

#include "platform/dao/database.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace accounts {

/// Rebuilds the chain of each name, in this order; `before` is called with the name that comes next. A chain
/// is known by name alone, so a name of both sides is rebuilt on both. Raises as RollBalanceChain does.
void RefreshChains(dao::Database& db, const QStringList& names,
                   const std::function<void(const QString&)>& before);

}  // namespace accounts
