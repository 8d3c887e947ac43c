// Measures: ours beside a bare engine loop that does the same work in the same run. Absolute times say little
// from machine to machine; the ratio of the two holds, and each measure has a limit for it.
#pragma once

#include <functional>
#include <string>

namespace benchmarks {

struct Measure {
    std::string name;
    double limit = 1;     ///< ours / bare must not be above it
    int runsInRound = 1;  ///< a round is that many runs of ours, then as many of the bare loop
    std::function<void()> ours;
    std::function<void()> bare;
    std::function<void()> makeOursReady = {};  ///< before each run of ours, outside of its time
    std::function<void()> makeBareReady = {};
};

/// Keeps the compiler from leaving out what computes the value.
template <class Value>
void Keep(const Value& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

/// The shortest of that many runs, in seconds; preparing a run does not count in its time.
double BestOf(int runs, const std::function<void()>& makeReady, const std::function<void()>& body);

class Bench {
  public:
    /// Only measures whose name contains this are run; "" runs all.
    explicit Bench(std::string only);

    /// Runs both in turn and prints one line: name, ours, bare, ratio, limit. The best run of each side
    /// counts.
    void Run(const Measure& measure);
    /// Prints a figure that has no bare loop beside it; a limit of 0 is none.
    void State(const std::string& name, double value, const char* unit, double limit = 0);

    bool Wanted(const std::string& name) const;
    /// How many measures were above their limit.
    int Failures() const { return failures_; }

  private:
    std::string only_;
    int failures_ = 0;
};

}  // namespace benchmarks
