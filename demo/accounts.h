// The demonstration's chapter of the accounts: charges and a payment are typed over the cells of their lists,
// both ledgers are shown, a row goes and the balances behind it are refreshed.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayAccounts(Operator& op);
/// Rebuilds the balances of the customer of the day, from his ledger to the main window.
void RefreshBalances(Operator& op, const QString& picture = {});

}  // namespace demo
