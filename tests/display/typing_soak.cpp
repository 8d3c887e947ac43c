// typing-soak [ROUNDS]: types waybills without a pause between the keys, by Return and by Tab, every second
// round on busy processors, and compares what is stored with what slow typing stores. Ends with 1 when a
// waybill differs.
#include "tests/display/waybill_scripts.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 20;
    int failed = 0;
    display::WaybillTyping typing;
    for (int round = 1; round <= rounds; ++round) {
        const bool busy = round % 2 == 0;
        std::unique_ptr<display::BusyProcessors> load;
        if (busy) load = std::make_unique<display::BusyProcessors>();
        for (const bool byTab : {false, true}) {
            const QString differences = typing.Differences({.milliseconds = 0, .byTab = byTab});
            std::printf("%2d %-4s %-6s %s\n", round, busy ? "busy" : "idle", byTab ? "Tab" : "Return",
                        differences.isEmpty() ? "ok" : qUtf8Printable(u"FAILED\n"_s + differences));
            std::fflush(stdout);
            failed += differences.isEmpty() ? 0 : 1;
        }
    }
    std::printf("%d waybills, %d failed\n", 2 * rounds, failed);
    return failed == 0 && rounds > 0 ? 0 : 1;
}
