// The searchable fields of a waybill.
#include "platform/text/quoted.h"
#include "waybills/waybill_form.h"

using namespace Qt::StringLiterals;
using search::Kind;

QString B01::SearchStatement() {
    return ListColumns() +
           u"FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.F1=B01.F202 "_s;
}

void B01::ShowWaybill(const QString& number) {
    LoadGrid(SearchStatement() + u" where B01.F1="_s + Quoted(number));
    if (TabS->SelectedItem() == CardTab)
        RowToCard();
    else
        TabS->SelectItem(CardTab);
}

void B01::Menu_query() {
    constexpr int Own = SearchField::OwnCaption;
    static const SearchTable table = {
        .base = SearchStatement(),
        .fields = {{0, u"B01.F1"_s},
                   {1, u"B01.F101"_s, Kind::Date},
                   {2, u"B01.F2031"_s},
                   {3, u"B01.F301"_s},
                   {5, u"B01.F501"_s},
                   {7, u"M03.F2"_s},
                   {8, u"B01.F602"_s},
                   {Own, u"B01.F201"_s, Kind::Text, u"始发地"_s},
                   {Own, u"B01.F202"_s, Kind::Text, u"渠道编码"_s},
                   // The caption and the spelling in the list of fields differ.
                   {Own, u"B01.F203"_s, Kind::Text, u"区域区码"_s, u"区域编码"_s},
                   {Own, u"B01.F102"_s, Kind::Text, u"转单号"_s},
                   {Own, u"B01.F601"_s, Kind::Text, u"制单人"_s},
                   {Own, u"B01.F604"_s, Kind::Text, u"审核人"_s}},
    };
    RunQuery(*this, *GD, table, [this](const QString& sql) { LoadGrid(sql); });
    if (TabS->SelectedItem() == CardTab) TabS->SelectItem(ListTab);
}
