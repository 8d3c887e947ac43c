// Records the final statements of a command as the engine receives them, and executes them again on the bare
// engine in the same order. Each is prepared again from its text and its rows are read into plain values.
#pragma once

#include "benchmarks/bare_engine.h"

#include <QByteArray>

#include <functional>
#include <vector>

namespace benchmarks {

/// One statement as it was prepared, and the values of each execution; a statement without parameters was
/// executed once.
struct Sent {
    QByteArray text;
    std::vector<std::vector<double>> values;
};

/// Every statement that the engine executed during the command, begin and commit included.
std::vector<Sent> Caught(sqlite3* engine, const std::function<void()>& command);

void RunAgain(BareEngine& engine, const std::vector<Sent>& statements);

}  // namespace benchmarks
