// The quote sheets: a customer's prices by zone, for the customer to keep.
//
// Always holds: a sheet has what the quote grid shows, stored or not, and of each quote the nine first prices
// only.
#pragma once

#include "platform/controls/flex_grid.h"

#include <QStringList>

/// What sets the two apart. Nothing else in the system reads the mark of a zone.
struct QuoteSheet {
    QString layout;
    bool abroad;  ///< the zones marked 国外; otherwise all others, whatever their mark
};

extern const QuoteSheet InternationalSheet;
extern const QuoteSheet DomesticSheet;

/// Empties the work table and inserts the sheet's rows of the quote grid. The cells go in as they are, so an
/// empty price fails its statement: so does the blank row of a customer without quotes, which counts as
/// domestic.
void FillQuoteSheet(const QuoteSheet& sheet, const controls::FlexGrid& quotes);

/// The sheet's texts: the customer's short name, the captions of the nine prices, the five remark lines.
QStringList QuoteSheetFormulas(const QString& customer, const controls::FlexGrid& quotes,
                               const QStringList& remarks);
