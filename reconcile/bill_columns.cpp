#include "reconcile/bill_columns.h"

#include "app/data_access.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reconcile {
namespace {

constexpr int kHeadRows = 30;  // among which the headings are looked for

// A word that is further in front counts more.
const QStringList kNumberWords = {u"转单号"_s, u"转运单号"_s, u"运单号"_s, u"单号"_s,
                                  u"提单号"_s, u"运单编号"_s, u"AWB"_s};
const QStringList kWeightWords = {u"计费重"_s, u"结算重"_s, u"收费重"_s, u"重量"_s, u"实重"_s, u"KG"_s};
// Amounts of something else.
const QStringList kOtherWords = {u"申报"_s, u"保险"_s, u"代收"_s};
const QStringList kCostWords = {u"应付"_s, u"总金额"_s, u"总费用"_s, u"金额"_s,
                                u"运费"_s, u"费用"_s,   u"合计"_s};

bool HasAny(const QString& heading, const QStringList& words) {
    return std::ranges::any_of(
        words, [&](const QString& word) { return heading.contains(word, Qt::CaseInsensitive); });
}

int ColumnWith(const QStringList& headings, const QStringList& words) {
    for (const QString& word : words)
        for (int column = 0; column < headings.size(); ++column)
            if (HasAny(headings[column], {word}) && !HasAny(headings[column], kOtherWords)) return column;
    return -1;
}

QString Plain(const QString& heading) {
    QString plain = heading.simplified();
    return CleanText(plain);
}

/// Where the heading is: at its former place or at another one; -1 where it is not.
int Find(const sheet::Sheet& bill, int firstRow, int column, const QString& heading) {
    if (column < 0) return -1;
    if (HeadingOf(bill, firstRow, column) == heading) return column;
    if (heading.isEmpty()) return column;
    for (int other = 0; other < sheet::kMostColumns; ++other)
        if (HeadingOf(bill, firstRow, other) == heading) return other;
    return -1;
}

}  // namespace

QString HeadingOf(const sheet::Sheet& bill, int firstRow, int column) {
    return Plain(bill.At(firstRow - 1, column));
}

BillColumns Guess(const sheet::Sheet& bill) {
    const int rows = std::min(kHeadRows, static_cast<int>(bill.rows.size()));
    for (int row = 0; row < rows; ++row) {
        const QStringList& headings = bill.rows[static_cast<std::size_t>(row)];
        BillColumns columns{.number = ColumnWith(headings, kNumberWords),
                            .weight = ColumnWith(headings, kWeightWords),
                            .cost = ColumnWith(headings, kCostWords),
                            .firstRow = row + 1};
        if (columns.number < 0 || (columns.weight < 0 && columns.cost < 0)) continue;
        columns.byForwarding = headings[columns.number].contains(u'转');
        return columns;
    }
    return {};
}

BillColumns ColumnsFor(dao::Database& db, const QString& channel, const sheet::Sheet& bill) {
    const BillColumns guessed = Guess(bill);
    auto kept =
        db.OpenRecordset(u"select F2,F3,F4,F5,F6,F7,F8,F9,F10,F11 from M012 where F1="_s + Quoted(channel));
    if (kept.Eof()) return guessed;
    const auto number = [&](int field) { return kept.Fields(field).Text().toInt(); };
    const auto text = [&](int field) { return kept.Fields(field).Text(); };
    BillColumns columns{.byForwarding = number(0) != 0, .firstRow = number(4), .kept = true};
    // The lines of another month may begin elsewhere.
    if (HeadingOf(bill, columns.firstRow, number(1)) != text(7) && guessed.number >= 0)
        columns.firstRow = guessed.firstRow;
    columns.number = Find(bill, columns.firstRow, number(1), text(7));
    columns.weight = Find(bill, columns.firstRow, number(2), text(8));
    columns.cost = Find(bill, columns.firstRow, number(3), text(9));
    columns.weightTolerance = ReadDecimal(text(5)).value_or(0);
    columns.costTolerance = ReadDecimal(text(6)).value_or(0);
    if (columns.number < 0) columns.number = guessed.number;
    if (columns.weight < 0 && number(2) >= 0) columns.weight = guessed.weight;
    if (columns.cost < 0 && number(3) >= 0) columns.cost = guessed.cost;
    return columns;
}

void Keep(dao::Database& db, const QString& channel, const BillColumns& columns, const sheet::Sheet& bill) {
    QStringList values = {Quoted(channel)};
    for (const int value :
         {int(columns.byForwarding), columns.number, columns.weight, columns.cost, columns.firstRow})
        values += QString::number(value);
    for (const Decimal value : {columns.weightTolerance, columns.costTolerance}) values += DecimalText(value);
    for (const int column : {columns.number, columns.weight, columns.cost})
        values += Quoted(column < 0 ? QString() : HeadingOf(bill, columns.firstRow, column));
    db.Execute(u"delete from M012 where F1="_s + Quoted(channel));
    db.Execute(u"insert into M012 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11) VALUES ("_s + values.join(u',') +
               u')');
}

}  // namespace reconcile
