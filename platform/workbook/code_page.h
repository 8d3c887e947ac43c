// Code page 936, the Chinese one of the formats that know no Unicode: ASCII in one byte, all else in two.
#pragma once

#include "platform/workbook/records.h"

#include <QStringView>

namespace workbook {

/// Appends the text; a character that the page does not have becomes "?". Raises RuntimeError when the
/// system does not know the page.
void PutInCodePage(Bytes& bytes, QStringView text);

}  // namespace workbook
