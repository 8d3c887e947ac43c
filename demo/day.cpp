#include "demo/day.h"

#include "app/main_window.h"
#include "app/session.h"
#include "demo/accounts.h"
#include "demo/ageing.h"
#include "demo/channel_bill.h"
#include "demo/customer_papers.h"
#include "demo/day_entries.h"
#include "demo/month_end.h"
#include "demo/packing.h"
#include "demo/reports.h"
#include "demo/sample_masters.h"
#include "demo/tariffs.h"
#include "platform/controls/box.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QString kTitle = u"提示"_s;
const QString kStillEditing = u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s;

/// Login has the focus on 确定; the combo is to be left once, or its code does not count.
void LogIn(Operator& op, const QString& user, const QString& password) {
    op.ExpectWindow(u"Login"_s);
    op.TabTo(u"cmbhu"_s);
    op.TypeOver(user);
    op.EnterTo(u"Txt(1)"_s);
    op.Type(password);
}

void Confirm(Operator& op) {
    op.EnterTo(u"Cmd(0)"_s);
    op.Press(Qt::Key_Return);
}

void PlayLogin(Operator& op) {
    LogIn(op, u"001.管理员"_s, u"korvane"_s);
    op.Picture(u"login"_s, u"登录"_s);
    Confirm(op);
    op.ExpectBox(u"密码输入错误!"_s, kTitle, u"login-refused"_s);
    op.ExpectText(u"Txt(1)"_s, {});  // as the administrator of a new company has it
    Confirm(op);
    op.ExpectWindow(u"MForm"_s);
    op.Expect(u"标题栏有公司名称"_s,
              [] { return TheFrame().windowTitle().endsWith(u"  "_s + sample::kCompany); });
    op.Expect(u"操作员"_s,
              [] { return TheFrame().Panel(MForm::OperatorPanel) == u"管理员" && OperatorCode == u"001"; });
    op.ExpectStatus(text::DateText(kToday));
    op.Picture(u"main-window"_s, u"主窗口"_s);
    op.Command(u"A"_s);
    op.Picture(u"menu"_s, u"主菜单"_s);
    op.Press(Qt::Key_Escape);
    op.Press(Qt::Key_Escape);
}

void PlayPalette(Operator& op) {
    op.Press(Qt::Key_K, Qt::ControlModifier);
    op.ExpectFocus(u"PaletteText"_s);
    op.Picture(u"palette-all"_s, u"Ctrl+K：全部窗体与命令"_s);
    op.Type(u"xyz"_s);
    op.Picture(u"palette-nothing"_s, u"没有找到"_s);
    op.TypeOver(u"mx"_s);
    op.Press(Qt::Key_Down);
    op.Picture(u"palette"_s, u"按拼音首字母查找"_s);
    op.Press(Qt::Key_Escape);
    op.Press(Qt::Key_K, Qt::ControlModifier);
    op.Type(u"ysk mx"_s);
    op.Press(Qt::Key_Return);
    op.Expect(u"窗体 应收帐款明细"_s,
              [] { return TheFrame().Front() && TheFrame().Front()->windowTitle() == u"应收帐款明细"; });
    op.Picture(u"palette-opened"_s, u"回车打开"_s);
    op.Command(u"R"_s);
}

// ------------------------------------------------------------------------------------------- small masters

void AddRow(Operator& op, const MasterRow& row) {
    op.Command(u"A"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.Type(row.name);
    op.EnterTo(u"Txt(1)"_s);
    op.Type(row.note);
}

/// The list, and a newcomer in it.
void PlayMaster(Operator& op, const SmallMaster& master) {
    op.Command(master.keys);
    op.Expect(u"窗体 "_s + master.form, [form = master.form] {
        return TheFrame().Front() && TheFrame().Front()->objectName() == form;
    });
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Down);
    op.Picture(master.picture + u"-list"_s, master.caption + u"：列表"_s);
    AddRow(op, master.newcomer);
    op.Picture(master.picture + u"-adding"_s, master.caption + u"：增加"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F1,F2 from "_s + master.table + u" where F1='"_s + master.newcomer.name + u"'"_s,
                  {master.newcomer.name + u'|' + master.newcomer.note});
}

/// On the couriers' list: browsing, a name that is taken, an edit.
void PlayCouriers(Operator& op) {
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
    op.ExpectText(u"Txt(0)"_s, u"方志远"_s);
    op.Picture(u"courier-card"_s, u"外务员资料：浏览"_s);

    AddRow(op, {u"韩春"_s, u"重名"_s});
    op.Command(u"S"_s);
    op.ExpectBox(u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s, kTitle, u"courier-duplicate"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.ExpectText(u"Txt(1)"_s, u"重名"_s);
    op.Command(u"C"_s);
    op.ExpectRows(u"select count(*) from M04"_s, {u"9"_s});

    op.Command(u"E"_s);
    op.EnterTo(u"Txt(1)"_s);
    op.TypeOver(u"昆山、太仓"_s);
    op.Picture(u"courier-editing"_s, u"外务员资料：修改"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F2 from M04 where F1='方志远'"_s, {u"昆山、太仓"_s});
    op.Command(u"D"_s);
    op.ExpectBox(u"真的要删除昆山、太仓吗?"_s, kTitle, u"courier-delete"_s, Qt::Key_Escape);
    op.ExpectRows(u"select count(*) from M04"_s, {u"9"_s});
}

void PlaySmallMasters(Operator& op) {
    for (const SmallMaster& master : SmallMasters()) {
        PlayMaster(op, master);
        if (master.form == u"A04") PlayCouriers(op);
        op.Command(u"R"_s);
        op.Expect(u"工具栏重新显示"_s, [] { return TheFrame().ToolBarShown() && !TheFrame().Front(); });
    }
}

// ------------------------------------------------------------------------------------------------ waybills

/// From "增加" to the customer, who fills the shipper's boxes, and round to the number.
void BeginWaybill(Operator& op, const Consignment& c) {
    op.Command(u"A"_s);
    op.ExpectFocus(u"Cmb(31)"_s);
    op.TypeOver(u"C0012"_s);
    op.Press(Qt::Key_Return);
    op.ExpectText(u"Cmb(31)"_s, u"C0012."_s + kCustomer);
    if (c.released) {
        op.EnterTo(u"ChkChuHuo"_s);
        op.Press(Qt::Key_Space);
        op.ExpectText(u"Txt(32)"_s, u"管理员"_s);
    }
    // The card keeps who signed for the waybill that was shown before, and when.
    for (const auto& box : {u"Txt(41)"_s, u"Txt(42)"_s}) {
        op.EnterTo(box);
        op.TypeOver({});
    }
    op.EnterTo(u"Txt(0)"_s);
    op.Type(c.number);
}

/// The calendar, as the keys move in it.
void PickDate(Operator& op, const Consignment& c) {
    if (c.date == kToday) return;
    op.EnterTo(u"DTP"_s);
    op.Press(Qt::Key_F4);
    op.Picture(u"waybill-calendar"_s, u"速递单：补录，日历"_s);
    for (QDate day = kToday; day > c.date; day = day.addDays(-1)) op.Press(Qt::Key_Left);
    op.Press(Qt::Key_Return);
    op.ExpectText(u"DTP"_s, text::DateText(c.date));
}

/// The box of the cost lies before that of the fuel rate; the operator goes back to it, and it is computed
/// anew.
void PriceCost(Operator& op) {
    op.EnterTo(u"Txt(35)"_s);
    op.Type(u"1.12"_s);
    for (int back = 0; back < 3; ++back) op.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    op.ExpectFocus(u"Txt(34)"_s);
    op.ExpectText(u"Txt(34)"_s, u"1948.80"_s);  // 58 x 30 x 1.12
}

QString Money(const QString& shown) {
    return text::GeneralText(text::Val(shown));
}

void CheckWaybill(Operator& op, const Consignment& c) {
    op.ExpectRows(u"select F101,F603,F203,F502,F504,F604 from B01 where F1='"_s + c.number + u"'"_s,
                  {QStringList{text::DateText(c.date), u"C0012"_s, u"D01"_s, c.basic, Money(c.total),
                               c.released ? u"管理员"_s : u"未审核"_s}
                       .join(u'|')});
    op.ExpectRows(u"select LB,F2,F3,YF from TB1 where F1='YS"_s + c.number + u"'"_s,
                  {QStringList{u"-9"_s, text::DateText(c.date), kCustomer, Money(c.total)}.join(u'|')});
    QStringList payable;
    if (c.released) payable << u"9|"_s + kChannel + u"|1948.8|0|1948.8"_s;
    op.ExpectRows(u"select LB,F3,YF,QC,QM from TB1 where F1='YF"_s + c.number + u"'"_s, payable);
}

void EnterWaybill(Operator& op, const Consignment& c, const QString& picture) {
    BeginWaybill(op, c);
    PickDate(op, c);
    for (const Entry& entry : c.entries) {
        op.EnterTo(entry.control);
        op.TypeOver(entry.text);
    }
    op.EnterTo(u"Txt(28)"_s);
    op.ExpectText(u"Txt(26)"_s, c.basic);
    op.ExpectText(u"Txt(28)"_s, c.total);
    if (c.released) PriceCost(op);
    if (!picture.isEmpty()) op.Picture(picture, u"速递单："_s + c.rule);
    op.Command(u"S"_s);
    op.Expect(u"已保存"_s, [] { return !EditInProgress; });
    CheckWaybill(op, c);
}

void PlayTakenNumber(Operator& op) {
    op.Command(u"E"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.TypeOver(u"KV2411250002"_s);
    op.Command(u"S"_s);
    op.ExpectBox(u"[KV2411250002]已经使用了KV2411250002这个速递单号，请重新设置!"_s, kTitle,
                 u"waybill-taken"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.Command(u"C"_s);
    op.ExpectText(u"Txt(0)"_s, u"KV2411250003"_s);
}

/// The charge of the waybill that was just saved, explained and printed for the customer.
void PlayExplanation(Operator& op) {
    op.Press(Qt::Key_F1);
    op.Expect(u"价格说明"_s, [] {
        const auto* panel = TheFrame().Front()->findChild<QWidget*>(u"PriceExplanation"_s);
        return panel && panel->isVisible() &&
               panel->accessibleDescription().contains(u"改用小包裹的首重加续重"_s);
    });
    op.Picture(u"waybill-explained"_s, u"速递单：按 F1，这个价格是怎样算出的"_s);
    op.Press(Qt::Key_P, Qt::ControlModifier);
    op.Expect(u"打印预览"_s, [] { return TheFrame().Front()->objectName() == u"Prnt"; });
    op.Picture(u"waybill-explained-print"_s, u"运费计算说明，打印给客户"_s);
    op.Command(u"R"_s);
    op.Press(Qt::Key_Escape);
}

// A new waybill proposes the origin that the operator used last, so most of them name none.

void PlayWaybills(Operator& op) {
    op.Command(u"B"_s);
    op.ExpectStatus(text::DateText(kToday));
    const auto& day = Consignments();
    EnterWaybill(op, day[0], {});
    EnterWaybill(op, day[1], u"waybill-adding"_s);
    EnterWaybill(op, day[2], u"waybill-released"_s);
    PlayTakenNumber(op);
    EnterWaybill(op, day[3], u"waybill-no-price"_s);
    PlayExplanation(op);
    EnterWaybill(op, day[4], u"waybill-back-dated"_s);
    // What was sent on Saturday is before Monday's, and the balances behind it have followed.
    op.ExpectRows(
        u"select F1,QC,QM from TB1 where F3='"_s + kCustomer + u"' order by SN"_s,
        {u"YSKV2411230005|0|185.49"_s, u"YSKV2411250001|185.49|482.27"_s, u"YSKV2411250002|482.27|1135.68"_s,
         u"YSKV2411250003|1135.68|4103.52"_s, u"YSKV2411250004|4103.52|11434.5"_s});
    op.Command(u"R"_s);
}

/// The line that is so many above the last.
void GoUpFromTheEnd(Operator& op, int lines) {
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_End);
    for (int i = 0; i < lines; ++i) op.Press(Qt::Key_Up);
}

/// The list anew, the card while browsing, and an edit that is given up again.
void PlayList(Operator& op) {
    op.Command(u"B"_s);
    GoUpFromTheEnd(op, 1);
    op.ExpectStatus(u"速递单：共 605 条记录 当前为第 604 条"_s);
    op.Picture(u"waybill-list"_s, u"速递单列表"_s);
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
    op.ExpectText(u"Txt(0)"_s, u"KV2411250003"_s);
    op.ExpectText(u"ChkChuHuo"_s, u"1"_s);
    op.ExpectText(u"Txt(17)"_s, u"S.物品(Parcel)"_s);
    op.Picture(u"waybill-card"_s, u"速递单资料，浏览"_s);
    op.Command(u"D"_s);
    op.ExpectBox(u"数据删除后将不可恢复！\r真的要删除单号为:KV2411250003的单据吗？"_s, u"警告"_s,
                 u"waybill-delete"_s, Qt::Key_Escape);

    op.Command(u"E"_s);
    op.EnterTo(u"Cmb(5)"_s);
    op.Press(Qt::Key_F4);
    op.Picture(u"waybill-combo"_s, u"速递单：修改，选择出货渠道"_s);
    op.Press(Qt::Key_Escape);
    op.EnterTo(u"Txt(26)"_s);
    op.ExpectText(u"Txt(26)"_s, u"2592"_s);
    op.Picture(u"waybill-editing"_s, u"速递单：修改，光标在基本费用"_s);
    // No key of the program's own: the window's close box.
    op.Do(u"关闭主窗口"_s, [] { TheFrame().close(); });
    op.ExpectBox(kStillEditing, kTitle, u"close-refused"_s);
    op.Command(u"R"_s);
    op.ExpectBox(kStillEditing, kTitle);
    op.Expect(u"主窗口仍在"_s, [] { return TheFrame().isVisible() && TheFrame().Front() && Db; });
    op.Command(u"C"_s);
    op.ExpectText(u"Txt(26)"_s, u"2592"_s);
    op.Command(u"R"_s);
}

/// Released from the list a waybill leaves it and owes the channel nothing yet; saved with its cost it does.
void PlayRelease(Operator& op) {
    op.Command(u"B"_s);
    GoUpFromTheEnd(op, 0);
    op.Command(u"C"_s);
    op.ExpectStatus(u"速递单：共 604 条记录 当前为第 604 条"_s);
    op.ExpectRows(u"select F604 from B01 where F1='KV2411250004'"_s, {u"管理员"_s});
    op.ExpectRows(u"select F1 from TB1 where F1='YFKV2411250004'"_s, {});
    op.Picture(u"waybill-list-released"_s, u"速递单列表：出货之后"_s);
    op.Command(u"R"_s);
    op.Command(u"B"_s);
    GoUpFromTheEnd(op, 0);
    op.Command(u"E"_s);
    op.EnterTo(u"Txt(34)"_s);
    op.ExpectText(u"Cmb(40)"_s, u"HY01-5.美国东部及加拿大东部"_s);
    op.ExpectText(u"Txt(34)"_s, u"2900.00"_s);  // 50 x 58
    op.ExpectText(u"Txt(35)"_s, u"1"_s);
    op.Picture(u"waybill-cost"_s, u"速递单：修改，光标在出货成本"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F1,YF,QC,QM from TB1 where F3='"_s + kChannel + u"' order by SN"_s,
                  {u"YFKV2411250003|1948.8|0|1948.8"_s, u"YFKV2411250004|2900|1948.8|4848.8"_s});
    op.Command(u"R"_s);
}

/// Presses Down so often and expects that item.
void PickBelow(Operator& op, const QString& combo, int presses, const QString& item) {
    op.TabTo(combo);
    for (int i = 0; i < presses; ++i) op.Press(Qt::Key_Down);
    op.ExpectText(combo, item);
}

/// What was sent since Saturday, by one customer, and has been released; then all waybills again.
void PlaySearch(Operator& op) {
    op.Command(u"B"_s);
    op.Command(u"Q"_s);
    op.ExpectWindow(u"Query"_s);
    op.ExpectFocus(u"CmbF"_s);
    op.ExpectStatus(u"Enter->增加条件   Ctrl+Enter->开始查找   Esc->取消"_s);
    PickBelow(op, u"CmbF"_s, 1, u"寄件日期"_s);
    op.EnterTo(u"DTP"_s);
    op.Press(Qt::Key_F4);
    for (int day = 0; day < 3; ++day) op.Press(Qt::Key_Left);
    op.Press(Qt::Key_Return);
    op.ExpectText(u"DTP"_s, u"2024-11-22"_s);
    op.EnterTo(u"CmdAdd"_s);
    op.Press(Qt::Key_Return);
    op.Picture(u"query-date"_s, u"查找条件：按日期"_s);
    PickBelow(op, u"CmbF"_s, 4, u"发件客户"_s);
    PickBelow(op, u"CmbGX"_s, 1, u"包含(like)"_s);
    op.EnterTo(u"Txt"_s);
    op.Type(u"华兴"_s);
    op.Press(Qt::Key_Return);
    PickBelow(op, u"CmbLG"_s, 2, u"排除"_s);
    PickBelow(op, u"CmbF"_s, 7, u"审核人"_s);
    op.EnterTo(u"Txt"_s);
    op.Type(u"未审核"_s);
    op.Press(Qt::Key_Return);
    op.TabTo(u"Lst"_s);
    op.Press(Qt::Key_End);
    op.Picture(u"query"_s, u"查找条件：三个条件"_s);
    op.Press(Qt::Key_Return, Qt::ControlModifier);
    op.ExpectStatus(u"速递单：共 2 条记录 当前为第 1 条"_s);
    op.Picture(u"query-found"_s, u"速递单列表：查找结果"_s);
    op.Command(u"Q"_s);
    op.ExpectWindow(u"Query"_s);
    op.Press(Qt::Key_Return, Qt::ControlModifier);
    op.ExpectStatus(u"速递单：共 605 条记录 当前为第 1 条"_s);
    op.Command(u"R"_s);
}

/// The list as a workbook, its place chosen in the toolkit's own dialog.
void PlayExport(Operator& op, const QString& file) {
    op.Do(u"移去上次的文件"_s, [file] { QFile::remove(file); });
    op.Command(u"B"_s);
    op.Command(u"T"_s);
    op.ExpectWindow(u"ToExcel"_s);
    op.TabTo(u"CmdSaveTo"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"FileDialog"_s);
    op.Picture(u"export-file"_s, u"选择文件保存位置"_s);
    op.Type(file);
    op.Press(Qt::Key_Return);
    op.ExpectText(u"Txt"_s, file);
    op.ExpectFocus(u"Cmd(0)"_s);
    op.Picture(u"export"_s, u"导出数据到EXCEL"_s);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"数据成功导出到Excel文件！"_s, {}, u"export-done"_s);
    op.Picture(u"exported"_s, u"导出之后"_s);
    op.TabTo(u"Cmd(1)"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
    op.Expect(u"工作簿已生成"_s, [file] { return QFileInfo(file).size() > 0; });
    op.Command(u"R"_s);
}

/// An operator without the right to see figures.
void PlayRestricted(Operator& op) {
    op.Command(u"H1"_s);
    LogIn(op, u"005.蒋录单"_s, u"5"_s);
    op.Picture(u"relogin"_s, u"更换登录用户"_s);
    Confirm(op);
    op.Expect(u"操作员"_s,
              [] { return TheFrame().Panel(MForm::OperatorPanel) == u"蒋录单" && !CanSeeFigures; });
    op.Picture(u"main-window-restricted"_s, u"主窗口，只有开单权限的操作员"_s);
    op.Command(u"B"_s);
    GoUpFromTheEnd(op, 0);
    op.Command(u"E"_s);
    op.ExpectBox(u"该速递单已经审核出货,您没有修改权限!"_s, kTitle, u"waybill-released-refused"_s);
    op.Press(Qt::Key_Up);
    op.Press(Qt::Key_Up);
    op.ExpectStatus(u"速递单：共 605 条记录 当前为第 603 条"_s);
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
    op.ExpectText(u"Txt(0)"_s, u"KV2411250002"_s);
    for (const auto& box : {u"Txt(26)"_s, u"Txt(28)"_s, u"Txt(5)"_s, u"Txt(34)"_s})
        op.Expect(box + u" 不可见"_s, [box] {
            const auto* line = TheFrame().findChild<QLineEdit*>(box);
            return line && line->echoMode() == QLineEdit::Password;
        });
    op.Picture(u"waybill-card-masked"_s, u"速递单资料，看不到金额的操作员"_s);
    op.Command(u"E"_s);
    op.EnterTo(u"Txt(21)"_s);
    op.Picture(u"waybill-editing-masked"_s, u"速递单：修改，看不到金额的操作员"_s);
    op.Command(u"C"_s);
    op.Command(u"R"_s);
    op.ExpectRows(u"select F502,F504,F601 from B01 where F1='KV2411250002'"_s, {u"518.2|653.41|管理员"_s});
}

void PlayPassword(Operator& op) {
    op.Command(u"H2"_s);
    op.Press(Qt::Key_Return);  // two items have the key 2
    op.ExpectWindow(u"S2"_s);
    const QString words[] = {u"5"_s, u"lv-5-dan"_s, u"lv-5-dan"_s};
    for (int box = 0; box < 3; ++box) {
        op.EnterTo(u"Txt(%1)"_s.arg(box));
        op.Type(words[box]);
    }
    op.Picture(u"password"_s, u"操作员修改密码"_s);
    Confirm(op);
    op.ExpectBox(u"密码修改成功!"_s, kTitle);
    op.ExpectRows(u"select F3 from TE1 where F1='005'"_s, {u"lv-5-dan"_s});
}

void PlayAbout(Operator& op) {
    op.Command(u"H22"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"AboutUS"_s);
    op.Picture(u"about"_s, u"关于本系统"_s);
    op.TabTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
}

void LogInAsAdministrator(Operator& op) {
    LogIn(op, u"001.管理员"_s, {});
    Confirm(op);
    op.ExpectWindow(u"MForm"_s);
}

void PlayOperators(Operator& op) {
    op.Command(u"H1"_s);
    LogInAsAdministrator(op);
    op.Command(u"S2"_s);
    op.Picture(u"operators"_s, u"操作员列表"_s);
    op.Command(u"A"_s);
    const QString texts[] = {u"008"_s, u"田会计"_s, u"t-8-kuai"_s};
    for (int box = 0; box < 3; ++box) {
        op.EnterTo(u"Txt(%1)"_s.arg(box));
        op.TypeOver(texts[box]);
    }
    op.EnterTo(u"Chk(7)"_s);
    op.Picture(u"operator-adding"_s, u"增加操作员；密码输入时变为大写"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F2,F3 from TE1 where F1='008'"_s, {u"田会计|T-8-KUAI"_s});
    op.Command(u"R"_s);
}

/// An apostrophe breaks the insert after the old row was deleted. The report ends the program; the waybill
/// with its entries in the journal is there again.
void PlayFailedEdit(Operator& op) {
    const QString waybill = u"KV2411250004"_s;
    op.Command(u"B"_s);
    GoUpFromTheEnd(op, 0);
    op.Command(u"E"_s);
    op.ExpectText(u"Txt(0)"_s, waybill);
    op.EnterTo(u"Txt(10)"_s);
    op.TypeOver(u"O'Hara Street 12"_s);
    op.Command(u"S"_s);
    op.ExpectBox(u"语法错误：文本缺少结束的引号。\r\r程序即将结束。"_s, QCoreApplication::applicationName());
    op.ExpectBox(u"失败的操作已删除：速递单"_s + waybill + u"。\r\r是否立即恢复?"_s, kTitle,
                 u"edit-failed"_s);
    op.ExpectBox(u"恢复完成!"_s, kTitle);
    op.ExpectEnd();
    LogInAsAdministrator(op);
    op.ExpectRows(u"select F1 from B01 where F1='"_s + waybill + u'\'', {waybill});
    op.ExpectRows(u"select F1 from TB1 where F1 like '*"_s + waybill + u"' order by F1"_s,
                  {u"YF"_s + waybill, u"YS"_s + waybill});
    op.Do(u"打开操作记录"_s, [] { TheFrame().ShowChild(u"History"_s); });
    op.ExpectFocus(u"GD"_s);
    op.Press(Qt::Key_Down);
    op.Picture(u"history"_s, u"操作记录：改动前后"_s);
    op.Command(u"R"_s);
    RefreshBalances(op);  // as after any edit of a waybill that others of the customer follow
}

void PlayBackup(Operator& op, const QString& file) {
    op.Do(u"移去上次的备份"_s, [file] { QFile::remove(file); });
    op.Command(u"S4"_s);
    op.ExpectWindow(u"FileDialog"_s);
    op.Picture(u"backup-file"_s, u"系统数据备份：选择位置"_s);
    op.TypeOver(file);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"备份完成！请重新启动系统！"_s, kTitle, u"backup-done"_s);
    op.ExpectEnd();
}

void PlayMishap(Operator& op, const QString& file) {
    LogInAsAdministrator(op);
    op.Command(u"S3"_s);
    op.ExpectWindow(u"S03"_s);
    for (int box = 0; box < 4; ++box) {
        op.TabTo(u"Chk(%1)"_s.arg(box));
        op.Press(Qt::Key_Space);
    }
    op.TabTo(u"Cmd(0)"_s);
    op.Picture(u"reset"_s, u"清除数据"_s);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"数据清除后将无法恢复!真的继续吗?"_s, u"警告"_s, u"reset-question"_s);
    op.ExpectBox(u"数据清除成功!"_s, kTitle);
    op.TabTo(u"Cmd(1)"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
    op.ExpectRows(u"select count(*) from B01"_s, {u"0"_s});

    op.Command(u"S5"_s);
    op.ExpectWindow(u"S32"_s);
    op.TabTo(u"Command1"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"FileDialog"_s);
    op.Type(file);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"数据恢复完成，请重新运行本系统！"_s, {}, u"restore-done"_s);
    op.ExpectEnd();
}

void PlayRestored(Operator& op) {
    LogInAsAdministrator(op);
    op.ExpectRows(u"select count(*) from B01"_s, {u"605"_s});
    op.Command(u"S5"_s);
    op.ExpectWindow(u"S32"_s);
    op.Picture(u"restore"_s, u"数据恢复；光标在“取消操作”上"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
}

}  // namespace

void PlayDay(Operator& op, const QString& folder) {
    const struct {
        QString title, words;
        std::function<void()> play;
    } chapters[] = {
        {u"早上：登录"_s, u"密码错误时留在登录窗口；登录后按字母键打开菜单。"_s, [&] { PlayLogin(op); }},
        {u"查找窗体与命令"_s, u"在任何窗体按 Ctrl+K，键入名称、编号或拼音首字母，回车打开。"_s,
         [&] { PlayPalette(op); }},
        {u"报价标准"_s, u"二十个数字决定所有价格的重量段，修改前先警告。"_s, [&] { PlayStandard(op); }},
        {u"小资料"_s, u"业务员、外务员、始发地、事故原因：四个窗体同一套做法。"_s,
         [&] { PlaySmallMasters(op); }},
        {u"公司自己的区域"_s, u"增加一个区域，录入地区和十九个价格。"_s, [&] { PlayZone(op); }},
        {u"出货渠道"_s, u"增加一个渠道；渠道的计费段由它自己决定。"_s, [&] { PlayChannel(op); }},
        {u"渠道的区域成本"_s, u"渠道在自己的区域要多少钱，每段按公斤或按首重加续重。"_s,
         [&] { PlayCostZones(op); }},
        {u"新客户和报价"_s, u"两个新客户；其中一个按两种系数报全部区域，并改掉一个价格。"_s,
         [&] { PlayCustomers(op); }},
        {u"开单"_s,
         u"五张速递单：文件、小包裹、重包裹、没有报价的重量段、补录星期六的一张；按 F1 说明价格。"_s,
         [&] { PlayWaybills(op); }},
        {u"看单、改单"_s, u"列表、卡片、修改；正在修改时不能关闭。"_s, [&] { PlayList(op); }},
        {u"出货"_s, u"出货后从列表中移去；补上成本再保存，应付款记入渠道的往来。"_s,
         [&] { PlayRelease(op); }},
        {u"帐款"_s, u"录入应收款和补录的收款，看明细帐和总帐并打印，删除一行后刷新余额。"_s,
         [&] { PlayAccounts(op, folder); }},
        {u"月底：谁还没有付款"_s, u"应收帐款的帐龄，逾期名单和一张催款单。"_s,
         [&] { PlayAgeing(op, folder); }},
        {u"统计报表"_s, u"六种报表：生成、预览、存为 PDF；每一页的图片在后面。"_s,
         [&] { PlayReports(op, folder); }},
        {u"渠道的帐单"_s, u"渠道月底寄来的工作簿，逐行与自己的重量和成本核对。"_s,
         [&] { PlayChannelBill(op, folder); }},
        {u"给客户的单据"_s, u"两种报价表；发货单的一笔付款，销售帐款统计报表和客户月结单。"_s,
         [&] { PlayCustomerPapers(op, folder); }},
        {u"月底"_s, u"所有客户的对帐单一次生成：每个客户一份 PDF 和一份 Excel 工作簿，另有一张汇总表。"_s,
         [&] { PlayMonthEnd(op, folder); }},
        {u"查找"_s, u"按日期、客户和审核人三个条件查找。"_s, [&] { PlaySearch(op); }},
        {u"导出"_s, u"列表导出为 Excel 工作簿。"_s, [&] { PlayExport(op, folder + u"/速递单.xls"_s); }},
        {u"打包台"_s, u"还没有出货的单；扫描出货并打印明细；单号重复时马上提示。"_s,
         [&] { PlayPacking(op, folder); }},
        {u"另一位操作员"_s, u"看不到金额的操作员：金额以星号显示，已出货的单不能修改。"_s,
         [&] { PlayRestricted(op); }},
        {u"下班"_s, u"修改自己的密码，看一看系统信息，退出。"_s,
         [&] {
             PlayPassword(op);
             PlayAbout(op);
         }},
        {u"操作员"_s, u"增加一位操作员：帐号、密码和八种权限。"_s, [&] { PlayOperators(op); }},
        {u"改单失败"_s, u"地址中的单引号使保存失败，程序结束；被删除的速递单立即恢复。"_s,
         [&] { PlayFailedEdit(op); }},
        {u"备份"_s, u"把整个数据文件备份到选定的位置；备份之后程序结束。"_s,
         [&] { PlayBackup(op, folder + u"/DataBak.dat"_s); }},
        {u"第二天：一次失误"_s, u"全部数据被清除，再从昨天的备份恢复；恢复之后程序结束。"_s,
         [&] { PlayMishap(op, folder + u"/DataBak.dat"_s); }},
        {u"恢复之后"_s, u"数据和备份时一样；程序每天自动保存的副本也可以恢复。"_s, [&] { PlayRestored(op); }},
    };
    for (const auto& chapter : chapters) {
        op.Chapter(chapter.title, chapter.words);
        chapter.play();
    }
    op.Command(u"H3"_s);
}

}  // namespace demo
