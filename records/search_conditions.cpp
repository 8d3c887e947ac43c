#include "records/search_conditions.h"

#include "platform/text/numbers.h"
#include "platform/text/quoted.h"

using namespace Qt::StringLiterals;

namespace search {
namespace {

struct Connective {
    QString offered;
    QString piece;
};

const Connective ConnectiveRows[] = {
    {u"并且"_s, u" And "_s},
    {u"或者"_s, u" Or "_s},
    {u"排除"_s, u" AND Not "_s},
};

const QString Head = u" Where "_s;
const QString HeadPrefix = u"        "_s;

QString ConnectivePiece(const QString& offered) {
    for (const Connective& connective : ConnectiveRows)
        if (connective.offered == offered) return connective.piece;
    return Head;
}

/// "等于(=)" gives " = ".
QString Operator(const QString& relation) {
    const qsizetype open = relation.indexOf(u'(');
    return u' ' + relation.mid(open + 1, relation.indexOf(u')') - open - 1) + u' ';
}

QString ShownText(const Condition& c) {
    const QString prefix = c.connective.isEmpty() ? HeadPrefix : c.connective + u"    "_s;
    return prefix + c.caption + u"  "_s + c.relation.left(2) + u"  "_s + u"   "_s + c.value;
}

QString Piece(const Condition& c) {
    const QString connective = ConnectivePiece(c.connective);
    const QString compared = Operator(c.relation);
    switch (c.kind) {
        case Kind::Number:
            return connective + c.field + compared + text::GeneralText(text::Val(c.value));
        case Kind::Date:
            // Days are counted, so a day is met whatever time of day the field holds.
            return connective + u"datediff('d',"_s + Quoted(c.value) + u',' + c.field + u" )"_s + compared +
                   u"0 "_s;
        case Kind::Text:
            break;
    }
    const QString mark = compared.contains(u"like"_s) ? u"*"_s : QString();
    return connective + c.field + compared + Quoted(mark + c.value + mark) + u"  "_s;
}

}  // namespace

QStringList Connectives() {
    QStringList offered;
    for (const Connective& connective : ConnectiveRows) offered += connective.offered;
    return offered;
}

QStringList Relations(Kind kind) {
    if (kind == Kind::Text) return {u"等于(=)"_s, u"包含(like)"_s};
    return {u"大于(>)"_s, u"小于(<)"_s, u"等于(=)"_s};
}

void Conditions::Add(const Condition& condition) {
    lines_.push_back({ShownText(condition), Piece(condition)});
}

void Conditions::Remove(int line) {
    if (line >= 0) lines_.erase(lines_.begin() + line);
    if (lines_.empty() || lines_.front().shown.startsWith(u"  "_s)) return;
    // Kept on purpose: five is the length of " And ", whatever the piece begins with. " AND Not " leaves a
    // sound "Where Not"; with " Or " the first character of the field is cut too.
    constexpr int HeadCut = 5;
    lines_.front().shown.replace(0, 2, u"  "_s);
    lines_.front().piece.replace(0, HeadCut, Head);
}

QStringList Conditions::Shown() const {
    QStringList shown;
    for (const Line& line : lines_) shown += line.shown;
    return shown;
}

QStringList Conditions::Pieces() const {
    QStringList pieces;
    for (const Line& line : lines_) pieces += line.piece;
    return pieces;
}

}  // namespace search
