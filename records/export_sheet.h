// The sheet of every workbook that the program writes: a row of field names, F1 and so on, above the rows.
#pragma once

#include "platform/workbook/workbook.h"

#include <QStringList>

class ExportSheet : public workbook::Writer {
  public:
    ExportSheet(workbook::Format format, std::size_t fields) : Writer(format, QStringLiteral("mysheet")) {
        NextRow();
        for (std::size_t field = 1; field <= fields; ++field) Add(u'F' + QString::number(field));
    }
    void AddRow(const QStringList& cells) {
        NextRow();
        for (const QString& cell : cells) Add(cell);
    }
};
