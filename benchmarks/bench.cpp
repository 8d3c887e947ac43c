#include "benchmarks/bench.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <utility>

namespace benchmarks {
namespace {

constexpr int Rounds = 7;
/// Another program on the machine can distort a round; a measurement above its limit gets more rounds.
constexpr int RoundsAtMost = 40;

std::string Shown(double seconds) {
    char text[40];
    if (seconds < 1e-3)
        std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
    else if (seconds < 1)
        std::snprintf(text, sizeof text, "%.2f ms", seconds * 1e3);
    else
        std::snprintf(text, sizeof text, "%.2f s", seconds);
    return text;
}

}  // namespace

double BestOf(int runs, const std::function<void()>& makeReady, const std::function<void()>& body) {
    double best = std::numeric_limits<double>::infinity();
    for (int i = 0; i < runs; ++i) {
        if (makeReady) makeReady();
        const auto begin = std::chrono::steady_clock::now();
        body();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        best = std::min(best, took.count());
    }
    return best;
}

Bench::Bench(std::string only) : only_(std::move(only)) {
    std::printf("%-44s %12s %12s %8s %8s\n", "measure", "ours", "bare", "ratio", "limit");
}

bool Bench::Wanted(const std::string& name) const {
    return name.find(only_) != std::string::npos;
}

void Bench::Run(const Measure& measure) {
    if (!Wanted(measure.name)) return;
    double ours = std::numeric_limits<double>::infinity();
    double bare = ours;
    for (int round = 0; round < Rounds || (round < RoundsAtMost && ours > measure.limit * bare); ++round) {
        ours = std::min(ours, BestOf(measure.runsInRound, measure.makeOursReady, measure.ours));
        bare = std::min(bare, BestOf(measure.runsInRound, measure.makeBareReady, measure.bare));
    }
    const double ratio = ours / bare;
    const bool above = ratio > measure.limit;
    std::printf("%-44s %12s %12s %8.2f %8.2f%s\n", measure.name.c_str(), Shown(ours).c_str(),
                Shown(bare).c_str(), ratio, measure.limit, above ? "  ABOVE" : "");
    std::fflush(stdout);
    if (above) ++failures_;
}

void Bench::State(const std::string& name, double value, const char* unit, double limit) {
    if (!Wanted(name)) return;
    char figure[40];
    std::snprintf(figure, sizeof figure, "%.2f %s", value, unit);
    const bool above = limit > 0 && value > limit;
    std::printf("%-44s %12s", name.c_str(), figure);
    if (limit > 0) std::printf(" %30.2f%s", limit, above ? "  ABOVE" : "");
    std::printf("\n");
    std::fflush(stdout);
    if (above) ++failures_;
}

}  // namespace benchmarks
