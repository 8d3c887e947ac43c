// The whole list of 100,000 waybills as their form loads it, into plain strings.
#include "benchmarks/subjects.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace benchmarks {
namespace {

constexpr int Columns = 11;

const QByteArray Statement =
    "select B01.F1,B01.F101,B01.F2031,B01.F301,B01.F401,B01.F501,M01.F2,M03.F2,B01.F602,B01.F604,B01.F103 "
    "FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.f1=B01.f202    ORDER BY B01.F101 ";

void Ours(dao::Database& db) {
    auto rows = db.OpenRecordset(QString::fromUtf8(Statement));
    std::vector<QString> texts;
    for (; !rows.Eof(); rows.MoveNext())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Fields(i).Text());
    benchmark::DoNotOptimize(texts.data());
}

void Bare(BareEngine& engine) {
    BareStatement rows(engine.Handle(), Statement + ",B01.rowid");
    std::vector<QString> texts;
    while (rows.Step())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Text(i));
    benchmark::DoNotOptimize(texts.data());
}

}  // namespace

void MeasureList(Bench& bench, MadeCompany& company) {
    bench.Run({.name = "waybill list: 100,000 rows of 11 fields",
               .limit = 1.5,
               .ours = [&] { Ours(company.Db()); },
               .bare = [&] { Bare(company.Bare()); }});
}

}  // namespace benchmarks
