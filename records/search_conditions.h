// The conditions of a search: for each, the line that the operator reads and the corresponding piece of the
// statement. Without a screen; the dialog is in query.h.
//
// Always holds: a line is its two texts and nothing else, because a removal replaces a fixed number of
// characters and does not parse them. Nothing is validated or escaped: a statement that the engine cannot
// parse fails when the caller executes it.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace search {

/// A field's type code.
enum class Kind { Text = 0, Number = 1, Date = 2 };

/// The words that join a condition to those before it, as the combo lists them: "并且".
QStringList Connectives();
/// The comparisons for a field of that kind, as the combo lists them: "等于(=)".
QStringList Relations(Kind kind);

struct Condition {
    QString connective;  ///< one of Connectives(); the first condition has none
    QString caption;     ///< of the field
    QString field;       ///< qualified: "M04.F1"
    Kind kind = Kind::Text;
    QString relation;  ///< one of Relations(kind)
    QString value;     ///< as shown; a date is yyyy-MM-dd
};

class Conditions {
  public:
    /// The value of a number field is the number that its text begins with, 0 if there is none; a number that
    /// is too large raises RuntimeError.
    void Add(const Condition& condition);
    /// Removes a line and its piece; -1 removes none. The line that is then the first becomes the head.
    void Remove(int line);
    /// What the operator reads, and the pieces of the statement: a line for each condition.
    QStringList Shown() const;
    QStringList Pieces() const;
    /// The base statement followed by all pieces.
    QString Statement(const QString& base) const { return base + Pieces().join(QString()); }

  private:
    struct Line {
        QString shown, piece;
    };
    std::vector<Line> lines_;
};

}  // namespace search
