// Rebuilds the balance chain of one counterparty from its beginning: 10,000 rows, one commit.
#include "accounts/journal.h"
#include "benchmarks/subjects.h"

#include <vector>

namespace benchmarks {
namespace {

void Ours(dao::Database& db) {
    accounts::RollBalanceChain(db, 0, QString::fromUtf8(CustomerName(LargeCustomer)));
    db.CloseGroup();
}

/// Works as the dynaset does: reads keys and values first, then executes one prepared write for each row.
void Bare(BareEngine& engine) {
    const QByteArray name = CustomerName(LargeCustomer);
    engine.Run("begin immediate");
    double balance = 0;
    {
        BareStatement opening(engine.Handle(), "select QM from TB1 where (F3='" + name +
                                                   "' AND not (F6='' or F6 is null)) and sn<0 "
                                                   "order by sn desc limit 1");
        if (opening.Step()) balance = opening.Number(0);
    }
    struct Row {
        sqlite3_int64 id;
        double raises;
        double lowers;
    };
    std::vector<Row> rows;
    {
        BareStatement select(
            engine.Handle(),
            "select rowid,QC,YF,FK,QM from TB1 where SN<>0 AND SN>=0 and F3='" + name + "' order by SN");
        while (select.Step()) rows.push_back({select.Whole(0), select.Number(2), select.Number(3)});
    }
    BareStatement update(engine.Handle(), "update TB1 set QC=?,QM=? where rowid=?");
    for (const Row& row : rows) {
        update.Bind(1, balance);
        balance += row.raises - row.lowers;
        update.Bind(2, balance);
        update.Bind(3, row.id);
        update.Step();
        update.Reset();
    }
    engine.Run("commit");
}

}  // namespace

void MeasureChain(Bench& bench, MadeCompany& company) {
    bench.Run({.name = "balance chain: 10,000 rows from the beginning",
               .limit = 2,
               .ours = [&] { Ours(company.Db()); },
               .bare = [&] { Bare(company.Bare()); }});
}

}  // namespace benchmarks
