// The table of a workbook's distinct texts, which the cells of the 8.0 format refer to by number.
//
// Always holds: a record is at most 8,224 bytes long, what is more goes into CONTINUE records; a text that is
// split between two begins its second part with its option byte again; its head of three bytes, a character
// and a pair of halves are never split.
#pragma once

#include "platform/workbook/records.h"

#include <QString>

#include <vector>

namespace workbook {

class SharedStrings {
  public:
    SharedStrings();

    /// The number of a text, counting from 0; every call counts as one use. At most 65,535 characters.
    quint32 Use(const QString& text);
    /// Gives the finished records. Nothing can be added any more.
    const Bytes& Finish();

  private:
    /// Where a text is found by a mix of its bits.
    struct Slot {
        quint32 mix;
        quint32 text;  ///< its number + 1; 0 is a free slot
    };

    quint32 Find(const QString& text);
    void Grow();
    std::size_t Room() const;
    void StartRecord(quint16 kind);
    void CloseRecord();
    void Append(QStringView text);
    void AppendCharacters(QStringView text, bool wide);

    std::vector<QString> texts_;
    std::vector<Slot> slots_;             ///< a power of two of them, at most half in use
    std::array<quint32, 1024> lately_{};  ///< numbers + 1, by the place of the text in memory
    quint32 uses_ = 0;
    Bytes bytes_;
    std::size_t record_ = 0;  ///< where the record that is open begins
};

}  // namespace workbook
