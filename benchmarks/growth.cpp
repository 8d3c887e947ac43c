// How the program scales with the company: the same five years with 10,000 and with 1,000,000 waybills. The
// time of a save must not depend on the number, the time of the list may only be proportional to the rows.
#include "benchmarks/repeated_save.h"
#include "benchmarks/subjects.h"

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Small = 10'000;
constexpr int Large = 1'000'000;

struct Figures {
    double save;    ///< seconds, on the newest day
    double list;    ///< seconds, for all waybills
    double memory;  ///< bytes per cell beyond the texts
    double start;   ///< seconds to the login
};

Figures FiguresOf(const QString& folder, int waybills, int lists) {
    MadeCompany company(folder + u"/grown-%1"_s.arg(waybills), waybills);
    Figures figures{};
    {
        Office office(company);
        figures.list = BestOf(lists, {}, [&] { office.Form().LoadAll(); });
        figures.memory = OverheadOf(office.Form().Grid());
        RepeatedSave save(office, LastDay());
        figures.save = BestOf(
            200, [&] { save.MakeReady(); }, [&] { save.Save(); });
    }
    figures.start = BestTimeToLogin(company);
    return figures;
}

void State(Bench& bench, const std::string& waybills, const Figures& figures) {
    bench.State("save on the newest day, " + waybills, figures.save * 1e3, "ms");
    bench.State("list of " + waybills, figures.list, "s");
    bench.State("list: memory beyond the texts, " + waybills, figures.memory, "B/cell", 80);
    bench.State("start to a login, " + waybills, figures.start, "s");
}

}  // namespace

void MeasureGrowth(Bench& bench, const QString& folder) {
    const Figures small = FiguresOf(folder, Small, 20);
    State(bench, "10,000 waybills", small);
    const Figures large = FiguresOf(folder, Large, 3);
    State(bench, "1,000,000 waybills", large);
    bench.State("save: 1,000,000 beside 10,000", large.save / small.save, "times", 1.2);
    bench.State("list: a row of 1,000,000 beside one of 10,000", large.list / Large / (small.list / Small),
                "times", 1.5);
}

}  // namespace benchmarks
