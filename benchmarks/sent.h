// What reaches the engine: the final statements of a command, caught on their way and run again on the bare
// engine in the same order, each prepared afresh from its text, its rows read into plain values.
#pragma once

#include "benchmarks/bare_engine.h"

#include <QByteArray>

#include <functional>
#include <vector>

namespace benchmarks {

/// One statement as it was prepared, and the values of each time it ran; a statement without parameters ran
/// once.
struct Sent {
    QByteArray text;
    std::vector<std::vector<double>> values;
};

/// Everything that the engine ran meanwhile, begin and commit included.
std::vector<Sent> Caught(sqlite3* engine, const std::function<void()>& command);

void RunAgain(BareEngine& engine, const std::vector<Sent>& statements);

}  // namespace benchmarks
