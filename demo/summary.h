// What the day has left in the company's file, in Chinese and figures.
#pragma once

#include "demo/screen.h"

#include <QString>

namespace demo {

/// Reads the file, which the program has closed. Raises RuntimeError where the balances of a chain do not
/// follow one from the other, DatabaseError where the file cannot be read.
QString Summary(const QString& file, const std::vector<Screen::Kept>& pictures);

}  // namespace demo
