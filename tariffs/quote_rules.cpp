#include "tariffs/quote_rules.h"

#include "app/data_access.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace tariffs {

QString DressedPrice(int column, const QString& stored) {
    if (column < FirstPrice || column > LastPlainPrice || stored.isEmpty()) return stored;
    return text::FormatFixed(text::Val(stored), 1);
}

QString NewPrice(int column, double listPrice, double coefficient) {
    return DressedPrice(column, text::GeneralText(Round1(listPrice * coefficient)));
}

QString FloatedPrice(const QString& cell, double coefficient) {
    return text::GeneralText(Round1(text::Val(cell) * coefficient));
}

QString ListPriceSelect() {
    return u"select F1,F2,P101 ,P102,P201,P202,P301,P302,P303,P304,P305,P306,P307,P308,P309,P310,P311,P312,P313,"_s +
           u"P314,P315 from M02 "_s;
}

QStringList QuoteLine(const dao::Recordset& zone, double coefficient) {
    // A tab in a name would split the line at the wrong place.
    QStringList cells{text::Trim(zone.Fields(ZoneColumn).Text()),
                      zone.Fields(NameColumn).Text().replace(u'\t', u' ')};
    for (int column = FirstPrice; column <= LastPrice; ++column)
        cells += NewPrice(column, zone.Fields(column).Number(), coefficient);
    return cells;
}

QString QuoteSelect(const QString& customer) {
    return u"select M031.F1,M02.F2,M031.F2,M031.F3,M031.F4,M031.F5,M031.F6,M031.F7,M031.F8,M031.F9,M031.F10,"_s +
           u"M031.F11,M031.F12,M031.F13,M031.F14,M031.F15,M031.F16,M031.F17,M031.F18,M031.F19,M031.F20 "_s +
           u"FROM M031,M02 WHERE M031.F1=M02.F1 AND M031.F0="_s + Quoted(customer) + u" ORDER BY M031.F1"_s;
}

QString QuoteInsert(const QString& customer, const QStringList& cells) {
    QString statement =
        u"insert into M031 (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,F20) VALUES ("_s;
    statement += Quoted(customer) + u',' + Quoted(text::Trim(cells[ZoneColumn]));
    for (int column = FirstPrice; column <= LastPrice; ++column)
        statement += u',' + text::GeneralText(text::Val(cells[column]));
    return statement + u')';
}

QString PercentOf(double coefficient) {
    return text::GeneralText((coefficient - 1) * 100);
}

}  // namespace tariffs
