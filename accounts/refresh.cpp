#include "accounts/refresh.h"

#include "accounts/journal.h"

namespace accounts {

void RefreshChains(dao::Database& db, const QStringList& names,
                   const std::function<void(const QString&)>& before) {
    for (const QString& name : names) {
        before(name);
        RollBalanceChain(db, 0, name);
    }
}

}  // namespace accounts
