// The content of braces in a layout: fields, formulas, sums, small computations. A template is a text
// with such pieces in it.
//
// Always holds: an expression that was read and bound (data.h) can't fail when it is evaluated; a division by
// 0 gives an empty text.
#pragma once

#include "platform/report/formats.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <vector>

namespace report {

/// Where a sum or a count runs over. Default: as the band that contains it says.
enum class Scope { Default, Report, Group, Page, SoFar };

struct Expression {
    enum class Kind {
        Constant,
        Field,      ///< of the row
        Formula,    ///< @name; a constant once it is bound
        Lookup,     ///< name.field; a constant once it is bound
        Word,       ///< #row, #page, #pages, #date, #carry, #line, #count
        Operator,   ///< name is the operator
        Call,       ///< name is the function
        Aggregate,  ///< sum, count, average, first, last; index numbers it
    };
    Kind kind = Kind::Constant;
    QString name = {};
    QString field = {};  ///< of a lookup
    Value constant = {};
    int index = -1;  ///< column of a field, number of an aggregate
    Scope scope = Scope::Default;
    std::vector<Expression> arguments = {};
};

/// A place in a layout, for what has to be said about it.
struct Place {
    QString file;
    qint64 line = 0;
};
/// The file, its line and the reason, as RuntimeError.
[[noreturn]] void Fail(const Place& place, const QString& reason);

struct Template {
    struct Piece {
        QString text = {};  ///< where there is no expression
        std::vector<Expression> expression = {};
        Format format = {};
    };
    std::vector<Piece> pieces = {};
    Place place = {};
    bool IsEmpty() const { return pieces.empty(); }
};

/// A text with pieces in braces; "{{" and "}}" are braces in the text. Raises RuntimeError with the place.
Template ReadTemplate(const QString& text, const Place& place);
/// A condition or a group's key: the expression alone. An empty text is no piece at all.
Template ReadExpression(const QString& text, const Place& place);

/// Visits all parts of an expression, from the outside in.
void Visit(Expression& expression, const std::function<void(Expression&)>& visitor);

/// What an expression asks while it is evaluated.
class Answers {
  public:
    virtual ~Answers() = default;
    virtual Value Field(int column) const = 0;
    virtual Value Word(const QString& name) const = 0;
    virtual Value Aggregate(const Expression& aggregate) const = 0;
};

Value Evaluate(const Expression& expression, const Answers& answers);
QString Evaluate(const Template& text, const Answers& answers);
/// The value of an expression without text around it; an empty text where there is none.
Value ValueOf(const Template& expression, const Answers& answers);

}  // namespace report
