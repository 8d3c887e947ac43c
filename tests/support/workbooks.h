// Workbooks read back by two readers that know nothing of ours (read_workbook.py), xlrd and xls2csv.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tests {

struct Workbook {
    int biff = 0;  ///< 80, 70, 50
    int codePage = 0;
    QStringList sheets;
    QList<QStringList> rows;  ///< of the first sheet
    int longestRecord = 0;    ///< bytes
    bool readByBoth = false;  ///< xls2csv can read what the sheet holds, and found the same
};

/// Fails the test when a file cannot be read or a cell is no text, and gives empty ones then; also when
/// xls2csv, where it can read what the sheet holds, finds anything else in it than xlrd.
QList<Workbook> ReadWorkbooks(const QStringList& paths);
Workbook ReadWorkbook(const QString& path);

}  // namespace tests
