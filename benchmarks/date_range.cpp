// A month of the detail ledger out of 200,000 journal rows: date differences beside a range written by hand.
#include "benchmarks/bench.h"
#include "benchmarks/subjects.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Columns = 8;

void Ours(dao::Database& db) {
    auto rows = db.OpenRecordset(
        u"select TB1.F3,TB1.F1,TB1.LB,TB1.QC,TB1.YF,TB1.FK,TB1.QM,TB1.S2 as yewu FROM TB1  WHERE TB1.LB<0  "
        u"AND "
        u"TB1.F6<>'' and (not TB1.F6 is null) and TB1.K=0 and datediff('d','2021-05-01',TB1.F2)>=0 AND  "
        u"datediff('d','2021-05-31',TB1.F2)<=0  order by TB1.F3,TB1.SN"_s);
    std::vector<QString> texts;
    for (; !rows.Eof(); rows.MoveNext())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Fields(i).Text());
    Keep(texts.data());
}

void Bare(BareEngine& engine) {
    BareStatement rows(
        engine.Handle(),
        "select F3,F1,LB,QC,YF,FK,QM,S2 from TB1 where LB<0 and F6<>'' and (not F6 is null) and K=0 "
        "and F2>='2021-05-01' and F2<'2021-06-01' order by F3,SN,rowid");
    std::vector<QString> texts;
    while (rows.Step())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Text(i));
    Keep(texts.data());
}

}  // namespace

void MeasureDateRange(Bench& bench, MadeCompany& company) {
    bench.Run({.name = "a month out of 200,000 journal rows",
               .limit = 1.3,
               .runsInRound = 3,
               .ours = [&] { Ours(company.Db()); },
               .bare = [&] { Bare(company.Bare()); }});
}

}  // namespace benchmarks
