#include "platform/errors.h"
#include "platform/sheet/cells.h"
#include "platform/sheet/container.h"

#include <QBuffer>
#include <QHash>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace sheet {
namespace {

/// Elements of a part by their local names, whose namespaces differ between the two kinds of such files. A
/// part that declares a document type is refused, so nothing is ever resolved.
class Part {
  public:
    explicit Part(const QByteArray& bytes) : bytes_(bytes), buffer_(&bytes_), xml(&buffer_) {
        buffer_.open(QIODevice::ReadOnly);
    }

  private:
    QByteArray bytes_;
    QBuffer buffer_;

  public:
    /// False at the end. Raises for what is no XML.
    bool Next() {
        const auto token = xml.readNext();
        if (xml.hasError() || token == QXmlStreamReader::DTD) RefuseDamaged();
        return token != QXmlStreamReader::EndDocument;
    }
    bool Starts(QStringView name) const { return xml.isStartElement() && xml.name() == name; }
    bool Ends(QStringView name) const { return xml.isEndElement() && xml.name() == name; }
    QString Attribute(QStringView name) const {
        for (const QXmlStreamAttribute& attribute : xml.attributes())
            if (attribute.name() == name && attribute.prefix().isEmpty()) return attribute.value().toString();
        return {};
    }
    /// The text of the element that has begun, without that of elements in it.
    QString Text() {
        const QString text = xml.readElementText(QXmlStreamReader::SkipChildElements);
        if (xml.hasError()) RefuseDamaged();
        return text;
    }

    QXmlStreamReader xml;
};

/// _x000D_ is the character of that number.
QString Unescaped(QString text) {
    constexpr qsizetype length = 7;
    for (qsizetype at = text.indexOf(u"_x"); at >= 0; at = text.indexOf(u"_x", at + 1)) {
        if (at + length > text.size() || text[at + length - 1] != u'_') continue;
        bool good = false;
        const ushort code = QStringView(text).mid(at + 2, 4).toUShort(&good, 16);
        if (good) text.replace(at, length, QChar(code));
    }
    return text;
}

/// Of <si> or <is>: its runs joined, without the reading aids.
QString RichText(Part& part, QStringView element) {
    QString text;
    while (!part.Ends(element) && part.Next()) {
        if (part.Starts(u"t")) text += part.Text();
        if (part.Starts(u"rPh")) part.Text();
    }
    return Unescaped(text);
}

/// Where a cell is; false for a text that is no address.
bool ReadAddress(QStringView text, int& row, int& column) {
    int letters = 0;
    qint64 number = 0;
    qsizetype at = 0;
    for (; at < text.size() && text[at] >= u'A' && text[at] <= u'Z' && at < 4; ++at)
        letters = letters * 26 + (text[at].unicode() - u'A' + 1);
    if (at == 0 || at == text.size()) return false;
    for (; at < text.size(); ++at) {
        if (text[at] < u'0' || text[at] > u'9' || number > kMostRows) return false;
        number = number * 10 + (text[at].unicode() - u'0');
    }
    if (number < 1) return false;
    row = static_cast<int>(number) - 1;
    column = letters - 1;
    return true;
}

/// A format of dates or times by its letters outside of quotes and brackets.
Look LookOf(const QString& format) {
    bool day = false, time = false;
    for (qsizetype i = 0; i < format.size() && format[i] != u';'; ++i) {
        const QChar c = format[i].toLower();
        if (c == u'\\' || c == u'_' || c == u'*') {
            ++i;
        } else if (c == u'"' ||
                   (c == u'[' && !QStringView(u"hms").contains(format.mid(i + 1, 1).toLower()))) {
            const qsizetype end = format.indexOf(c == u'"' ? u'"' : u']', i + 1);
            if (end < 0) break;
            i = end;
        } else {
            day = day || c == u'y' || c == u'd';
            time = time || c == u'h' || c == u's';
        }
    }
    if (day) return time ? Look::DateTime : Look::Date;
    return time ? Look::Time : Look::Number;
}

/// The formats that files name by number alone.
Look LookOf(int number) {
    if ((number >= 14 && number <= 17) || (number >= 27 && number <= 31) || number == 36 ||
        (number >= 50 && number <= 58))
        return Look::Date;
    if (number == 22) return Look::DateTime;
    if ((number >= 18 && number <= 21) || (number >= 32 && number <= 35) || (number >= 45 && number <= 47))
        return Look::Time;
    return Look::Number;
}

struct Style {
    Look look = Look::Number;
    int digits = 0;  ///< a number is filled up with zeros to so many
};

std::vector<Style> StylesOf(const QByteArray& bytes) {
    std::vector<Style> styles;
    QHash<int, Style> own;
    Part part(bytes);
    bool cells = false;
    while (part.Next()) {
        if (part.Starts(u"numFmt")) {
            const QString format = part.Attribute(u"formatCode");
            own[part.Attribute(u"numFmtId").toInt()] = {LookOf(format), DigitsOf(format)};
        }
        if (part.Starts(u"cellXfs") || part.Ends(u"cellXfs")) cells = part.xml.isStartElement();
        if (!cells || !part.Starts(u"xf")) continue;
        const int number = part.Attribute(u"numFmtId").toInt();
        styles.push_back(own.value(number, {LookOf(number)}));
        if (styles.size() > kMostCells) RefuseTooMuch();
    }
    return styles;
}

std::vector<QString> StringsOf(const QByteArray& bytes) {
    std::vector<QString> strings;
    Part part(bytes);
    while (part.Next()) {
        if (part.Starts(u"si")) strings.push_back(RichText(part, u"si"));
        if (strings.size() > kMostCells) RefuseTooMuch();
    }
    return strings;
}

struct Book {
    QStringList names, parts;  ///< of the sheets of cells that are not hidden
    QByteArray strings = "xl/sharedStrings.xml";
    QByteArray styles = "xl/styles.xml";
    int hidden = 0;
    bool from1904 = false;
};

QByteArray Needed(const Zip& zip, const QByteArray& path) {
    auto bytes = zip.Entry(path);
    if (!bytes) RefuseDamaged();
    return *bytes;
}

struct Relation {
    QByteArray target;
    QString kind;  ///< the last word of its type
};

/// By their names; `folder` is what their targets are relative to.
QHash<QString, Relation> RelationsOf(const QByteArray& bytes, const QByteArray& folder) {
    QHash<QString, Relation> relations;
    Part part(bytes);
    while (part.Next()) {
        if (!part.Starts(u"Relationship")) continue;
        QByteArray target = part.Attribute(u"Target").toUtf8();
        if (target.startsWith('/'))
            target.remove(0, 1);
        else
            target.prepend(folder);
        relations[part.Attribute(u"Id")] = {target, part.Attribute(u"Type").section(u'/', -1)};
    }
    return relations;
}

Book BookOf(const Zip& zip) {
    QByteArray path = "xl/workbook.xml";
    for (const Relation& relation : RelationsOf(Needed(zip, "_rels/.rels"), {}))
        if (relation.kind == u"officeDocument") path = relation.target;
    const qsizetype name = path.lastIndexOf('/') + 1;
    const QByteArray folder = path.left(name);
    const auto relations = RelationsOf(Needed(zip, folder + "_rels/" + path.mid(name) + ".rels"), folder);
    Book book;
    for (const Relation& relation : relations) {
        if (relation.kind == u"sharedStrings") book.strings = relation.target;
        if (relation.kind == u"styles") book.styles = relation.target;
    }
    Part part(Needed(zip, path));
    while (part.Next()) {
        if (part.Starts(u"workbookPr")) {
            const QString value = part.Attribute(u"date1904");
            book.from1904 = value == u"1" || value == u"true";
        }
        if (!part.Starts(u"sheet")) continue;
        const QString state = part.Attribute(u"state");
        QString id;
        for (const QXmlStreamAttribute& attribute : part.xml.attributes())
            if (attribute.name() == u"id" && !attribute.prefix().isEmpty()) id = attribute.value().toString();
        const Relation sheet = relations.value(id);
        if (sheet.kind != u"worksheet") continue;
        if (!state.isEmpty() && state != u"visible") {
            ++book.hidden;
            continue;
        }
        book.names += part.Attribute(u"name");
        book.parts += QString::fromUtf8(sheet.target);
    }
    if (book.names.isEmpty()) throw RuntimeError(u"工作簿里没有可以读取的工作表！"_s);
    return book;
}

struct Tables {
    std::vector<QString> strings;
    std::vector<Style> styles;
    bool from1904 = false;
};

class Reader {
  public:
    Reader(const Tables& tables, Cells& cells) : tables_(tables), cells_(cells) {}

    void Read(Part& part) {
        while (part.Next()) {
            if (part.Starts(u"row")) BeginRow(part);
            if (part.Starts(u"c")) TakeCell(part);
        }
    }

  private:
    void BeginRow(const Part& part) {
        bool good = false;
        const int number = part.Attribute(u"r").toInt(&good);
        row_ = good && number >= 1 && number <= kMostRows ? number - 1 : row_ + 1;
        column_ = -1;
    }

    void TakeCell(Part& part) {
        int row = row_, column = column_ + 1;
        ReadAddress(part.Attribute(u"r"), row, column);
        row_ = row;
        column_ = column;
        const QString kind = part.Attribute(u"t");
        const QString style = part.Attribute(u"s");
        QString value, text;
        bool formula = false, valued = false;
        while (part.Next() && !part.Ends(u"c")) {
            if (part.Starts(u"f")) formula = true;
            if (part.Starts(u"v")) {
                valued = true;
                value = part.Text();
            }
            if (part.Starts(u"is")) {
                valued = true;
                text = RichText(part, u"is");
            }
        }
        if (valued && !(value.isEmpty() && text.isEmpty()))
            PutValue(kind, value, text, style);
        else if (formula && !(valued && kind == u"str"))  // whose result may be an empty text
            Report(u"公式没有保存结果"_s);
    }

    void PutValue(const QString& kind, const QString& value, const QString& text, const QString& style) {
        if (kind == u"inlineStr") return Put(text);
        if (kind == u"str") return Put(Unescaped(value));
        if (kind == u"s") return PutShared(value);
        if (kind == u"b") return Put(value == u"0" || value == u"false" ? u"FALSE"_s : u"TRUE"_s);
        if (kind == u"d") return PutMoment(value);
        if (kind.isEmpty() || kind == u"n") return PutNumber(value, style);
        Put(value);
        Report(kind == u"e" ? u"错误值"_s : u"不认识的类型 %1"_s.arg(kind.left(20)));
    }

    void PutShared(const QString& value) {
        bool good = false;
        const qsizetype index = value.toLongLong(&good);
        if (!good || index < 0 || index >= static_cast<qsizetype>(tables_.strings.size()))
            return Report(u"文字不在工作簿里"_s);
        Put(tables_.strings[static_cast<std::size_t>(index)]);
    }

    /// 2024-11-05T00:00:00
    void PutMoment(const QString& value) {
        const QString time = value.mid(11, 8);
        Put(time.isEmpty() || time == u"00:00:00" ? value.left(10) : value.left(10) + u' ' + time);
    }

    void PutNumber(const QString& value, const QString& styleIndex) {
        bool good = false;
        const double number = value.toDouble(&good);
        if (!good || !qIsFinite(number)) {
            Put(value);
            return Report(u"不是数字"_s);
        }
        const auto index = static_cast<std::size_t>(styleIndex.toUInt());
        const Style style = index < tables_.styles.size() ? tables_.styles[index] : Style();
        if (style.look != Look::Number) {
            if (const auto date = DateText(number, style.look, tables_.from1904)) return Put(*date);
            Put(NumberText(number));
            return Report(u"不是日期"_s);
        }
        const QString text = NumberText(number);
        Put(Filled(text, style.digits));
        if (IsTooLong(text)) Report(kTooLong);
    }

    void Put(const QString& text) { cells_.Put(row_, column_, text); }
    void Report(QStringView reason) { cells_.Report(row_, column_, reason); }

    const Tables& tables_;
    Cells& cells_;
    int row_ = -1;
    int column_ = -1;
};

}  // namespace

void ReadXlsx(const QByteArray& bytes, int which, Cells& cells) {
    const Zip zip(bytes);
    const Book book = BookOf(zip);
    cells.Names() = book.names;
    cells.Hidden() = book.hidden;
    Tables tables;
    tables.from1904 = book.from1904;
    if (const auto strings = zip.Entry(book.strings)) tables.strings = StringsOf(*strings);
    if (const auto styles = zip.Entry(book.styles)) tables.styles = StylesOf(*styles);
    const bool there = which >= 0 && which < book.parts.size();
    Part part(Needed(zip, book.parts[there ? which : 0].toUtf8()));
    Reader(tables, cells).Read(part);
}

}  // namespace sheet
