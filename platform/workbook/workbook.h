// Writing a workbook of one sheet of texts, in the three formats that old spreadsheet programs read: an 8.0
// file is a compound file with the stream "Workbook", 7.0 and 5.0 have the stream "Book" in code page 936.
//
// Always holds: every cell is a text, digits too; rows and columns count from 0. Nothing is on the disk
// before Save, and a Save that fails leaves nothing there under the chosen name.
#pragma once

#include "platform/errors.h"

#include <QString>

#include <memory>

namespace workbook {

enum class Format {
    Biff8,  ///< 65,536 rows, texts of up to 32,767 characters
    Biff7,  ///< 16,384 rows, texts of up to 255 bytes; what code page 936 does not have becomes "?"
    Biff5   ///< likewise
};

/// Rows that a sheet holds.
int MostRows(Format format);
/// The longest text of a cell: characters for Biff8, bytes of code page 936 for the others.
int LongestText(Format format);

/// What does not fit into the format. The writer must not be used any more.
class DoesNotFit : public RuntimeError {
  public:
    enum class Reason { TooManyRows, TextTooLong };
    DoesNotFit(Reason reason, int row, int column);
    const Reason reason;
    const int row;  ///< of the sheet
    const int column;
};

class Writer {
  public:
    Writer(Format format, const QString& sheet);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// The next row, the first one to begin with. Raises DoesNotFit.
    void NextRow();
    /// The next cell of the row. An empty text takes no room but in the first column, so that every row is
    /// there. At most 256 columns. Raises DoesNotFit.
    void Add(const QString& text);
    /// Writes the file; one that is there already is never overwritten. Raises RuntimeError, with the reason
    /// in words for the operator. Ends the writer's work.
    void Save(const QString& path);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace workbook
