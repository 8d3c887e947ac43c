// Where a text is found on the pages of a document.
#pragma once

#include "platform/report/document.h"

#include <QRectF>
#include <QString>

#include <vector>

namespace report {

struct Hit {
    int page;
    QRectF place;  ///< millimetres on the paper
};

/// All places of a text on one page, from its top down, whatever its case; within a line of a text alone.
std::vector<Hit> FindOnPage(const Document& document, int page, const QString& text);

}  // namespace report
