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
};

/// xls2csv ends badly at pairs of halves and at characters that are none.
enum class Readers { XlrdAlone, Both };

/// Fails the test, and gives empty ones, when a file cannot be read or a cell is no text; with both readers
/// also when they do not find the same.
QList<Workbook> ReadWorkbooks(const QStringList& paths, Readers readers);
Workbook ReadWorkbook(const QString& path, Readers readers = Readers::Both);

}  // namespace tests
