#include "platform/report/data.h"

#include "platform/errors.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace report {
namespace {

/// One row by the names of its fields.
struct NamedRow {
    QStringList names;
    QStringList values;  ///< empty where there is no row
};

using Lookups = std::map<QString, NamedRow>;  // by names in lower case

qsizetype IndexOf(const QStringList& names, const QString& name) {
    for (qsizetype i = 0; i < names.size(); ++i)
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

class Row : public Answers {
  public:
    explicit Row(const QStringList& cells) : cells_(cells) {}
    Value Field(int column) const override { return TextValue(cells_.value(column)); }
    Value Word(const QString&) const override { return {}; }
    Value Aggregate(const Expression&) const override { return {}; }

  private:
    const QStringList& cells_;
};

class Binder {
  public:
    Binder(const Layout& layout, const QStringList& fields, const Lookups& lookups, const Formulas& formulas)
        : layout_(layout), fields_(fields), lookups_(lookups), formulas_(formulas) {}

    void Bind(Template& text) {
        for (Template::Piece& piece : text.pieces)
            if (!piece.expression.empty())
                Visit(piece.expression[0], [&](Expression& part) { Bind(part, text.place); });
    }
    int Aggregates() const { return aggregates_; }

  private:
    void Bind(Expression& part, const Place& place);

    const Layout& layout_;
    const QStringList& fields_;
    const Lookups& lookups_;
    const Formulas& formulas_;
    int aggregates_ = 0;
};

void Binder::Bind(Expression& part, const Place& place) {
    switch (part.kind) {
        case Expression::Kind::Field:
            part.index = static_cast<int>(IndexOf(fields_, part.name));
            if (part.index < 0) Fail(place, u"语句的结果中没有字段“%1”"_s.arg(part.name));
            break;
        case Expression::Kind::Formula: {
            const auto found = formulas_.find(part.name.toLower());
            part.constant = TextValue(found == formulas_.end() ? QString() : found->second);
            break;
        }
        case Expression::Kind::Lookup: {
            const auto found = lookups_.find(part.name.toLower());
            if (found == lookups_.end()) Fail(place, u"没有“lookup”“%1”"_s.arg(part.name));
            const qsizetype at = IndexOf(found->second.names, part.field);
            if (at < 0) Fail(place, u"“%1”的结果中没有字段“%2”"_s.arg(part.name, part.field));
            part.constant = TextValue(found->second.values.value(at));
            break;
        }
        case Expression::Kind::Aggregate:
            part.index = aggregates_++;
            break;
        default:
            break;
    }
}

/// Opens a statement of the layout; the engine's own words get the place.
dao::Recordset Open(dao::Database& db, const QString& statement, const Place& place) {
    try {
        return db.OpenRecordset(statement);
    } catch (const DatabaseError& error) {
        throw DatabaseError(u"报表文件“%1”第 %2 行：%3"_s.arg(place.file).arg(place.line).arg(error.Text()),
                            error.Statement(), error.GroupLost());
    }
}

NamedRow ReadLookup(dao::Database& db, const Layout::Lookup& lookup) {
    auto rows = Open(db, lookup.statement, lookup.place);
    NamedRow read;
    for (int i = 0; i < rows.FieldCount(); ++i) {
        read.names += rows.FieldName(i);
        if (!rows.Eof()) read.values += rows.Fields(i).Text();
    }
    return read;
}

}  // namespace

std::pair<QString, QString> ReadFormula(const QString& text) {
    const qsizetype sign = text.indexOf(u'=');
    const QString name = text.left(sign).trimmed().toLower();
    const qsizetype first = text.indexOf(u'\'', sign), last = text.lastIndexOf(u'\'');
    if (sign < 0) return {name, QString()};
    if (first < 0) return {name, text.mid(sign + 1)};
    return {name, text.mid(first + 1, last > first ? last - first - 1 : -1)};
}

Data ReadData(Layout& layout, dao::Database& db, const Formulas& formulas) {
    Lookups lookups;
    for (const auto& lookup : layout.lookups) lookups[lookup.name.toLower()] = ReadLookup(db, lookup);
    auto rows = Open(db, layout.statement, layout.statementPlace);
    Data data{.columns = rows.FieldCount()};
    QStringList names;
    for (int i = 0; i < data.columns; ++i) names += rows.FieldName(i);
    NamedRow& total = lookups[u"total"_s];
    total.names = names;

    Binder first(layout, names, lookups, formulas);
    first.Bind(layout.skip);
    first.Bind(layout.totalRow);
    const bool picks = !layout.skip.IsEmpty() || !layout.totalRow.IsEmpty();
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList cells;
        cells.reserve(data.columns);
        for (int i = 0; i < data.columns; ++i) cells += rows.Fields(i).Text();
        if (picks) {
            const Row row(cells);
            if (IsTrue(ValueOf(layout.skip, row))) continue;
            if (IsTrue(ValueOf(layout.totalRow, row))) {
                total.values = cells;
                continue;
            }
        }
        for (QString& cell : cells) data.cells.push_back(std::move(cell));
        ++data.rows;
    }
    Binder all(layout, names, lookups, formulas);
    VisitTemplates(layout, [&](Template& text) { all.Bind(text); });
    layout.aggregates = all.Aggregates();
    return data;
}

}  // namespace report
