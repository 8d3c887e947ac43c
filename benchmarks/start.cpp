// From the start of the process to a login that accepts keys, key derivation included.
#include "benchmarks/subjects.h"
#include "schema/data_files.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Starts = 7;

double SecondsToLogin(const QString& folder) {
    QProcess program;
    const auto begin = std::chrono::steady_clock::now();
    program.start(QCoreApplication::applicationDirPath() + u"/start_to_login"_s, {folder});
    while (program.waitForReadyRead() && !program.canReadLine()) {
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    const bool login = program.readLine().trimmed() == "Login";
    program.waitForFinished();
    if (login) return took.count();
    std::fprintf(stderr, "the program did not come to its login\n%s",
                 program.readAllStandardError().constData());
    std::exit(2);
}

}  // namespace

double BestTimeToLogin(const MadeCompany& company) {
    schema::MakeDataFiles(company.Folder());
    double best = SecondsToLogin(company.Folder());
    for (int i = 1; i < Starts; ++i) best = std::min(best, SecondsToLogin(company.Folder()));
    return best;
}

void MeasureStart(Bench& bench, MadeCompany& company) {
    const char* const name = "start to a login that takes keys";
    if (bench.Wanted(name)) bench.State(name, BestTimeToLogin(company), "s", 0.5);
}

}  // namespace benchmarks
