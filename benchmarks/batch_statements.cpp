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

/// The message box at the end; the run ends where a customer has no statement.
sys::BoxAnswer TakeReport(const sys::BoxRequest& request) {
    if (request.text.startsWith(u"已生成 %1 个客户的对帐单。"_s.arg(StatementCustomers)))
        return sys::BoxAnswer::Ok;
    std::fprintf(stderr, "not all statements: %s\n", qPrintable(request.text));
    std::exit(2);
}

}  // namespace

void MeasureBatchStatements(Bench& bench, Office& office) {
    const std::string name = "report: statements of 200 customers with 100 waybills each";
    if (!bench.Wanted(name)) return;
    if (!sys::IsThere(AppFolder + Layout)) schema::MakeLayout(AppFolder + Layout);
    AddWaybills(office.Bare());
    const QString folder = AppFolder + u"statements"_s;
    QDir().mkpath(folder);
    const sys::Seams before = sys::seams();
    sys::seams().showBox = TakeReport;
    sys::seams().readSetting = [&](const QString&) { return folder; };
    sys::seams().writeSetting = [](const QString&, const QString&) {};

    ChildForm& form = TheFrame().ShowChild(u"BatchStatements"_s);
    form.findChild<controls::DTPicker*>(u"DTP(0)"_s)->SetValue(QDate(2030, 1, 1));
    form.findChild<controls::DTPicker*>(u"DTP(1)"_s)->SetValue(QDate(2030, 1, 31));
    form.findChild<controls::Button*>(u"Cmd"_s)->click();
    auto* generate = form.findChild<controls::Button*>(u"Cmd(1)"_s);
    bench.State(name, BestOf(1, {}, [&] { generate->click(); }), "s", 20);
    form.Unload();
    Office::Settle();
    sys::seams() = before;
    RemoveWaybills(office.Bare());
}

}  // namespace benchmarks
