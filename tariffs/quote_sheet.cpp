#include "tariffs/quote_sheet.h"

#include "app/data_access.h"
#include "app/session.h"
#include "tariffs/quote_rules.h"

using namespace Qt::StringLiterals;
using tariffs::FirstPrice;
using tariffs::FirstQuoteRow;
using tariffs::NameColumn;
using tariffs::ZoneColumn;

namespace {

constexpr int CaptionRow = 1;
constexpr int SheetPrices = 9;

bool IsOnSheet(const QuoteSheet& sheet, const QString& zone) {
    const QString mark = GetStr(u"select F3 from m02 where f1="_s + Quoted(zone));
    return (mark == u"国外") == sheet.abroad;
}

QString SheetInsert(const controls::FlexGrid& quotes, int row) {
    QStringList values{Quoted(quotes.TextMatrix(row, ZoneColumn)),
                       Quoted(quotes.TextMatrix(row, NameColumn))};
    for (int col = FirstPrice; col < FirstPrice + SheetPrices; ++col) values += quotes.TextMatrix(row, col);
    return u"insert into prntm03 (F1,F2,F31,F32,F33,F34,F35,F36,F37,F38,F39) VALUES ("_s + values.join(u',') +
           u')';
}

}  // namespace

const QuoteSheet InternationalSheet = {.layout = u"prnTM03.rpt"_s, .abroad = true};
const QuoteSheet DomesticSheet = {.layout = u"prnTM032.rpt"_s, .abroad = false};

void FillQuoteSheet(const QuoteSheet& sheet, const controls::FlexGrid& quotes) {
    Db->Execute(u"delete from PRNTM03"_s);
    for (int row = FirstQuoteRow; row < quotes.Rows(); ++row)
        if (IsOnSheet(sheet, quotes.TextMatrix(row, ZoneColumn))) Db->Execute(SheetInsert(quotes, row));
}

QStringList QuoteSheetFormulas(const QString& customer, const controls::FlexGrid& quotes,
                               const QStringList& remarks) {
    QStringList formulas{u"TO='TO:"_s + customer + u"'"_s};
    for (int i = 0; i < SheetPrices; ++i)
        formulas += u"P"_s + QString::number(i + 1) + u"='"_s +
                    quotes.TextMatrix(CaptionRow, FirstPrice + i) + u"'"_s;
    for (int i = 0; i < remarks.size(); ++i)
        formulas += u"B"_s + QString::number(i + 1) + u"='"_s + remarks[i] + u"'"_s;
    return formulas;
}
