// The pictures of the day on one page: in the order of the day, grouped by chapter, each with its caption.
// The page is a file beside the pictures; it opens in any browser and loads no external resource.
#pragma once

#include "demo/screen.h"

#include <QString>

namespace demo {

/// `summary`: the data at the end of the day, in a monospaced font at the end of the page.
QString IndexPage(const std::vector<Screen::Kept>& pictures, const QString& summary);

}  // namespace demo
