// Prints one line a measure and ends non-zero if one is above its limit. An argument picks measures by a part
// of their names; "growth" measures the growth from 10,000 waybills to 1,000,000.
#include "benchmarks/subjects.h"
#include "demo/platform_messages.h"
#include "platform/controls/look.h"
#include "platform/errors.h"

#include <QApplication>

#include <cstdio>

namespace {

void MeasureAll(benchmarks::Bench& bench, const QString& folder) {
    benchmarks::MadeCompany company(folder);
    benchmarks::MeasureCharge(bench, company);
    benchmarks::MeasureCost(bench, company);
    benchmarks::MeasureChain(bench, company);
    benchmarks::MeasureDateRange(bench, company);
    {
        benchmarks::Office office(company);
        benchmarks::MeasureList(bench, office);
        benchmarks::MeasureSearches(bench, office);
        benchmarks::MeasureSaves(bench, office);
        benchmarks::MeasureCustomers(bench, office);
        benchmarks::MeasureExport(bench, office);
        benchmarks::MeasureChannelBill(bench, office);
        benchmarks::MeasureReports(bench, office);
        benchmarks::MeasureListReports(bench, office);
        benchmarks::MeasureBatchStatements(bench, office);
        benchmarks::MeasureLedgers(bench, office);
        benchmarks::MeasureAgeing(bench, office);
    }
    benchmarks::MeasureHistory(bench, company);
    benchmarks::MeasureRelease(bench, company);
    benchmarks::MeasureStart(bench, company);
    benchmarks::MeasureTranslation(bench);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    demo::SilencePlatform();
    QApplication app(argc, argv);
    controls::DressApplication(app);
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/../benchmarks");
    const std::string wanted = argc > 1 ? argv[1] : "";
    const bool growth = wanted == "growth";
    try {
        benchmarks::Bench bench(growth ? std::string() : wanted);
        if (growth)
            benchmarks::MeasureGrowth(bench, folder);
        else
            MeasureAll(bench, folder);
        return bench.Failures() == 0 ? 0 : 1;
    } catch (const PlatformError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
