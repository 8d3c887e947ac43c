#include "reports/invoices/invoice_parts.h"

#include "app/session.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace invoices {
namespace {

constexpr int Decimals = 2;
constexpr int DayCharacters = 10;  // of yyyy-MM-dd HH:mm:ss

}  // namespace

void AddCustomers(controls::ComboBox& combo) {
    auto rows = Db->OpenRecordset(u"select F1,F2 from TA2 order by F1"_s);
    for (; !rows.Eof(); rows.MoveNext()) combo.AddItem(rows.Fields(0).Text() + u'.' + rows.Fields(1).Text());
    rows.Close();
}

QString Money(const dao::Field& field) {
    return field.IsNull() ? QString() : text::FormatFixed(field.Number(), Decimals);
}

QString Day(const dao::Field& field) {
    return field.Text().left(DayCharacters);
}

}  // namespace invoices
