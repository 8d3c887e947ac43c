// The pictures of the day as one page, in the order of the day, by chapters, each with its caption: a file of
// its own beside the pictures that any browser opens, without anything from elsewhere.
#pragma once

#include "demo/screen.h"

#include <QString>

namespace demo {

/// summary: what the day has left, set in letters of one width at the page's end.
QString IndexPage(const std::vector<Screen::Kept>& pictures, const QString& summary);

}  // namespace demo
