// What the readers of the three formats share: the sheet that is being filled, and the texts of numbers and
// dates.
#pragma once

#include "platform/sheet/sheet.h"

#include <QByteArray>

#include <optional>

namespace sheet {

/// Keeps the limits of sheet.h.
class Cells {
  public:
    Cells(Sheet& sheet, const Progress& progress) : sheet_(sheet), progress_(progress) {}
    /// An empty text leaves no cell; characters of number 0 are left out and reported.
    void Put(int row, int column, const QString& text);
    void Report(int row, int column, QStringView reason);
    QStringList& Names() { return sheet_.names; }
    int& Hidden() { return sheet_.hidden; }

  private:
    Sheet& sheet_;
    const Progress& progress_;
    int cells_ = 0;     ///< with the empty ones before the last of each row
    int reported_ = 0;  ///< the row that the progress was last given
};

/// What a number format makes of a number.
enum class Look { Number, Date, Time, DateTime };

/// Plain digits, at most 15 that count.
QString NumberText(double value);
/// To how many digits a format of zeros alone fills a number; 0 for any other.
int DigitsOf(const QString& format);
QString Filled(const QString& number, int digits);
/// The text of a day number of 1900 (or 1904); nullopt for one that is no date.
std::optional<QString> DateText(double serial, Look look, bool from1904);

// The readers. Each raises RuntimeError.
void ReadCsv(const QByteArray& bytes, Cells& cells);
void ReadXls(const QByteArray& bytes, int which, Cells& cells);
void ReadXlsx(const QByteArray& bytes, int which, Cells& cells);

/// The refusals that several readers give.
[[noreturn]] void RefuseDamaged();
[[noreturn]] void RefuseEncrypted();
[[noreturn]] void RefuseTooMuch();

}  // namespace sheet
