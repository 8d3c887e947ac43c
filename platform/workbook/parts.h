// What stands round the cells: the workbook's own records and the sheet's beginning and end, for each format.
#pragma once

#include "platform/workbook/records.h"
#include "platform/workbook/workbook.h"

namespace workbook {

/// The look of a cell: a text, also when it is typed into.
inline constexpr quint16 kTextCell = 16;

/// The workbook's records up to the end of the book, with the shared strings (none: an empty span) among
/// them; the sheet begins right behind.
Bytes BookRecords(Format format, const QString& sheet, ByteSpan sharedStrings);
Bytes SheetBegin(Format format, int rows, int columns);
Bytes SheetEnd(Format format);

}  // namespace workbook
