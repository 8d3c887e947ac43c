// A search as its conditions: of each the line that the operator reads and the piece of statement that it
// stands for. Without a screen; the dialog over it is in query.h.
//
// Always holds: the two texts are kept side by side, line for line, because a removal cuts characters and not
// meaning. Nothing is validated and nothing escaped: what the engine cannot read fails when the caller runs
// it.
#pragma once

#include <QString>
#include <QStringList>

namespace search {

/// A field's type code.
enum class Kind { Text = 0, Number = 1, Date = 2 };

/// What binds a condition to those before it, as it is offered: "并且".
QStringList Connectives();
/// How a field of that kind can be compared, as it is offered: "等于(=)".
QStringList Relations(Kind kind);

struct Condition {
    QString connective;  ///< one of Connectives(); the first condition has none
    QString caption;     ///< of the field
    QString field;       ///< qualified: "M04.F1"
    Kind kind = Kind::Text;
    QString relation;  ///< one of Relations(kind)
    QString value;     ///< as shown; a date is yyyy-MM-dd
};

struct Conditions {
    QStringList shown;
    QStringList pieces;

    /// A number's value is what can be read of it as a number, 0 if nothing can; one that is too large for
    /// any number raises.
    void Add(const Condition& condition);
    /// Takes a line and its piece away; -1 takes none. The line that is then the first becomes the head.
    void Remove(int line);
    /// The base statement with all pieces behind it.
    QString Statement(const QString& base) const { return base + pieces.join(QString()); }
};

}  // namespace search
