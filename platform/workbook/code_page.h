// Code page 936, used by the formats without Unicode: ASCII in one byte, all other characters in two.
#pragma once

#include "platform/workbook/records.h"

#include <QStringView>

namespace workbook {

/// Appends the text; a character that the page does not have becomes "?". Raises RuntimeError if the system
/// does not support the page.
void PutInCodePage(Bytes& bytes, QStringView text);

}  // namespace workbook
