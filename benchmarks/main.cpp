// Prints one line a measure and ends non-zero if one is above its limit. An argument picks measures by a part
// of their names.
#include "benchmarks/subjects.h"
#include "platform/controls/look.h"
#include "platform/errors.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    controls::DressApplication(app);
    try {
        benchmarks::MadeCompany company(QCoreApplication::applicationDirPath() +
                                        QStringLiteral("/../benchmarks"));
        benchmarks::Bench bench(argc > 1 ? argv[1] : "");
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
        }
        benchmarks::MeasureStart(bench, company);
        benchmarks::MeasureTranslation(bench);
        return bench.Failures() == 0 ? 0 : 1;
    } catch (const PlatformError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
