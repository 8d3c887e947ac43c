// Writes a workbook of one sheet of texts, in the three formats that old spreadsheet programs read. An 8.0
// file is a compound file with the stream "Workbook"; 7.0 and 5.0 files have the stream "Book" in code page
// 936.
//
// Always holds: every cell is a text, even one of digits; rows and columns count from 0. Nothing is written
// to the disk before Save, and a Save that fails leaves no file under the chosen name.
#pragma once

#include "platform/errors.h"

#include <QString>

#include <memory>

namespace workbook {

enum class Format {
    Biff8,  ///< 65,536 rows, texts of up to 32,767 characters
    Biff7,  ///< 16,384 rows, texts of up to 255 bytes; characters outside code page 936 become "?"
    Biff5   ///< likewise
};

/// The maximum number of rows of a sheet.
int MostRows(Format format);
/// The longest text of a cell: characters for Biff8, bytes of code page 936 for the others.
int LongestText(Format format);

/// Raised for a row or text that does not fit into the format. Do not use the writer afterwards.
class DoesNotFit : public RuntimeError {
  public:
    enum class Reason { TooManyRows, TextTooLong };
    DoesNotFit(Reason reason, int row, int column);
    const Reason reason;
    const int row;  ///< the row of the sheet, counted from 0
    const int column;
};

class Writer {
  public:
    Writer(Format format, const QString& sheet);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// Starts the next row; the first call starts the first row. Raises DoesNotFit.
    void NextRow();
    /// Adds the next cell of the row, at most 256. An empty text is written only in the first column, so that
    /// every row exists. Raises DoesNotFit.
    void Add(const QString& text);
    /// Writes the file; never overwrites an existing one. Raises RuntimeError with the reason in a text for
    /// the operator. Do not use the writer afterwards.
    void Save(const QString& path);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace workbook
