// Registers the dialect's own functions, datediff and like, and finite, which guards what is reckoned in a
// write, with an open engine.
#pragma once

#include <sqlite3.h>

namespace dao {

/// Returns the engine's result code.
int RegisterFunctions(sqlite3* engine);

}  // namespace dao
