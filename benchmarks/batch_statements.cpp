// The statements of 200 customers with 100 waybills each, by the engine that the form drives: two files for
// each and the list of them.
#include "reports/batch_statements.h"

#include "app/session.h"
#include "benchmarks/subjects.h"
#include "platform/system/files.h"
#include "schema/data_files.h"

#include <QDir>
#include <QElapsedTimer>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int StatementCustomers = 200;
constexpr int WaybillsOfEach = 100;
const QString Layout = u"prntc023.rpt"_s;
const reports::Scope Month{.from = u"2030-01-01"_s, .to = u"2030-01-31"_s};

/// Behind the days of the made company, so that no other waybill is in the month.
void AddWaybills(BareEngine& engine) {
    engine.Run("begin immediate");
    {
        BareStatement waybill(engine.Handle(),
                              "insert into B01 (F1,F603,F101,F301,F2031,F501,F402,F502,F503,F505,F508,F504) "
                              "values (?,?,?,'S','洛杉矶','月结',?,120,15,12.5,3,?)");
        for (int i = 0; i < StatementCustomers * WaybillsOfEach; ++i) {
            waybill.Bind(4, 0.5 + i % 60);
            waybill.Bind(5, 37.5 + i % 90);
            waybill.Insert({QByteArray::number(95'000'000 + i), CustomerCode(1 + i % StatementCustomers),
                            "2030-01-" + QByteArray::number(10 + i % 20)});
        }
    }
    engine.Run("commit");
}

void RemoveWaybills(BareEngine& engine) {
    engine.Run("delete from B01 where F101>='2030-01-01'");
}

/// Ends the run where a customer's files are not written.
void WriteAll(const QString& folder) {
    const auto customers = reports::CustomersOf(*Db, Month);
    reports::StatementBatch batch(*Db, AppFolder, folder, Month);
    std::vector<reports::BatchResult> results;
    for (const auto& customer : customers) {
        results.push_back(batch.Write(customer));
        Db->CloseGroup();
        if (results.back().refusal.isEmpty()) continue;
        std::fprintf(stderr, "no statement: %s\n", qPrintable(results.back().refusal));
        std::exit(2);
    }
    batch.WriteSummary(results);
    if (results.size() != StatementCustomers) std::exit(2);
}

}  // namespace

void MeasureBatchStatements(Bench& bench, Office& office) {
    const std::string name = "report: statements of 200 customers with 100 waybills each";
    if (!bench.Wanted(name)) return;
    if (!sys::IsThere(AppFolder + Layout)) schema::MakeLayout(AppFolder + Layout);
    AddWaybills(office.Bare());
    const QString folder = AppFolder + u"statements"_s;
    QDir().mkpath(folder);
    QElapsedTimer timer;
    timer.start();
    WriteAll(folder);
    bench.State(name, static_cast<double>(timer.nsecsElapsed()) / 1e9, "s", 20);
    RemoveWaybills(office.Bare());
}

}  // namespace benchmarks
