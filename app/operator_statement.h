// A statement that changes operators, their rights or the counters. Elsewhere a text with an apostrophe in it
// can become part of its statement; here it could grant a right, or store another password than was typed.
//
// Always holds: a text with any apostrophe fails the statement before anything is written, as a broken
// statement fails. An error report shows asterisks in place of a secret, always as many.
#pragma once

#include "platform/dao/database.h"

#include <QString>

class OperatorStatement {
  public:
    /// How the statement begins, taken unchanged.
    explicit OperatorStatement(const QString& head) : statement_(head), reported_(head) {}

    /// A part of the statement, taken unchanged: never what an operator typed.
    OperatorStatement& Words(const QString& words);
    /// A value between apostrophes.
    OperatorStatement& Text(const QString& value);
    /// The same for a password.
    OperatorStatement& Secret(const QString& value);

    /// Raises DatabaseError.
    void Execute(dao::Database& db) const;

  private:
    void Add(const QString& value, const QString& reported);

    QString statement_;
    QString reported_;  ///< the same with its secrets hidden
    bool broken_ = false;
};
