// The save of a released waybill with its two postings, from the key of the command to the durable commit:
// for the newest day, and dated back into the middle of the channel's chain of 5,000 rows. The bare loop
// executes the statements that the save itself sends to the engine, byte for byte, on the same state of the
// file.
#include "benchmarks/repeated_save.h"
#include "benchmarks/sent.h"
#include "benchmarks/subjects.h"

namespace benchmarks {
namespace {

void MeasureSave(Bench& bench, Office& office, const char* name, QDate day) {
    if (!bench.Wanted(name)) return;
    RepeatedSave save(office, day);
    save.MakeReady();
    const std::vector<Sent> sent = Caught(office.Engine(), [&] { save.Save(); });
    bench.Run({.name = name,
               .limit = 2,
               .runsInRound = 5,
               .ours = [&] { save.Save(); },
               .bare = [&] { RunAgain(office.Bare(), sent); },
               .makeOursReady = [&] { save.MakeReady(); },
               .makeBareReady = [&] { save.MakeReady(office.Bare()); }});
}

}  // namespace

void MeasureSaves(Bench& bench, Office& office) {
    MeasureSave(bench, office, "save: released, on the newest day", LastDay());
    MeasureSave(bench, office, "save: dated back, 2,500 balances follow", LastDay().addDays(-Days / 2));
}

}  // namespace benchmarks
