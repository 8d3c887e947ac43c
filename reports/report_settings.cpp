#include "reports/report_settings.h"

#include "platform/text/quoted.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

using Kind = Column::Kind;
using Sum = Column::Sum;

/// What is not released or not checked is left out.
QString ManifestStatement(const Scope& scope) {
    return u"SELECT B01.F1,B01.F301,M03.F2,B01.F2031,B01.F401,B01.F404,B01.DF,B01.F103 FROM B01,M03 "
           u"WHERE B01.F603=M03.F1  And B01.F604<>'未出货' AND B01.F604<>'未审核' AND "
           u" datediff('d',"_s +
           Quoted(scope.from) + u",F101 ) = 0  AND f202="_s + Quoted(scope.code);
}

QStringList ManifestHeading(const Scope&, const QString& name) {
    return {u"TOWHO='TO:"_s + name + u"  出货明细 '"_s};
}

}  // namespace

const Settings ManifestReport = {
    .form = u"C01"_s,
    .caption = u"出货明细"_s,
    .choice = {.caption = u"出货渠道"_s,
               .table = u"M01"_s,
               .missing = u"请选择渠道!"_s,
               .invalid = u"您输入的渠道编码无效！"_s},
    .oneDay = true,
    .columns = {{u"运单号"_s},
                {u"D/S"_s, Kind::Letter},
                {u"发件公司"_s},
                {u"目的地"_s},
                {u"件数"_s, Kind::Number, Sum::Plain},
                {u"重量"_s, Kind::Number, Sum::Plain},
                {u"到付"_s, Kind::Number, Sum::Plain},
                {u"备注"_s}},
    .statement = ManifestStatement,
    .position = Position::OnClick,
    .work = {.name = u"PRNTC01"_s, .insert = u"insert into prntc01 (F1) VALUES("_s, .columns = {0}},
    .prints = {{u"menu_P1"_s, u"普通渠道出货"_s, u"prntc011.rpt"_s, ManifestHeading},
               {u"Menu_P2"_s, u"香港联盟出货"_s, u"prntc012.rpt"_s},
               {u"Menu_P3"_s, u"中外运出货"_s, u"prntc013.rpt"_s}},
};

}  // namespace reports
