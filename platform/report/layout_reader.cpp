#include "platform/errors.h"
#include "platform/report/layout.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QXmlStreamReader>

#include <cmath>

using namespace Qt::StringLiterals;

namespace report {
namespace {

constexpr double kLargest = 2000;     // millimetres
constexpr double kLargestSize = 200;  // points
constexpr double kTextSize = 9;
constexpr qint64 kLargestFile = 4'000'000;  // bytes, of a layout and of a picture

struct Paper {
    QStringView name;
    PaperSize size;
};
constexpr Paper kPapers[] = {{u"A3", {297, 420}},
                             {u"A4", {210, 297}},
                             {u"A5", {148, 210}},
                             {u"B5", {182, 257}},
                             {u"Letter", {215.9, 279.4}}};

struct NamedInk {
    QStringView name;
    Ink ink;
};
constexpr NamedInk kInks[] = {
    {u"black", look::kBlack}, {u"soft", look::kSoft},         {u"line", look::kLine},
    {u"fill", look::kFill},   {u"softfill", look::kSoftFill}, {u"accent", look::kAccent},
    {u"white", 0xFFFFFF}};

class LayoutReader {
  public:
    LayoutReader(const QByteArray& bytes, const QString& path)
        : xml_(bytes), folder_(QFileInfo(path).path()), layout_(std::make_shared<Layout>()) {
        layout_->file = QFileInfo(path).fileName();
    }

    std::shared_ptr<Layout> Read();

  private:
    using Handler = std::function<void()>;

    Place Here() const { return {layout_->file, xml_.lineNumber()}; }
    [[noreturn]] void Refuse(const QString& reason) const { Fail(Here(), reason); }
    void CheckXml() const;

    /// Begins an element: its attributes may be these and no others.
    void Begin(std::initializer_list<QStringView> allowed);
    bool Has(QStringView name) const { return attributes_.hasAttribute(name.toString()); }
    QString Text(QStringView name, const QString& otherwise = {}) const;
    double Number(QStringView name, double otherwise, double least, double most) const;
    double Length(QStringView name, double otherwise = 0) const {
        return Number(name, otherwise, 0, kLargest);
    }
    double Size(double otherwise) const { return Number(u"size", otherwise, 1, kLargestSize); }
    bool YesNo(QStringView name) const;
    Ink InkOf(QStringView name, Ink otherwise) const;
    Align AlignOf() const;
    Template TemplateOf(QStringView name) const { return ReadTemplate(Text(name), Here()); }
    Template ExpressionOf(QStringView name) const { return ReadExpression(Text(name), Here()); }
    /// The text inside the element, the blanks and line breaks at its ends dropped.
    QString Inside();
    /// Reads the children, each by its handler.
    void Children(const std::map<QString, Handler>& handlers);

    void ReadReport();
    void ReadMargins();
    void ReadData();
    void ReadLookup();
    void ReadGroup();
    void ReadTable();
    void ReadColumn();
    void ReadSection(Section& section);
    void ReadBand(Section& section);
    Element BeginElement(Element::Kind kind);
    void ReadText(Band& band, Element::Kind kind);
    void ReadLine(Band& band);
    void ReadBox(Band& band);
    void ReadPicture(Band& band);
    void FinishTable(const Place& place);
    void Check();

    QXmlStreamReader xml_;
    QString folder_;
    std::shared_ptr<Layout> layout_;
    QXmlStreamAttributes attributes_;
};

/// The reader's own words in Chinese.
QString XmlReason(const QXmlStreamReader& xml) {
    switch (xml.error()) {
        case QXmlStreamReader::PrematureEndOfDocumentError:
            return u"文件不完整"_s;
        case QXmlStreamReader::UnexpectedElementError:
        case QXmlStreamReader::NotWellFormedError:
            return u"不是正确的 XML（%1）"_s.arg(
                xml.errorString().trimmed().chopped(xml.errorString().trimmed().endsWith(u'.') ? 1 : 0));
        default:
            return u"无法读取（%1）"_s.arg(xml.errorString());
    }
}

void LayoutReader::CheckXml() const {
    if (xml_.hasError()) Refuse(XmlReason(xml_));
}

void LayoutReader::Begin(std::initializer_list<QStringView> allowed) {
    attributes_ = xml_.attributes();
    for (const auto& attribute : attributes_) {
        if (!attribute.namespaceUri().isEmpty()) continue;  // where an editor finds the schema
        if (std::ranges::find(allowed, attribute.name()) == allowed.end())
            Refuse(u"“%1”没有属性“%2”"_s.arg(xml_.name(), attribute.name()));
    }
}

QString LayoutReader::Text(QStringView name, const QString& otherwise) const {
    return Has(name) ? attributes_.value(name.toString()).toString() : otherwise;
}

double LayoutReader::Number(QStringView name, double otherwise, double least, double most) const {
    if (!Has(name)) return otherwise;
    bool good = false;
    const QString text = Text(name).trimmed();
    const double number = text.toDouble(&good);
    if (!good || !std::isfinite(number)) Refuse(u"属性“%1”的值“%2”不是数字"_s.arg(name, text));
    if (number < least || number > most)
        Refuse(u"属性“%1”的值 %2 应在 %3 到 %4 之间"_s.arg(name, text).arg(least).arg(most));
    return number;
}

bool LayoutReader::YesNo(QStringView name) const {
    const QString text = Text(name, u"no"_s);
    if (text != u"yes" && text != u"no") Refuse(u"属性“%1”的值应为 yes 或 no"_s.arg(name));
    return text == u"yes";
}

Ink LayoutReader::InkOf(QStringView name, Ink otherwise) const {
    if (!Has(name)) return otherwise;
    const QString text = Text(name);
    for (const NamedInk& known : kInks)
        if (text == known.name) return known.ink;
    bool good = false;
    const Ink ink = QStringView(text).mid(1).toUInt(&good, 16);
    if (!good || text.size() != 7 || text[0] != u'#') Refuse(u"属性“%1”的值“%2”不是颜色"_s.arg(name, text));
    return ink;
}

Align LayoutReader::AlignOf() const {
    const QString text = Text(u"align", u"left"_s);
    if (text == u"left") return Align::Left;
    if (text == u"center") return Align::Center;
    if (text == u"right") return Align::Right;
    Refuse(u"属性“align”的值应为 left、center 或 right"_s);
}

QString LayoutReader::Inside() {
    const QString text = xml_.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
    CheckXml();
    return text.trimmed();
}

void LayoutReader::Children(const std::map<QString, Handler>& handlers) {
    const QString parent = xml_.name().toString();
    while (!xml_.atEnd()) {
        const auto token = xml_.readNext();
        CheckXml();
        if (token == QXmlStreamReader::EndElement) return;
        if (token == QXmlStreamReader::Characters && !xml_.isWhitespace())
            Refuse(u"“%1”中不能直接写文字"_s.arg(parent));
        if (token != QXmlStreamReader::StartElement) continue;
        const auto handler = handlers.find(xml_.name().toString());
        if (handler == handlers.end()) Refuse(u"“%1”中不能有“%2”"_s.arg(parent, xml_.name()));
        handler->second();
    }
    CheckXml();
}

// ------------------------------------------------------------------------------------------------- the
// report

std::shared_ptr<Layout> LayoutReader::Read() {
    if (!xml_.readNextStartElement()) {
        CheckXml();
        Refuse(u"文件中没有内容"_s);
    }
    if (xml_.name() != u"report") Refuse(u"最外层应为“report”"_s);
    ReadReport();
    while (!xml_.atEnd()) xml_.readNext();
    CheckXml();
    Check();
    return layout_;
}

void LayoutReader::ReadReport() {
    Begin({u"title", u"paper", u"direction", u"margins", u"font"});
    Layout& layout = *layout_;
    layout.title = TemplateOf(u"title");
    layout.paper = Text(u"paper", u"A4"_s);
    const auto* paper = std::ranges::find(kPapers, layout.paper, &Paper::name);
    if (paper == std::end(kPapers)) Refuse(u"没有纸张“%1”"_s.arg(layout.paper));
    const QString direction = Text(u"direction", u"portrait"_s);
    if (direction != u"portrait" && direction != u"landscape")
        Refuse(u"属性“direction”的值应为 portrait 或 landscape"_s);
    layout.landscape = direction == u"landscape";
    layout.size = paper->size;
    if (layout.landscape) std::swap(layout.size.width, layout.size.height);
    ReadMargins();
    layout.family = Text(u"font", u"Noto Sans CJK SC"_s);
    layout.fonts = &Fonts::Of(layout.family);
    Children({{u"formula"_s,
               [&] {
                   Begin({u"name"});
                   if (Text(u"name").isEmpty()) Refuse(u"“formula”没有属性“name”"_s);
                   layout.formulas += Text(u"name").toLower();
                   Children({});
               }},
              {u"data"_s, [&] { ReadData(); }},
              {u"lookup"_s, [&] { ReadLookup(); }},
              {u"head"_s, [&] { ReadSection(layout.head); }},
              {u"running"_s, [&] { ReadSection(layout.running); }},
              {u"detail"_s, [&] { ReadSection(layout.detail); }},
              {u"summary"_s, [&] { ReadSection(layout.summary); }},
              {u"foot"_s, [&] { ReadSection(layout.foot); }},
              {u"group"_s, [&] { ReadGroup(); }},
              {u"table"_s, [&] { ReadTable(); }}});
}

void LayoutReader::ReadMargins() {
    const QStringList parts = Text(u"margins", u"16 14 16 12"_s).simplified().split(u' ');
    std::vector<double> margins;
    for (const QString& part : parts) {
        bool good = false;
        margins.push_back(part.toDouble(&good));
        if (!good || !(margins.back() >= 0 && margins.back() <= kLargest)) margins.clear();
    }
    if (margins.size() != 4 || parts.size() != 4) Refuse(u"属性“margins”应有四个数字：左 上 右 下"_s);
    layout_->left = margins[0];
    layout_->top = margins[1];
    layout_->right = margins[2];
    layout_->bottom = margins[3];
    if (layout_->AreaWidth() < 20 || layout_->AreaHeight() < 40) Refuse(u"页边距太大"_s);
}

void LayoutReader::ReadData() {
    Begin({u"skip", u"total"});
    if (!layout_->statement.isEmpty()) Refuse(u"只能有一个“data”"_s);
    layout_->statementPlace = Here();
    layout_->skip = ExpressionOf(u"skip");
    layout_->totalRow = ExpressionOf(u"total");
    layout_->statement = Inside().simplified();
    if (layout_->statement.isEmpty()) Fail(layout_->statementPlace, u"“data”中没有语句"_s);
}

void LayoutReader::ReadLookup() {
    Begin({u"name"});
    Layout::Lookup lookup{.name = Text(u"name"), .statement = {}, .place = Here()};
    if (lookup.name.isEmpty()) Refuse(u"“lookup”没有属性“name”"_s);
    if (lookup.name.compare(u"total", Qt::CaseInsensitive) == 0) Refuse(u"“lookup”不能用名称“total”"_s);
    lookup.statement = Inside().simplified();
    if (lookup.statement.isEmpty()) Fail(lookup.place, u"“lookup”中没有语句"_s);
    layout_->lookups.push_back(lookup);
}

void LayoutReader::ReadGroup() {
    Begin({u"by", u"head", u"note", u"again", u"newpage"});
    Group group{.by = ExpressionOf(u"by"),
                .head = TemplateOf(u"head"),
                .note = TemplateOf(u"note"),
                .again = Text(u"again"),
                .newPage = YesNo(u"newpage")};
    if (group.by.IsEmpty()) Refuse(u"“group”没有属性“by”"_s);
    layout_->groups.push_back(std::move(group));
    Children({});
}

void LayoutReader::ReadTable() {
    Begin({u"size", u"row", u"separate", u"carriedover", u"broughtforward"});
    if (layout_->table) Refuse(u"只能有一个“table”"_s);
    const Place place = Here();
    Table& table = layout_->table.emplace();
    table.size = Size(kTextSize);
    table.row = Number(u"row", 6.4, 1, 100);
    table.separate = ExpressionOf(u"separate");
    table.carriedOver = Text(u"carriedover");
    table.broughtForward = Text(u"broughtforward");
    Children({{u"column"_s, [&] { ReadColumn(); }}});
    FinishTable(place);
}

void LayoutReader::ReadColumn() {
    Begin({u"head", u"group", u"width", u"align", u"ink", u"bold", u"once", u"rule", u"value", u"carry",
           u"subtotal", u"total"});
    Column column;
    column.width = Number(u"width", 0, 1, kLargest);
    if (column.width == 0) Refuse(u"“column”没有属性“width”"_s);
    column.align = AlignOf();
    column.soft = InkOf(u"ink", look::kBlack) == look::kSoft;
    column.bold = YesNo(u"bold");
    column.once = YesNo(u"once");
    column.rule = YesNo(u"rule");
    column.group = Text(u"group");
    column.head = TemplateOf(u"head");
    column.value = TemplateOf(u"value");
    column.carry = TemplateOf(u"carry");
    column.subtotal = TemplateOf(u"subtotal");
    column.total = TemplateOf(u"total");
    layout_->table->columns.push_back(std::move(column));
    Children({});
}

void LayoutReader::FinishTable(const Place& place) {
    std::vector<Column>& columns = layout_->table->columns;
    if (columns.empty()) Fail(place, u"“table”中没有“column”"_s);
    double width = 0;
    for (size_t i = 0; i < columns.size(); ++i) {
        Column& column = columns[i];
        column.left = look::kPad;
        const bool behindNumber =
            i > 0 && columns[i - 1].align == Align::Right && column.align == Align::Left;
        if (behindNumber) column.left += look::kAfterNumber * (columns[i - 1].soft ? 0.5 : 1);
        if (column.TextWidth() < 1) Fail(place, u"第 %1 栏太窄"_s.arg(i + 1));
        width += column.width;
    }
    if (width > layout_->AreaWidth() + 0.01)
        Fail(place, u"各栏共宽 %1 毫米，超出版心的 %2 毫米"_s.arg(width).arg(layout_->AreaWidth()));
}

// --------------------------------------------------------------------------------------------------- the
// bands

void LayoutReader::ReadSection(Section& section) {
    Begin({});
    if (!section.empty()) Refuse(u"只能有一个“%1”"_s.arg(xml_.name()));
    Children({{u"band"_s, [&] { ReadBand(section); }}});
}

void LayoutReader::ReadBand(Section& section) {
    Begin({u"height", u"when", u"numbered"});
    Band band;
    band.height = Length(u"height");
    band.when = ExpressionOf(u"when");
    band.numbered = YesNo(u"numbered");
    Children({{u"text"_s, [&] { ReadText(band, Element::Kind::Text); }},
              {u"sign"_s, [&] { ReadText(band, Element::Kind::Sign); }},
              {u"line"_s, [&] { ReadLine(band); }},
              {u"box"_s, [&] { ReadBox(band); }},
              {u"picture"_s, [&] { ReadPicture(band); }}});
    if (band.height > layout_->AreaHeight()) Refuse(u"“band”比版心还高"_s);
    section.push_back(std::move(band));
}

Element LayoutReader::BeginElement(Element::Kind kind) {
    Element element{.kind = kind, .place = Here()};
    element.when = ExpressionOf(u"when");
    element.x = Length(u"x");
    element.y = Length(u"y");
    element.width = Length(u"width");
    element.height = Length(u"height");
    element.ink = InkOf(u"ink", look::kBlack);
    element.weight = Number(u"weight", look::kHair, 0, 20);
    return element;
}

void LayoutReader::ReadText(Band& band, Element::Kind kind) {
    Begin({u"x", u"y", u"width", u"size", u"bold", u"align", u"ink", u"pitch", u"follow", u"when"});
    Element element = BeginElement(kind);
    element.follows = YesNo(u"follow");
    element.size = Size(kTextSize);
    element.pitch = Number(u"pitch", look::kLinePitch, 0.8, 10);
    element.bold = YesNo(u"bold");
    element.align = AlignOf();
    if (kind == Element::Kind::Sign && element.width == 0) Refuse(u"“sign”没有属性“width”"_s);
    element.text = ReadTemplate(Inside(), element.place);
    band.elements.push_back(std::move(element));
}

void LayoutReader::ReadLine(Band& band) {
    Begin({u"x1", u"y1", u"x2", u"y2", u"weight", u"ink", u"dashed", u"when"});
    Element element = BeginElement(Element::Kind::Line);
    element.x = Length(u"x1");
    element.y = Length(u"y1");
    element.x2 = Length(u"x2", layout_->AreaWidth());
    element.y2 = Length(u"y2", element.y);
    element.dashed = YesNo(u"dashed");
    if (element.x != element.x2 && element.y != element.y2) Refuse(u"“line”只能横或竖"_s);
    band.elements.push_back(std::move(element));
    Children({});
}

void LayoutReader::ReadBox(Band& band) {
    Begin({u"x", u"y", u"width", u"height", u"weight", u"ink", u"fill", u"when"});
    Element element = BeginElement(Element::Kind::Box);
    if (Has(u"fill")) element.fill = InkOf(u"fill", 0);
    element.weight = Number(u"weight", 0, 0, 20);
    if (element.width == 0 || element.height == 0) Refuse(u"“box”没有属性“width”或“height”"_s);
    band.elements.push_back(std::move(element));
    Children({});
}

void LayoutReader::ReadPicture(Band& band) {
    Begin({u"x", u"y", u"width", u"height", u"file", u"when"});
    Element element = BeginElement(Element::Kind::Picture);
    if (element.width == 0 || element.height == 0) Refuse(u"“picture”没有属性“width”或“height”"_s);
    QFile file(QDir(folder_).filePath(Text(u"file")));
    if (Text(u"file").isEmpty() || !file.open(QIODevice::ReadOnly))
        Refuse(u"图片“%1”无法打开"_s.arg(Text(u"file")));
    const QImage read = QImage::fromData(file.read(kLargestFile));
    if (read.isNull()) Refuse(u"图片“%1”不是图片文件"_s.arg(Text(u"file")));
    // On paper: what is transparent is white.
    element.image = QImage(read.size(), QImage::Format_RGB888);
    element.image.fill(0xFFFFFFFF);
    QPainter(&element.image).drawImage(0, 0, read);
    band.elements.push_back(std::move(element));
    Children({});
}

/// What can be said only of the whole.
void LayoutReader::Check() {
    Layout& layout = *layout_;
    if (layout.table && !layout.detail.empty()) Refuse(u"“table”和“detail”只能有一个"_s);
    if (layout.statement.isEmpty()) Refuse(u"没有“data”"_s);
    VisitTemplates(layout, [&](Template& text) {
        for (Template::Piece& piece : text.pieces) {
            if (piece.expression.empty()) continue;
            Visit(piece.expression[0], [&](Expression& part) {
                if (part.kind == Expression::Kind::Formula && !layout.formulas.contains(part.name.toLower()))
                    Fail(text.place, u"没有公式“%1”"_s.arg(part.name));
                static const QStringList words = {u"row"_s,  u"page"_s,  u"pages"_s, u"date"_s,
                                                  u"line"_s, u"carry"_s, u"again"_s};
                if (part.kind == Expression::Kind::Word && !words.contains(part.name))
                    Fail(text.place, u"没有“#%1”"_s.arg(part.name));
            });
        }
    });
}

}  // namespace

double Column::TextWidth() const {
    return width - left - look::kPad;
}

bool Table::HasCarry() const {
    return !carriedOver.isEmpty() || !broughtForward.isEmpty();
}

namespace {

bool Any(const std::vector<Column>& columns, Template Column::*which) {
    return std::ranges::any_of(columns, [&](const Column& column) { return !(column.*which).IsEmpty(); });
}

}  // namespace

bool Table::HasSubtotal() const {
    return Any(columns, &Column::subtotal);
}

bool Table::HasTotal() const {
    return Any(columns, &Column::total);
}

bool Table::HasGroupHeads() const {
    return std::ranges::any_of(columns, [](const Column& column) { return !column.group.isEmpty(); });
}

void VisitTemplates(Layout& layout, const std::function<void(Template&)>& visitor) {
    visitor(layout.title);
    visitor(layout.skip);
    visitor(layout.totalRow);
    for (Group& group : layout.groups)
        for (Template* text : {&group.by, &group.head, &group.note}) visitor(*text);
    if (layout.table) {
        visitor(layout.table->separate);
        for (Column& column : layout.table->columns)
            for (Template* text :
                 {&column.head, &column.value, &column.carry, &column.subtotal, &column.total})
                visitor(*text);
    }
    for (Section* section : {&layout.head, &layout.running, &layout.detail, &layout.summary, &layout.foot})
        for (Band& band : *section) {
            visitor(band.when);
            for (Element& element : band.elements) {
                visitor(element.when);
                visitor(element.text);
            }
        }
}

std::shared_ptr<Layout> ReadLayout(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!QFileInfo::exists(path)) throw RuntimeError(u"报表文件“%1”不存在！"_s.arg(path));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(u"报表文件“%1”无法打开：%2！"_s.arg(path, file.errorString()));
    const QByteArray bytes = file.read(kLargestFile + 1);
    if (bytes.size() > kLargestFile) throw RuntimeError(u"报表文件“%1”太大，不是报表文件！"_s.arg(name));
    return LayoutReader(bytes, path).Read();
}

}  // namespace report
