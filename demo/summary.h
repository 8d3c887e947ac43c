// The content of the company's file at the end of the day, in Chinese and figures.
#pragma once

#include "demo/screen.h"

#include <QString>

namespace demo {

/// Reads the file, which the program must have closed. Raises RuntimeError if the balances of a chain do not
/// follow from one another, DatabaseError if the file cannot be read.
QString Summary(const QString& file, const std::vector<Screen::Kept>& pictures);

}  // namespace demo
