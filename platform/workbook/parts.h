// The records around the cells: the workbook's own records and the start and end of the sheet, for each
// format.
#pragma once

#include "platform/workbook/records.h"
#include "platform/workbook/workbook.h"

namespace workbook {

/// The look of a cell whose content is text, also after it is edited.
inline constexpr quint16 kTextCell = 16;

/// The workbook's records up to its end record, including the shared strings (an empty span for none). The
/// sheet follows immediately.
Bytes BookRecords(Format format, const QString& sheet, ByteSpan sharedStrings);
Bytes SheetBegin(Format format, int rows, int columns);
Bytes SheetEnd(Format format);

}  // namespace workbook
