#include "demo/tariffs.h"

#include "app/main_window.h"
#include "demo/day_entries.h"
#include "demo/sample_masters.h"
#include "platform/controls/flex_grid.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QString kTitle = u"提示"_s;
/// The column of the quote grid for the heavy segment of 46 to 70 kg.
constexpr int kGapColumn = 7;
constexpr int kGapRow = 2;  ///< the first quote

/// Moves by Tab, since Enter would press a button on the way.
void Fill(Operator& op, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        op.TabTo(entry.control);
        op.TypeOver(entry.text);
    }
}

void AddAreas(Operator& op, const std::vector<MasterRow>& areas) {
    for (const MasterRow& area : areas) {
        Fill(op, {{u"Txt(6)"_s, area.name}, {u"Txt(7)"_s, area.note}});
        op.TabTo(u"Cmd(0)"_s);
        op.Press(Qt::Key_Return);
        op.ExpectFocus(u"Txt(6)"_s);
    }
}

/// Reloads the list and shows the card of that record.
void ShowCard(Operator& op, const QString& keys, int record) {
    op.Command(u"R"_s);
    op.Command(keys);
    op.TabTo(u"GD"_s);
    for (int row = 1; row < record; ++row) op.Press(Qt::Key_Down);
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
}

/// Quotes all zones with the prefix that have no quote yet.
void QuoteZones(Operator& op, const QString& prefix, const QString& coefficient, bool picture) {
    op.TabTo(u"TxtHPBM"_s);
    op.TypeOver(prefix);
    op.TabTo(u"TxtSL"_s);
    op.TypeOver(coefficient);
    op.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    op.ExpectFocus(u"TxtHPBM"_s);
    op.Press(Qt::Key_Down);
    op.ExpectFocus(u"GdDownList"_s);
    if (picture) op.Picture(u"quote-drop-down"_s, u"客户报价：选择区域，批量增加"_s);
    op.Press(Qt::Key_Tab);
    op.ExpectFocus(u"CmdDel"_s);
    op.Press(Qt::Key_Return);
    op.ExpectFocus(u"TxtHPBM"_s);
}

/// Clears the customer's price for one heavy segment between two others, so that a waybill uses the fallback.
void TakeAPriceOut(Operator& op) {
    op.TabTo(u"GdMx"_s);
    op.Press(Qt::Key_Home);
    for (int col = 0; col < kGapColumn; ++col) op.Press(Qt::Key_Right);
    op.Expect(u"报价表的当前格"_s, [] {
        const auto* grid = TheFrame().findChild<controls::FlexGrid*>(u"GdMx"_s);
        return grid && grid->Row() == kGapRow && grid->Col() == kGapColumn;
    });
    op.Type(u"0"_s);
    op.Picture(u"quote-editing"_s, u"客户报价：修改一个价格"_s);
    op.Press(Qt::Key_Return);
}

void QuoteCustomer(Operator& op) {
    op.TabTo(u"CmdUpDown"_s);
    op.Press(Qt::Key_Return);
    QuoteZones(op, kQuotedPrefix, kCoefficient, true);
    op.ExpectStatus(u"报价单：共 4 条记录 当前为第 4 条"_s);
    QuoteZones(op, {}, kOtherCoefficient, false);
    op.ExpectStatus(u"报价单：共 21 条记录 当前为第 21 条"_s);
    op.Picture(u"quote-added"_s, u"客户报价：批量增加之后"_s);
    TakeAPriceOut(op);
}

void AddCustomer(Operator& op, const Customer& customer) {
    op.Command(u"A"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    Fill(op, {{u"Txt(0)"_s, customer.code}, {u"Txt(1)"_s, customer.name}, {u"Txt(2)"_s, customer.company}});
    Fill(op, customer.entries);
}

}  // namespace

void PlayStandard(Operator& op) {
    const QString stored = u"0.5|0.5|0.5|0.5|21|46|71|101|151|201|251|301|401|501|601|701|801|901|1001|1.5"_s;
    op.Command(u"S1"_s);
    op.ExpectWindow(u"S01"_s);
    op.Picture(u"standard"_s, u"本公司报价标准设定"_s);
    op.TabTo(u"Txt(6)"_s);
    op.TypeOver(u"75"_s);
    op.TabTo(u"CmdOK"_s);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"警告！计价标准不宜经常改变！真的继续吗？"_s, kTitle, u"standard-warning"_s,
                 Qt::Key_Escape);
    op.ExpectWindow(u"S01"_s);
    op.ExpectRows(u"select * from MS1"_s, {stored});
    op.TabTo(u"Txt(6)"_s);
    op.TypeOver(u"71"_s);
    op.TabTo(u"CmdOK"_s);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"警告！计价标准不宜经常改变！真的继续吗？"_s, kTitle);
    op.ExpectBox(u"保存成功！"_s, kTitle);
    op.TabTo(u"CmdCancel"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
    op.ExpectRows(u"select * from MS1"_s, {stored});
}

void PlayZone(Operator& op) {
    op.Command(u"A3"_s);
    op.ExpectStatus(u"共 20 条记录 当前为第 1 条"_s);
    op.Picture(u"zone-list"_s, u"速递区域列表"_s);
    op.Command(u"A"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.Command(u"S"_s);
    op.ExpectBox(u"区域编号不能为空!"_s, kTitle, u"zone-refused"_s);
    Fill(op, ZoneEntries());
    op.TabTo(u"cmbFw"_s);
    op.ExpectText(u"cmbFw"_s, u"国内"_s);  // the value of the zone before
    op.Press(Qt::Key_Down);
    AddAreas(op, ZoneAreas());
    Fill(op, ZonePrices());
    op.Picture(u"zone-adding"_s, u"速递区域资料与报价：增加"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F2,F3,F4,F6,P101,P102,P201,P202,P301,P302,P315 from M02 where F1='G01'"_s,
                  {u"中亚|国外|Central Asia|5|170|52|215|66|88|87|74"_s});
    op.ExpectRows(u"select F1,F2 from M021 where F0='G01'"_s,
                  {u"阿拉木图|Almaty"_s, u"塔什干|Tashkent"_s, u"比什凯克|Bishkek"_s});
    ShowCard(op, u"A3"_s, 20);
    op.ExpectStatus(u"共 21 条记录 当前为第 20 条"_s);
    op.ExpectText(u"Txt(0)"_s, u"F02-EAST"_s);
    op.Picture(u"zone-card"_s, u"速递区域资料与报价：浏览；最长的编号和名称"_s);
    op.Command(u"R"_s);
}

void PlayChannel(Operator& op) {
    op.Command(u"A1"_s);
    op.Picture(u"channel-list"_s, u"出货渠道列表"_s);
    op.Command(u"A"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    Fill(op, ChannelEntries());
    op.Picture(u"channel-adding"_s, u"出货渠道计价标准：增加"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F1,F2,D0,D1,S0,S1,JFD,J0,J1 from M01 where F1='HY01'"_s,
                  {u"HY01|"_s + kChannel + u"|0.5|0.5|0.5|0.5|2|21|71"_s});
    ShowCard(op, u"A1"_s, 4);
    op.ExpectText(u"Txt(0)"_s, u"Q3"_s);
    op.ExpectText(u"Txt(7)"_s, u"10"_s);
    op.Picture(u"channel-card"_s, u"出货渠道计价标准：浏览；十个计费段"_s);
    op.Command(u"R"_s);
}

/// The second zone keeps the proposed channel; its segments are then numbered.
void PlayCostZones(Operator& op) {
    op.Command(u"A2"_s);
    op.ExpectStatus(u"共 15 条记录 当前为第 1 条"_s);
    op.Picture(u"cost-zone-list"_s, u"出货渠道区域列表"_s);
    for (const CostZone& zone : CostZones()) {
        const bool first = &zone == &CostZones().front();
        op.Command(u"A"_s);
        op.ExpectFocus(u"CmbLB"_s);
        op.ExpectText(u"CmbLB"_s, u"HY01."_s + kChannel);
        if (first) {
            op.Press(Qt::Key_F4);
            op.Picture(u"cost-zone-channel"_s, u"出货渠道区域成本：选择出货渠道"_s);
            op.Press(Qt::Key_Return);
        }
        Fill(op, zone.entries);
        AddAreas(op, zone.areas);
        Fill(op, zone.prices);
        for (const QString& box : zone.turned) {
            op.TabTo(box);
            op.Press(Qt::Key_Space);
        }
        if (first) op.Picture(u"cost-zone-adding"_s, u"出货渠道区域成本：增加"_s);
        op.Command(u"S"_s);
        op.ExpectRows(u"select F2,F3,F4,F6,P101,P102,P201,P202,P300,P301,P3,A30,A31 from M011 where F1='"_s +
                          zone.entries.front().text + u"'"_s,
                      {zone.stored});
    }
    op.ExpectRows(
        u"select F0,F1 from M0111 where F0 like 'HY01*'"_s,
        {u"HY01-5|纽约"_s, u"HY01-5|波士顿"_s, u"HY01-5|多伦多"_s, u"HY01-6|洛杉矶"_s, u"HY01-6|温哥华"_s});
    ShowCard(op, u"A2"_s, 13);
    op.ExpectText(u"Txt(0)"_s, u"Q3-AM"_s);
    op.Picture(u"cost-zone-card"_s, u"出货渠道区域成本：浏览；十个计费段"_s);
    op.Command(u"R"_s);
}

/// Two new customers, the first with quotes; then the list and the card with the longest code.
void PlayCustomers(Operator& op) {
    op.Command(u"A5"_s);
    op.ExpectStatus(u"客户资料列表：共 12 条记录 当前为第 1 条"_s);
    op.Picture(u"customer-list"_s, u"客户资料列表"_s);
    for (const Customer& customer : Customers()) {
        const bool quoted = &customer == &Customers().front();
        AddCustomer(op, customer);
        if (!quoted) op.Picture(u"customer-adding"_s, u"客户资料：增加"_s);
        if (quoted) QuoteCustomer(op);
        op.Command(u"S"_s);
        op.ExpectRows(u"select F2,F301,F8 from M03 where F1='"_s + customer.code + u"'"_s,
                      {customer.name + u'|' + customer.company + u"|孙雨晴"_s});
    }
    // List price times the coefficient, to one decimal: 150, 45, 190, 58, 80, 76.8 yuan times 1.08; 155 times
    // 1.06.
    op.ExpectRows(u"select F2,F3,F4,F5,F6,F7,F8 from M031 where F0='C0012' and F1='D01'"_s,
                  {u"162|48.6|205.2|62.6|86.4|0|82.9"_s});
    op.ExpectRows(
        u"select F1,F2 from M031 where F0='C0012' and F1 in ('A01','C01','D04','G01') order by F1"_s,
        {u"A01|12.7"_s, u"C01|164.3"_s, u"D04|213.8"_s, u"G01|180.2"_s});
    op.ExpectRows(u"select count(*) from M031 where F0='C0012'"_s, {u"21"_s});
    ShowCard(op, u"A5"_s, 14);
    op.ExpectText(u"Txt(0)"_s, u"SZ2024-VIP-3"_s);
    op.TabTo(u"CmdUpDown"_s);
    op.Press(Qt::Key_Return);
    op.Picture(u"customer-quotes"_s, u"客户资料与报价：浏览；最长的编码和名称"_s);
    op.Command(u"R"_s);
}

}  // namespace demo
