#include "reports/report_settings.h"

#include "platform/text/dates.h"
#include "platform/text/quoted.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

using Kind = Column::Kind;
using Sum = Column::Sum;

const QString AskForPeriod = u"请选择适当的日期范围及客户之后刷新数据"_s;

/// Both days are inclusive.
QString InPeriod(const Scope& scope, const QString& field) {
    return u" datediff('d',"_s + Quoted(scope.from) + u',' + field + u" ) >= 0  And datediff('d',"_s +
           Quoted(scope.to) + u',' + field + u" ) <= 0 "_s;
}

/// What is not released or not checked is left out.
QString ManifestStatement(const Scope& scope) {
    return u"SELECT B01.F1,B01.F301,M03.F2,B01.F2031,B01.F401,B01.F404,B01.DF,B01.F103 FROM B01,M03 "
           u"WHERE B01.F603=M03.F1  And B01.F604<>'未出货' AND B01.F604<>'未审核' AND "
           u" datediff('d',"_s +
           Quoted(scope.from) + u",F101 ) = 0  AND f202="_s + Quoted(scope.code);
}

const QString OnMonthlyAccount = u" AND F501='月结'"_s;

/// Waybills on monthly account alone, released or not.
QString CustomerStatement(const Scope& scope) {
    return u"select F101 ,F1,F301 ,F2031,F402,F502,F503,F505,F508,F504 from B01 where  "_s +
           InPeriod(scope, u"F101"_s) + u" AND f603="_s + Quoted(scope.code) + OnMonthlyAccount;
}

QString ChannelStatement(const Scope& scope) {
    return u"select F101 as 日期,F1 as 运单号,F301 as [D/S],F2031 as 目的地,F404 as 重量,F507 as 运费 from "
           u"B01 "
           u"where  F604<>'未出货' AND F604<>'未审核' AND "_s +
           InPeriod(scope, u"F101"_s) + u" AND f202="_s + Quoted(scope.code);
}

/// A waybill without a channel has no row.
QString MonthlyStatement(const Scope& scope) {
    return u"select B01.F101,M03.F2,B01.F1,B01.F301,B01.F402,B01.F2031,B01.XJ,B01.YJ,B01.DF,B01.F602,M01.F2,"
           u"B01.F404,B01.F507,B01.F506,B01.F103 from B01,M01,M03 where    "
           u" B01.F202=M01.F1 AND B01.F603=M03.F1 AND "_s +
           InPeriod(scope, u"F101"_s) + u"ORDER BY B01.F603"_s;
}

/// HY, QK and KP are not shown; required by the business.
QString MarginStatement(const Scope& scope) {
    return u"select m03.f2,sum(B01.XJ) AS MXJ,SUM(B01.YJ) AS MYJ,SUM(B01.DF) AS MDF,SUM(B01.F504) AS ZZ,"
           u"sum(B01.F507) AS CB,SUM(B01.F506) AS CF,SUM(B01.F508) AS HY,SUM(B01.F509) AS QK,"
           u"SUM(B01.F510) AS KP,0 AS ML,M03.F8 AS YW  FROM B01,M03 WHERE M03.F1=B01.F603  AND "_s +
           InPeriod(scope, u"B01.F101"_s) + u" group by M03.F2,M03.F8 ORDER BY M03.F8 "_s;
}

QStringList ManifestHeading(const Scope&, const QString& name) {
    return {u"TOWHO='TO:"_s + name + u"  出货明细 '"_s};
}

QStringList StatementHeading(const Scope& scope, const QString& name) {
    return {u"RQ='对帐日期:"_s + scope.from + u"至"_s + scope.to + u"'"_s, u"KH='"_s + name + u"'"_s};
}

QStringList MonthlyHeading(const Scope& scope, const QString&) {
    return {u"RQ='"_s + scope.from + u"至"_s + scope.to + u"月结表'"_s};
}

QStringList MarginHeading(const Scope& scope, const QString&) {
    return {u"RQ='"_s + scope.from + u"至"_s + scope.to + u"毛利表'"_s};
}

/// The day of the month alone is printed. The row of sums has no date and stays out.
bool TakeDayOfMonth(QStringList& cells) {
    const auto date = text::ReadDate(cells[0]);
    if (!date) return false;
    cells[0] = QString::number(date->day());
    return true;
}

WorkTable StatementTable(int money) {
    return {.name = u"PRNTC023"_s,
            .insert = u"insert into prntc023 (F1,F2,F3,F4,F5,F6) VALUES("_s,
            .columns = {0, 1, 2, 3, 4, money}};
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
    .columns = {{u"运单号"_s, Kind::Text, Sum::None, 13},
                {u"D/S"_s, Kind::Letter, Sum::None, 5},
                {u"发件公司"_s, Kind::Text, Sum::None, 16},
                {u"目的地"_s, Kind::Text, Sum::None, 12},
                {u"件数"_s, Kind::Number, Sum::Plain, 7},
                {u"重量"_s, Kind::Number, Sum::Plain, 8},
                {u"到付"_s, Kind::Number, Sum::Plain},
                {u"备注"_s, Kind::Text, Sum::None, 22}},
    .statement = ManifestStatement,
    .position = Position::OnClick,
    .work = {.name = u"PRNTC01"_s, .insert = u"insert into prntc01 (F1) VALUES("_s, .columns = {0}},
    .prints = {{u"menu_P1"_s, u"普通渠道出货"_s, u"prntc011.rpt"_s, ManifestHeading},
               {u"Menu_P2"_s, u"香港联盟出货"_s, u"prntc012.rpt"_s},
               {u"Menu_P3"_s, u"中外运出货"_s, u"prntc013.rpt"_s}},
};

const Settings CustomerStatementReport = {
    .form = u"C02"_s,
    .caption = u"对帐明细表"_s,
    .choice = {.caption = u"客户"_s,
               .table = u"M03"_s,
               .missing = u"请先择客户!"_s,
               .invalid = u"您输入的客户编码无效！"_s},
    .columns = {{u"日期"_s},
                {u"运单号"_s, Kind::Text, Sum::None, 13},
                {u"D/S"_s, Kind::Letter, Sum::None, 5},
                {u"目的地"_s, Kind::Text, Sum::None, 13},
                {u"重量"_s, Kind::Number, Sum::Plain, 8},
                {u"基本费用"_s, Kind::Number},
                {u"附加费用"_s, Kind::Number},
                {u"燃油费率"_s, Kind::Number},
                {u"其它费用"_s, Kind::Number},
                {u"运费"_s, Kind::Number, Sum::Plain}},
    .statement = CustomerStatement,
    .position = Position::Always,
    .emptyStatus = AskForPeriod,
    .work = StatementTable(9),
    .prints = {{u"Menu_P"_s, u"&P.打印报表"_s, u"prntc023.rpt"_s, StatementHeading}},
};

const Settings ChannelStatementReport = {
    .form = u"C03"_s,
    .caption = u"渠道对帐明细"_s,
    .choice = {.caption = u"渠道"_s,
               .table = u"M01"_s,
               .missing = u"请选择渠道!"_s,
               .invalid = u"您输入的渠道编码无效！"_s},
    .columns = {{u"日期"_s},
                {u"运单号"_s, Kind::Text, Sum::None, 14},
                {u"D/S"_s, Kind::Letter, Sum::None, 5},
                {u"目的地"_s, Kind::Text, Sum::None, 16},
                {u"重量"_s, Kind::Number, Sum::Plain},
                {u"运费"_s, Kind::Number, Sum::Plain}},
    .statement = ChannelStatement,
    .position = Position::Always,
    .emptyStatus = AskForPeriod,
    .work = StatementTable(5),
    .prints = {{u"Menu_P"_s, u"&P.打印报表"_s, u"prntc023.rpt"_s, StatementHeading}},
};

const Settings MonthlyReport = {
    .form = u"C04"_s,
    .caption = u"月结表"_s,
    .columns = {{u"日期"_s},
                {u"单位"_s, Kind::Text, Sum::None, 12},
                {u"运单号"_s, Kind::Text, Sum::None, 13},
                {u"D/S"_s, Kind::Letter, Sum::None, 5},
                {u"收重"_s, Kind::Number, Sum::Plain, 8},
                {u"目的地"_s, Kind::Text, Sum::None, 11},
                {u"现金"_s, Kind::Number, Sum::Plain},
                {u"月结"_s, Kind::Number, Sum::Plain},
                {u"到付"_s, Kind::Number, Sum::Plain},
                {u"收件"_s, Kind::Text, Sum::None, 8},
                {u"出司"_s},
                {u"出重"_s, Kind::Number, Sum::Plain, 8},
                {u"出费"_s, Kind::Number, Sum::Plain},
                {u"车费"_s, Kind::Number, Sum::Plain, 7},
                {u"备注"_s, Kind::Text, Sum::None, 15}},
    .statement = MonthlyStatement,
    .position = Position::Never,
    .work = {.name = u"PRNTC04"_s,
             .insert = u"insert into prntc04 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15) VALUES("_s,
             .columns = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14},
             .take = TakeDayOfMonth},
    .prints = {{u"Menu_P"_s, u"&P.打印报表"_s, u"prntc04.rpt"_s, MonthlyHeading}},
};

// The columns without a header are blank in every row and yet summed up; required by the business.
const Settings MarginReport = {
    .form = u"C06"_s,
    .caption = u"毛利表"_s,
    .columns = {{u"客户"_s, Kind::Text, Sum::None, 16},
                {u"现金"_s, Kind::Number, Sum::Plain},
                {u"月结"_s, Kind::Number, Sum::Plain},
                {u"到付"_s, Kind::Number, Sum::Plain},
                {u"总量"_s, Kind::Number, Sum::Plain},
                {u"出货"_s, Kind::Number, Sum::Plain},
                {u"车费"_s, Kind::Number, Sum::Plain},
                {u""_s, Kind::Blank, Sum::Plain, 3},
                {u""_s, Kind::Blank, Sum::Plain, 3},
                {u""_s, Kind::Blank, Sum::Plain, 3},
                {u"毛利"_s, Kind::Margin, Sum::TwoDecimals},
                {u"业务员"_s}},
    .statement = MarginStatement,
    .position = Position::Never,
    .work = {.name = u"PRNTC04"_s,
             .insert = u"insert into prntc04 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12) VALUES("_s,
             .columns = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    .prints = {{u"Menu_P"_s, u"&P.打印报表"_s, u"prntc06.rpt"_s, MarginHeading}},
};

QString CustomersWithStatement(const Scope& scope) {
    return u"select F603,(select F2 from M03 where M03.F1=B01.F603) as KH,count(*) as PS from B01 where "_s +
           InPeriod(scope, u"F101"_s) + OnMonthlyAccount + u" AND F603<>'' group by F603 order by F603"_s;
}

}  // namespace reports
