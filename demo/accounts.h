// The demonstration's chapter of the accounts: charges and a payment are typed over the cells of their lists,
// both ledgers are shown, a row goes and the balances behind it are refreshed.
#pragma once

#include "demo/operator.h"

namespace demo {

/// The ledgers are saved as PDF files in the folder.
void PlayAccounts(Operator& op, const QString& folder);
/// Rebuilds the balances of the customer of the day, from his ledger to the main window.
void RefreshBalances(Operator& op, const QString& picture = {});

}  // namespace demo
