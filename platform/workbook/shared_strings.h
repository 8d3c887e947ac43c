// The table of a workbook's distinct texts. Cells of the 8.0 format refer to a text by its number.
//
// Always holds: a record is at most 8,224 bytes long, and longer data continues in CONTINUE records. If a
// text is split between two records, its second part starts with its option byte again. The text's head of
// three bytes, a character and a surrogate pair are never split.
#pragma once

#include "platform/workbook/records.h"

#include <QString>

#include <vector>

namespace workbook {

class SharedStrings {
  public:
    SharedStrings();

    /// The number of a text, counted from 0. Every call counts as one use. At most 65,535 characters.
    quint32 Use(const QString& text);
    /// Returns the finished records. Do not call Use() afterwards.
    const Bytes& Finish();

  private:
    /// A slot of the hash table; `mix` is the hash of the text. The table is our own because the toolkit's
    /// hash makes the export 1.4 times as slow, the standard library's 1.15 times: above or close to the
    /// limit of its measure.
    struct Slot {
        quint32 mix;
        quint32 text;  ///< the text's number + 1; 0 in a free slot
    };

    quint32 Find(const QString& text);
    void Grow();
    std::size_t Remaining() const;
    void StartRecord(quint16 kind);
    void CloseRecord();
    void Append(QStringView text);
    void AppendCharacters(QStringView text, bool wide);

    std::vector<QString> texts_;
    std::vector<Slot> slots_;             ///< hash table; its size is a power of two, at most half is used
    std::array<quint32, 1024> lately_{};  ///< cache by the address of the text's data: its number + 1, or 0
    quint32 uses_ = 0;
    Bytes bytes_;
    std::size_t record_ = 0;  ///< offset of the open record
};

}  // namespace workbook
