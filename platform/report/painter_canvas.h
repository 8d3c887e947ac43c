// Pages on a screen and on a printer, through the toolkit's painter.
#pragma once

#include "platform/report/document.h"
#include "platform/report/paint.h"

#include <QPainter>

namespace report {

/// Draws a page with its upper left corner at the painter's origin, in the painter's own dots.
void PaintPage(const Document& document, int page, const Device& device, QPainter& painter);

}  // namespace report
