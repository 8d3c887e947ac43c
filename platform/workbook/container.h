// The compound file that a workbook's stream lies in, and its way onto the disk.
#pragma once

#include "platform/workbook/records.h"

#include <QString>

#include <array>
#include <initializer_list>

namespace workbook {

/// What the container says of the program that opens it.
using ClassId = std::array<uchar, 16>;

/// Writes a compound file with one stream made of these parts. The bytes go into a file beside it that takes
/// the name when all of it is on the disk; its owner alone can read it. Raises RuntimeError, also for a file
/// that is there already.
void WriteContainer(const QString& path, const char* stream, const ClassId& opener,
                    std::initializer_list<ByteSpan> parts);

}  // namespace workbook
