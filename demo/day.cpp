#include "demo/day.h"

#include "app/main_window.h"
#include "app/session.h"
#include "demo/sample_company.h"
#include "demo/tariffs.h"
#include "platform/controls/box.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"

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

void TellLogin(Operator& op) {
    LogIn(op, u"001.管理员"_s, u"korvane"_s);
    op.Picture(u"login"_s, u"登录"_s);
    Confirm(op);
    op.ExpectBox(u"密码输入错误!"_s, kTitle, u"login-refused"_s);
    op.ExpectText(u"Txt(1)"_s, {});
    op.Type(kPassword);
    Confirm(op);
    op.ExpectWindow(u"MForm"_s);
    op.Expect(u"标题栏有公司名称"_s, [] { return TheFrame().windowTitle().endsWith(u"  "_s + kCompany); });
    op.Expect(u"操作员"_s, [] { return TheFrame().Panel(3) == u"管理员" && OperatorCode == u"001"; });
    op.ExpectStatus(u"2024-11-22"_s);
    op.Picture(u"main-window"_s, u"主窗口"_s);
    op.Command(u"A"_s);
    op.Picture(u"menu"_s, u"主菜单；灰色的项目尚未开放"_s);
    op.Press(Qt::Key_Escape);
    op.Press(Qt::Key_Escape);
}

// ------------------------------------------------------------------------------------------- small masters

void AddRow(Operator& op, const MasterRow& row) {
    op.Command(u"A"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.Type(row.name);
    op.EnterTo(u"Txt(1)"_s);
    op.Type(row.note);
}

/// Enters all rows of a table; the form, opened again, lists them in order.
void TellMaster(Operator& op, const SmallMaster& master) {
    op.Command(master.keys);
    op.Expect(u"窗体 "_s + master.form, [form = master.form] {
        return TheFrame().Front() && TheFrame().Front()->objectName() == form;
    });
    for (const MasterRow& row : master.rows) {
        AddRow(op, row);
        if (&row == &master.rows.back())
            op.Picture(master.picture + u"-adding"_s, master.caption + u"：增加"_s);
        op.Command(u"S"_s);
        op.ExpectRows(u"select F1,F2 from "_s + master.table + u" where F1='"_s + row.name + u"'"_s,
                      {row.name + u'|' + row.note});
    }
    op.Command(u"R"_s);
    op.Command(master.keys);
    op.ExpectStatus(u"共 %1 条记录 当前为第 1 条"_s.arg(master.rows.size()));
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Down);
    op.ExpectStatus(u"共 %1 条记录 当前为第 2 条"_s.arg(master.rows.size()));
    op.Picture(master.picture + u"-list"_s, master.caption + u"：列表"_s);
}

/// On the couriers' list: browsing, a name that is taken, an edit.
void TellCouriers(Operator& op) {
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
    op.ExpectText(u"Txt(0)"_s, u"方志远"_s);
    op.Picture(u"courier-card"_s, u"外务员资料：浏览"_s);

    AddRow(op, {u"何立伟"_s, u"重名"_s});
    op.Command(u"S"_s);
    op.ExpectBox(u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s, kTitle, u"courier-duplicate"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.ExpectText(u"Txt(1)"_s, u"重名"_s);
    op.Command(u"C"_s);
    op.ExpectRows(u"select count(*) from M04"_s, {u"6"_s});

    op.Command(u"E"_s);
    op.EnterTo(u"Txt(1)"_s);
    op.TypeOver(u"苏州工业园区、昆山"_s);
    op.Picture(u"courier-editing"_s, u"外务员资料：修改"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F2 from M04 where F1='方志远'"_s, {u"苏州工业园区、昆山"_s});
}

void TellSmallMasters(Operator& op) {
    for (const SmallMaster& master : SmallMasters()) {
        TellMaster(op, master);
        if (master.form == u"A04") TellCouriers(op);
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
    op.EnterTo(u"Txt(0)"_s);
    op.Type(c.number);
}

/// The calendar, as the keys walk in it.
void PickDate(Operator& op, const Consignment& c) {
    if (c.date == c.today) return;
    op.EnterTo(u"DTP"_s);
    op.Press(Qt::Key_F4);
    op.Picture(u"waybill-calendar"_s, u"速递单：补录，日历"_s);
    for (QDate day = c.today; day > c.date; day = day.addDays(-1)) op.Press(Qt::Key_Left);
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
                  {QStringList{text::DateText(c.date), u"C0012"_s, u"B01"_s, c.basic, Money(c.total),
                               c.released ? u"管理员"_s : u"未审核"_s}
                       .join(u'|')});
    op.ExpectRows(u"select SN,LB,F2,F3,YF from TB1 where F1='YS"_s + c.number + u"'"_s,
                  {QStringList{text::GeneralText(c.sequence), u"-9"_s, text::DateText(c.date), kCustomer,
                               Money(c.total)}
                       .join(u'|')});
    QStringList payable;
    if (c.released)
        payable << text::GeneralText(c.sequence + 1) + u"|9|"_s + kChannel + u"|1948.8|0|1948.8"_s;
    op.ExpectRows(u"select SN,LB,F3,YF,QC,QM from TB1 where F1='YF"_s + c.number + u"'"_s, payable);
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

void TellTakenNumber(Operator& op) {
    op.Command(u"E"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.TypeOver(u"KV2411220002"_s);
    op.Command(u"S"_s);
    op.ExpectBox(u"[KV2411220002]已经使用了KV2411220002这个速递单号，请重新设置!"_s, kTitle,
                 u"waybill-taken"_s);
    op.ExpectFocus(u"Txt(0)"_s);
    op.Command(u"C"_s);
    op.ExpectText(u"Txt(0)"_s, u"KV2411250003"_s);
}

// A new waybill proposes the origin that the operator used last, so most of them name none.

void TellFriday(Operator& op, const Consignment& document, const Consignment& parcel) {
    op.Command(u"B"_s);
    op.ExpectStatus(u"2024-11-22"_s);
    EnterWaybill(op, document, {});
    EnterWaybill(op, parcel, u"waybill-adding"_s);
    op.Command(u"R"_s);
}

void TellMonday(Operator& op, const std::vector<Consignment>& rest) {
    op.Command(u"B"_s);
    op.ExpectStatus(u"2024-11-25"_s);
    EnterWaybill(op, rest[0], u"waybill-released"_s);
    TellTakenNumber(op);
    EnterWaybill(op, rest[1], u"waybill-no-price"_s);
    EnterWaybill(op, rest[2], u"waybill-back-dated"_s);
    op.ExpectRows(u"select F1,SN,QC,QM from TB1 where F3='"_s + kCustomer + u"' order by SN"_s,
                  {u"YSKV2411220001|131|0|296.78"_s, u"YSKV2411220002|133|296.78|950.19"_s,
                   u"YSKV2411230005|140.75|950.19|1135.68"_s, u"YSKV2411250003|164|1135.68|4103.52"_s,
                   u"YSKV2411250004|166|4103.52|11434.5"_s});
    op.Command(u"R"_s);
}

/// The list anew, the card while browsing, and an edit that is given up again.
void TellList(Operator& op) {
    op.Command(u"B"_s);
    op.TabTo(u"GD"_s);
    for (int row = 1; row < 4; ++row) op.Press(Qt::Key_Down);
    op.ExpectStatus(u"速递单：共 5 条记录 当前为第 4 条"_s);
    op.Picture(u"waybill-list"_s, u"速递单列表"_s);
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
    op.ExpectText(u"Txt(0)"_s, u"KV2411250003"_s);
    op.ExpectText(u"ChkChuHuo"_s, u"1"_s);
    op.ExpectText(u"Txt(17)"_s, u"S.物品(Parcel)"_s);
    op.Picture(u"waybill-card"_s, u"速递单资料，浏览"_s);

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
void TellRelease(Operator& op) {
    op.Command(u"B"_s);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Down);
    op.Command(u"C"_s);
    op.ExpectStatus(u"速递单：共 4 条记录 当前为第 2 条"_s);
    op.ExpectRows(u"select F604 from B01 where F1='KV2411220002'"_s, {u"管理员"_s});
    op.ExpectRows(u"select F1 from TB1 where F1='YFKV2411220002'"_s, {});
    op.Picture(u"waybill-list-released"_s, u"速递单列表：出货之后"_s);
    op.Command(u"R"_s);
    op.Command(u"B"_s);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Down);
    op.Command(u"E"_s);
    op.EnterTo(u"Txt(34)"_s);
    op.ExpectText(u"Cmb(40)"_s, u"HY01-5.美国东部及加拿大东部"_s);
    op.ExpectText(u"Txt(34)"_s, u"340.00"_s);  // 140 + 5 x 40
    op.ExpectText(u"Txt(35)"_s, u"1"_s);
    op.Picture(u"waybill-cost"_s, u"速递单：修改，光标在出货成本"_s);
    op.Command(u"S"_s);
    op.ExpectRows(u"select F1,YF,QC,QM from TB1 where F3='"_s + kChannel + u"' order by SN"_s,
                  {u"YFKV2411220002|340|0|340"_s, u"YFKV2411250003|1948.8|340|2288.8"_s});
    op.Command(u"R"_s);
}

/// Presses Down so often and expects that item.
void PickBelow(Operator& op, const QString& combo, int presses, const QString& item) {
    op.TabTo(combo);
    for (int i = 0; i < presses; ++i) op.Press(Qt::Key_Down);
    op.ExpectText(combo, item);
}

/// What was sent since Saturday, of one customer, and has been released; then all waybills again.
void TellSearch(Operator& op) {
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
    op.ExpectStatus(u"速递单：共 1 条记录 当前为第 1 条"_s);
    op.Picture(u"query-found"_s, u"速递单列表：查找结果"_s);
    op.Command(u"Q"_s);
    op.ExpectWindow(u"Query"_s);
    op.Press(Qt::Key_Return, Qt::ControlModifier);
    op.ExpectStatus(u"速递单：共 5 条记录 当前为第 1 条"_s);
    op.Command(u"R"_s);
}

/// The list as a workbook, its place chosen in the toolkit's own dialog.
void TellExport(Operator& op, const QString& file) {
    op.Do(u"移去上次的文件"_s, [file] { QFile::remove(file); });
    op.Command(u"B"_s);
    op.Command(u"T"_s);
    op.ExpectWindow(u"ToExcel"_s);
    op.TabTo(u"CmdSaveTo"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"FileDialog"_s);
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

void TellRestore(Operator& op) {
    op.Command(u"S5"_s);
    op.ExpectWindow(u"S32"_s);
    op.Picture(u"restore"_s, u"数据恢复；光标在“取消操作”上"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
    op.ExpectRows(u"select count(*) from B01"_s, {u"5"_s});
}

/// An operator without the right to see figures.
void TellRestricted(Operator& op) {
    op.Command(u"H1"_s);
    LogIn(op, u"002.周婷"_s, u"zt"_s);
    op.Picture(u"relogin"_s, u"更换登录用户"_s);
    Confirm(op);
    op.Expect(u"操作员"_s, [] { return TheFrame().Panel(3) == u"周婷" && !CanSeeFigures; });
    op.Picture(u"main-window-restricted"_s, u"主窗口，只有开单权限的操作员"_s);
    op.Command(u"B"_s);
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
    op.Press(Qt::Key_Left);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_End);
    op.Press(Qt::Key_Up);
    op.ExpectStatus(u"速递单：共 5 条记录 当前为第 4 条"_s);
    op.Command(u"E"_s);
    op.ExpectBox(u"该速递单已经审核出货,您没有修改权限!"_s, kTitle, u"waybill-released-refused"_s);
    op.Press(Qt::Key_Home);
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
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
    op.ExpectRows(u"select F502,F504,F601 from B01 where F1='KV2411220001'"_s, {u"259.2|296.78|管理员"_s});
}

void TellPassword(Operator& op) {
    op.Command(u"H2"_s);
    op.Press(Qt::Key_Return);  // two items have the key 2
    op.ExpectWindow(u"S2"_s);
    const QString words[] = {u"zt"_s, u"zhouting"_s, u"zhouting"_s};
    for (int box = 0; box < 3; ++box) {
        op.EnterTo(u"Txt(%1)"_s.arg(box));
        op.Type(words[box]);
    }
    op.Picture(u"password"_s, u"操作员修改密码"_s);
    Confirm(op);
    op.ExpectBox(u"密码修改成功!"_s, kTitle);
    op.ExpectRows(u"select F3 from TE1 where F1='002'"_s, {u"zhouting"_s});
}

void TellAbout(Operator& op) {
    op.Command(u"H22"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"AboutUS"_s);
    op.Picture(u"about"_s, u"关于本系统"_s);
    op.TabTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
}

}  // namespace

void TellDay(Operator& op, QDateTime& clock, const QString& folder) {
    const auto& day = Consignments();
    TellLogin(op);
    TellStandard(op);
    TellSmallMasters(op);
    TellZone(op);
    TellChannel(op);
    TellCostZones(op);
    TellCustomers(op);
    TellFriday(op, day[0], day[1]);
    op.Do(u"星期一早上"_s, [&clock] { clock = QDateTime(QDate(2024, 11, 25), QTime(9, 15)); });
    TellMonday(op, {day.begin() + 2, day.end()});
    TellList(op);
    TellRelease(op);
    TellSearch(op);
    TellExport(op, folder + u"/速递单.xls"_s);
    TellRestore(op);
    TellRestricted(op);
    TellPassword(op);
    TellAbout(op);
    op.Command(u"H3"_s);
}

}  // namespace demo
