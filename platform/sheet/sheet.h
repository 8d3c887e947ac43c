// Reads the first sheet of a workbook, or a text file of separated values, as rows of texts: .xls (5.0
// to 8.0), .xlsx and CSV, known by their bytes and not by the name of the file.
//
// Always holds: nothing is left out in silence. A cell whose value cannot be given, or only in part, is among
// notUnderstood; a file of which no row can be given raises RuntimeError with the reason in a text for the
// operator. Rows and columns count from 0. No text refers to anything outside of the file.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace sheet {

inline constexpr int kMostColumns = 256;      ///< cells further right are reported
inline constexpr int kMostRows = 1'048'576;   ///< more raise
inline constexpr int kMostCells = 5'000'000;  ///< likewise; with the empty ones before others of their rows
inline constexpr int kMostBytes =
    256'000'000;                           ///< of the file, and of each part of an .xlsx unpacked; likewise
inline constexpr int kMostReports = 1000;  ///< that are kept; all are counted

struct NotUnderstood {
    int row;
    int column;
    QString reason;
};

struct Sheet {
    QStringList names;  ///< of the sheets that are not hidden; none of a CSV file
    int hidden = 0;     ///< sheets
    /// Each as long as its last cell that is not empty. A number is plain digits ("1234567890123", "12.5"),
    /// at most 15 that count; a date is yyyy-MM-dd, with a time of day yyyy-MM-dd HH:mm:ss.
    std::vector<QStringList> rows;
    std::vector<NotUnderstood> notUnderstood;
    int reports = 0;  ///< cells not understood, in all

    /// "" where there is no such cell.
    QString At(int row, int column) const;
};

/// A number of more digits may have lost its last ones before it came into the file.
bool IsTooLong(QStringView number);
inline constexpr QStringView kTooLong = u"数字超过 15 位，末尾可能不准";

/// "A1"
QString Address(int row, int column);
/// "A"
QString ColumnName(int column);

/// Gets the number of rows read so far.
using Progress = std::function<void(int)>;

/// `which` is an index of Sheet::names; one that is not there means the first.
Sheet Read(const QString& path, int which = 0, const Progress& progress = {});

}  // namespace sheet
