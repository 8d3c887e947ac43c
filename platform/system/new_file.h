// A file that is written under a name that is free.
//
// Always holds: the name is taken when all of the file is on the disk, and not before; what has the name
// already is never replaced. The file can be read by its owner alone.
#pragma once

#include "platform/errors.h"

#include <QByteArrayView>
#include <QString>

namespace sys {

/// Why a file was not written, in words for the operator.
class WriteError : public RuntimeError {
  public:
    enum class Cause { NameTaken, NameTooLong, Other };
    WriteError(const QString& text, Cause cause) : RuntimeError(text), cause_(cause) {}
    Cause Why() const { return cause_; }

  private:
    Cause cause_;
};

/// Raises WriteError; then no file is left behind.
void WriteNew(const QString& path, QByteArrayView bytes);

/// A text as the name of a file or a part of it: each character that some file system refuses or a program
/// would misread (a slash, a colon, a quotation mark, a control character) is replaced.
QString FileNameOf(QString text, QChar instead);

}  // namespace sys
