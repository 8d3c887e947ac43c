#include "waybills/release.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/text/numbers.h"
#include "waybills/waybill_fields.h"

using namespace Qt::StringLiterals;

namespace waybills {
namespace {

/// No save stores a number with an apostrophe: its own statement would break.
bool MayBeStored(const QString& number) {
    return !number.isEmpty() && !number.contains(u'\'');
}

}  // namespace

QString Release(const QString& number) {
    const QString mark = GetStr(u"select F604 from B01 WHERE F1="_s + Quoted(number));
    if (mark != NotShipped && mark != NotChecked) return u"该单已经出货!不能再次进行出货操作"_s;
    Db->Execute(u"update B01 set F604="_s + Quoted(OperatorName) + u" where F1="_s + Quoted(number));
    return {};
}

std::optional<Brief> FindBrief(dao::Database& db, const QString& number) {
    if (!MayBeStored(number)) return std::nullopt;
    auto row = db.ReadEngine(
        u"select B01.F1,B01.F2061,B01.F202,M01.F2,B01.F402,B01.F604 from B01 left join M01 on "
        u"M01.F1=B01.F202 "
        u"where B01.F1="_s +
        Quoted(number) + u" order by B01.rowid limit 1"_s);
    if (row.Eof()) return std::nullopt;
    return Brief{.number = text::Trim(row.Fields(0).Text()),
                 .consignee = row.Fields(1).Text(),
                 .channelCode = row.Fields(2).Text(),
                 .channelName = row.Fields(3).Text(),
                 .weight = row.Fields(4).Text(),
                 .releaseMark = row.Fields(5).Text()};
}

QString StoredNumber(dao::Database& db, const QString& number) {
    if (!MayBeStored(number)) return {};
    auto row = db.ReadEngine(u"select F1 from B01 where F1="_s + Quoted(number) + u" limit 1"_s);
    return row.Eof() ? QString() : row.Fields(0).Text();
}

}  // namespace waybills
