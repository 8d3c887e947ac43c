// The table of a workbook's distinct texts, which the cells of the 8.0 format refer to by number.
//
// Always holds: a record is at most 8,224 bytes long, what is more goes into CONTINUE records; a text that is
// split between two begins its second part with its option byte again; its head of three bytes, a character
// and a pair of halves are never split.
#pragma once

#include "platform/workbook/records.h"

#include <QHash>
#include <QString>

namespace workbook {

class SharedStrings {
  public:
    SharedStrings();

    /// The number of a text, counting from 0; every call counts as one use. At most 65,535 characters.
    quint32 Use(const QString& text);
    /// Gives the finished records. Nothing can be added any more.
    const Bytes& Finish();

  private:
    std::size_t Room() const;
    void StartRecord(quint16 kind);
    void CloseRecord();
    void Append(QStringView text);
    void AppendCharacters(QStringView text, bool wide);

    QHash<QString, quint32> numbers_;
    quint32 uses_ = 0;
    Bytes bytes_;
    std::size_t record_ = 0;  ///< where the record that is open begins
};

}  // namespace workbook
