// The engine's errors as an operator reads them.
#pragma once

#include <QString>

namespace dao {

/// What became of the data file, in Chinese and with its path: it cannot be opened, read, written or locked,
/// is none, or is damaged. Anything else, a broken statement above all, is given in the engine's own words.
/// The code may be an extended one.
QString EngineText(int code, const char* words, const QString& path);

}  // namespace dao
