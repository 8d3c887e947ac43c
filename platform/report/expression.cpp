#include "platform/report/expression.h"

#include "platform/errors.h"
#include "platform/text/numbers.h"

#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace report {
namespace {

constexpr int kDeepest = 40;     // brackets within brackets
constexpr int kOperators = 200;  // of one expression

struct Arity {
    int least, most;
};

const std::map<QString, Arity>& Functions() {
    static const std::map<QString, Arity> functions = {
        {u"words"_s, {1, 1}},  {u"if"_s, {3, 3}},      {u"join"_s, {2, 20}}, {u"lines"_s, {1, 20}},
        {u"before"_s, {2, 2}}, {u"after"_s, {2, 2}},   {u"trim"_s, {1, 1}},  {u"squeeze"_s, {1, 1}},
        {u"number"_s, {1, 1}}, {u"isnumber"_s, {1, 1}}};
    return functions;
}

bool IsAggregate(const QString& name) {
    static const QStringList names = {u"sum"_s, u"count"_s, u"average"_s, u"first"_s, u"last"_s};
    return names.contains(name);
}

const std::map<QString, Scope>& Scopes() {
    static const std::map<QString, Scope> scopes = {{u"report"_s, Scope::Report},
                                                    {u"group"_s, Scope::Group},
                                                    {u"page"_s, Scope::Page},
                                                    {u"sofar"_s, Scope::SoFar}};
    return scopes;
}

bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

class Reader {
  public:
    Reader(QStringView text, Place place) : text_(text), place_(std::move(place)) {}

    /// An expression up to the end or up to what no longer belongs to it.
    Expression Whole();
    bool AtEnd() {
        SkipBlanks();
        return at_ >= text_.size();
    }
    bool Take(QStringView sign);
    QStringView UpTo(QChar end);
    qsizetype At() const { return at_; }
    [[noreturn]] void Refuse(const QString& reason) const { Fail(place_, reason); }

  private:
    struct Level {
        std::vector<QStringView> signs;
    };
    static const std::vector<Level>& Levels();

    Expression Binary(size_t level);
    Expression Unary();
    Expression Primary();
    Expression Quoted(QChar mark);
    Expression Number();
    Expression Named();
    Expression Called(const QString& name);
    Expression AggregateOf(Expression call);
    QString Name();
    bool TakeSign(QStringView sign);
    void SkipBlanks();

    QStringView text_;
    Place place_;
    qsizetype at_ = 0;
    int depth_ = 0;
    int operators_ = 0;
};

void Reader::SkipBlanks() {
    while (at_ < text_.size() && text_[at_].isSpace()) ++at_;
}

bool Reader::Take(QStringView sign) {
    SkipBlanks();
    if (!text_.sliced(at_).startsWith(sign)) return false;
    at_ += sign.size();
    return true;
}

/// A word among the operators ends where a name would.
bool Reader::TakeSign(QStringView sign) {
    const qsizetype before = at_;
    if (!Take(sign)) return false;
    const bool goesOn = sign[0].isLetter() && at_ < text_.size() && IsNameCharacter(text_[at_]);
    if (goesOn) at_ = before;
    return !goesOn;
}

QStringView Reader::UpTo(QChar end) {
    const qsizetype found = text_.indexOf(end, at_);
    const qsizetype stop = found < 0 ? text_.size() : found;
    const QStringView part = text_.sliced(at_, stop - at_);
    at_ = stop;
    return part;
}

/// From the weakest to the strongest; within a level the longer sign first.
const std::vector<Reader::Level>& Reader::Levels() {
    static const std::vector<Level> levels = {
        {{u"or"}}, {{u"and"}},     {{u"<>", u"<=", u">=", u"=", u"<", u">"}},
        {{u"??"}}, {{u"+", u"-"}}, {{u"*", u"/"}}};
    return levels;
}

Expression Reader::Whole() {
    if (++depth_ > kDeepest) Refuse(u"表达式的括号套得太深"_s);
    Expression read = Binary(0);
    --depth_;
    return read;
}

Expression Reader::Binary(size_t level) {
    if (level == Levels().size()) return Unary();
    Expression left = Binary(level + 1);
    for (;;) {
        QStringView taken;
        for (const QStringView sign : Levels()[level].signs)
            if (taken.isEmpty() && TakeSign(sign)) taken = sign;
        if (taken.isEmpty()) return left;
        if (++operators_ > kOperators) Refuse(u"表达式太长"_s);
        Expression both{.kind = Expression::Kind::Operator, .name = taken.toString()};
        both.arguments.push_back(std::move(left));
        both.arguments.push_back(Binary(level + 1));
        left = std::move(both);
    }
}

Expression Reader::Unary() {
    for (const QStringView sign : {QStringView(u"not"), QStringView(u"-")}) {
        if (!TakeSign(sign)) continue;
        if (++depth_ > kDeepest) Refuse(u"表达式的括号套得太深"_s);
        Expression one{.kind = Expression::Kind::Operator, .name = sign.toString()};
        one.arguments.push_back(Unary());
        --depth_;
        return one;
    }
    return Primary();
}

Expression Reader::Primary() {
    SkipBlanks();
    if (at_ >= text_.size()) Refuse(u"表达式不完整"_s);
    const QChar c = text_[at_];
    if (c == u'\'' || c == u'"') return Quoted(c);
    if (c >= u'0' && c <= u'9') return Number();
    if (Take(u"(")) {
        Expression inner = Whole();
        if (!Take(u")")) Refuse(u"表达式中缺少右括号"_s);
        return inner;
    }
    if (Take(u"@")) return {.kind = Expression::Kind::Formula, .name = Name()};
    if (Take(u"#")) return {.kind = Expression::Kind::Word, .name = Name().toLower()};
    return Named();
}

Expression Reader::Quoted(QChar mark) {
    ++at_;
    const QStringView part = UpTo(mark);
    if (!Take(QStringView(&mark, 1))) Refuse(u"表达式中的文字没有结束的引号"_s);
    return {.constant = TextValue(part.toString())};
}

Expression Reader::Number() {
    const qsizetype start = at_;
    while (at_ < text_.size() && ((text_[at_] >= u'0' && text_[at_] <= u'9') || text_[at_] == u'.')) ++at_;
    bool good = false;
    const double number = text_.sliced(start, at_ - start).toDouble(&good);
    if (!good) Refuse(u"“%1”不是数字"_s.arg(text_.sliced(start, at_ - start)));
    return {.constant = NumberValue(number)};
}

QString Reader::Name() {
    SkipBlanks();
    const qsizetype start = at_;
    while (at_ < text_.size() && IsNameCharacter(text_[at_])) ++at_;
    if (at_ == start) {
        if (start >= text_.size()) Refuse(u"表达式不完整"_s);
        Refuse(u"表达式中“%1”处有误"_s.arg(text_.sliced(start, 1)));
    }
    return text_.sliced(start, at_ - start).toString();
}

Expression Reader::Named() {
    const QString name = Name();
    if (Take(u"(")) return Called(name.toLower());
    if (Take(u".")) return {.kind = Expression::Kind::Lookup, .name = name, .field = Name()};
    return {.kind = Expression::Kind::Field, .name = name};
}

Expression Reader::Called(const QString& name) {
    if (!IsAggregate(name) && !Functions().contains(name)) Refuse(u"没有函数“%1”"_s.arg(name));
    Expression call{.kind = Expression::Kind::Call, .name = name};
    if (!Take(u")")) {
        do call.arguments.push_back(Whole());
        while (Take(u","));
        if (!Take(u")")) Refuse(u"函数“%1”缺少右括号"_s.arg(name));
    }
    if (IsAggregate(name)) return AggregateOf(std::move(call));
    const Arity arity = Functions().at(name);
    const auto count = static_cast<int>(call.arguments.size());
    if (count < arity.least || count > arity.most) Refuse(u"函数“%1”的参数个数不对"_s.arg(name));
    return call;
}

/// sum(F5), sum(F5, page), count(), count(group), sum(first(F7)).
Expression Reader::AggregateOf(Expression call) {
    call.kind = Expression::Kind::Aggregate;
    if (!call.arguments.empty()) {
        const Expression& last = call.arguments.back();
        const auto scope = Scopes().find(last.name.toLower());
        if (last.kind == Expression::Kind::Field && scope != Scopes().end()) {
            call.scope = scope->second;
            call.arguments.pop_back();
        }
    }
    const auto count = call.arguments.size();
    if (count > 1 || (count == 0 && call.name != u"count"))
        Refuse(u"函数“%1”的参数个数不对"_s.arg(call.name));
    Visit(call, [&](Expression& part) {
        if (&part == &call || part.kind != Expression::Kind::Aggregate) return;
        const bool ofGroups = call.name == u"sum" && &part == &call.arguments.front() &&
                              (part.name == u"first" || part.name == u"last");
        if (!ofGroups) Refuse(u"函数“%1”中不能再用“%2”"_s.arg(call.name, part.name));
    });
    return call;
}

}  // namespace

void Fail(const Place& place, const QString& reason) {
    throw RuntimeError(u"报表文件“%1”第 %2 行：%3！"_s.arg(place.file).arg(place.line).arg(reason));
}

void Visit(Expression& expression, const std::function<void(Expression&)>& visitor) {
    visitor(expression);
    for (Expression& part : expression.arguments) Visit(part, visitor);
}

Template ReadExpression(const QString& text, const Place& place) {
    Template read{.place = place};
    if (text.trimmed().isEmpty()) return read;
    Reader reader(text, place);
    Template::Piece piece;
    piece.expression.push_back(reader.Whole());
    if (!reader.AtEnd()) reader.Refuse(u"表达式中“%1”处有误"_s.arg(QStringView(text).sliced(reader.At(), 1)));
    read.pieces.push_back(std::move(piece));
    return read;
}

namespace {

/// From behind the opening brace; leaves the place behind the closing one.
Template::Piece ReadPiece(const QString& text, qsizetype& at, const Place& place) {
    Reader reader(QStringView(text).sliced(at), place);
    Template::Piece piece;
    piece.expression.push_back(reader.Whole());
    if (reader.Take(u":")) {
        const QStringView format = reader.UpTo(u'}');
        const auto read = ReadFormat(format);
        if (!read) Fail(place, u"“%1”不是数字或日期格式"_s.arg(format));
        piece.format = *read;
    }
    if (!reader.Take(u"}")) {
        if (reader.AtEnd()) Fail(place, u"“{”没有对应的“}”"_s);
        Fail(place, u"表达式中“%1”处有误"_s.arg(QStringView(text).sliced(at + reader.At(), 1)));
    }
    at += reader.At();
    return piece;
}

}  // namespace

Template ReadTemplate(const QString& text, const Place& place) {
    Template read{.place = place};
    QString plain;
    const auto endPlain = [&] {
        if (!plain.isEmpty()) read.pieces.push_back({.text = std::exchange(plain, {})});
    };
    for (qsizetype at = 0; at < text.size();) {
        const QChar c = text[at++];
        const bool twice = at < text.size() && text[at] == c;
        if ((c == u'{' || c == u'}') && twice) {
            plain += c;
            ++at;
        } else if (c == u'{') {
            endPlain();
            read.pieces.push_back(ReadPiece(text, at, place));
        } else if (c == u'}') {
            Fail(place, u"“}”没有对应的“{”"_s);
        } else {
            plain += c;
        }
    }
    endPlain();
    return read;
}

// ------------------------------------------------------------------------------------------------ evaluating

namespace {

Value Truth(bool truth) {
    return NumberValue(truth ? 1 : 0);
}

/// Two texts are compared as texts; as soon as one side is a number, as numbers.
int Compare(const Value& a, const Value& b) {
    if (!a.isNumber && !b.isNumber) return QString::compare(a.text, b.text);
    const double left = NumberOf(a), right = NumberOf(b);
    return left < right ? -1 : left > right ? 1 : 0;
}

Value Arithmetic(QChar sign, double a, double b) {
    switch (sign.unicode()) {
        case u'+':
            return NumberValue(a + b);
        case u'-':
            return NumberValue(a - b);
        case u'*':
            return NumberValue(a * b);
        default:
            return b == 0 ? Value() : NumberValue(a / b);
    }
}

Value Operate(const Expression& e, const Answers& answers) {
    const Value a = Evaluate(e.arguments[0], answers);
    const QString& sign = e.name;
    if (sign == u"not") return Truth(!IsTrue(a));
    if (e.arguments.size() == 1) return NumberValue(-NumberOf(a));
    if (sign == u"and") return Truth(IsTrue(a) && IsTrue(Evaluate(e.arguments[1], answers)));
    if (sign == u"or") return Truth(IsTrue(a) || IsTrue(Evaluate(e.arguments[1], answers)));
    if (sign == u"??") return TextOf(a).isEmpty() ? Evaluate(e.arguments[1], answers) : a;
    const Value b = Evaluate(e.arguments[1], answers);
    if (sign == u"=") return Truth(Compare(a, b) == 0);
    if (sign == u"<>") return Truth(Compare(a, b) != 0);
    if (sign == u"<") return Truth(Compare(a, b) < 0);
    if (sign == u">") return Truth(Compare(a, b) > 0);
    if (sign == u"<=") return Truth(Compare(a, b) <= 0);
    if (sign == u">=") return Truth(Compare(a, b) >= 0);
    return Arithmetic(sign[0], NumberOf(a), NumberOf(b));
}

/// The texts of the arguments from the given one on that are not empty.
QString Joined(const Expression& e, size_t first, const QString& between, const Answers& answers) {
    QStringList parts;
    for (size_t i = first; i < e.arguments.size(); ++i)
        if (const QString part = TextOf(Evaluate(e.arguments[i], answers)); !part.isEmpty()) parts += part;
    return parts.join(between);
}

Value Call(const Expression& e, const Answers& answers) {
    const Value first = Evaluate(e.arguments[0], answers);
    const QString text = TextOf(first);
    const QString& name = e.name;
    if (name == u"words") return TextValue(AmountInWords(NumberOf(first)));
    if (name == u"if") return Evaluate(e.arguments[IsTrue(first) ? 1 : 2], answers);
    if (name == u"join") return TextValue(Joined(e, 1, text, answers));
    if (name == u"lines") return TextValue(Joined(e, 0, u"\n"_s, answers));
    if (name == u"trim") return TextValue(text::Trim(text));
    if (name == u"squeeze") return TextValue(QString(text).remove(u' '));
    if (name == u"number") return NumberValue(NumberOf(first));
    if (name == u"isnumber") return Truth(first.isNumber || text::IsPlainNumber(text));
    const QString mark = TextOf(Evaluate(e.arguments[1], answers));
    const qsizetype at = mark.isEmpty() ? -1 : text.indexOf(mark);
    if (name == u"before") return TextValue(at < 0 ? text : text.left(at));
    return TextValue(at < 0 ? QString() : text.mid(at + mark.size()));  // after
}

}  // namespace

Value Evaluate(const Expression& e, const Answers& answers) {
    switch (e.kind) {
        case Expression::Kind::Constant:
        case Expression::Kind::Formula:
        case Expression::Kind::Lookup:
            return e.constant;
        case Expression::Kind::Field:
            return answers.Field(e.index);
        case Expression::Kind::Word:
            return answers.Word(e.name);
        case Expression::Kind::Operator:
            return Operate(e, answers);
        case Expression::Kind::Call:
            return Call(e, answers);
        case Expression::Kind::Aggregate:
            return answers.Aggregate(e);
    }
    return {};
}

QString Evaluate(const Template& text, const Answers& answers) {
    // Most cells are one field.
    if (text.pieces.size() == 1 && !text.pieces[0].expression.empty())
        return Show(Evaluate(text.pieces[0].expression[0], answers), text.pieces[0].format);
    QString shown;
    for (const Template::Piece& piece : text.pieces)
        shown += piece.expression.empty() ? piece.text
                                          : Show(Evaluate(piece.expression[0], answers), piece.format);
    return shown;
}

Value ValueOf(const Template& expression, const Answers& answers) {
    return expression.IsEmpty() ? Value() : Evaluate(expression.pieces[0].expression[0], answers);
}

}  // namespace report
