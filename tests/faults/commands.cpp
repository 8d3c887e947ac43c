#include "tests/faults/commands.h"

#include "schema/data_files.h"
#include "tests/faults/waybill_entry.h"
#include "tests/support/files.h"
#include "waybills/waybill_fields.h"

#include <QFile>
#include <QRadioButton>

#include <map>
#include <stdexcept>

namespace tests {
namespace {

void Save(Desk&) {
    AltKey(u'S');
}

void Delete(Desk&) {
    AltKey(u'D');
}

std::function<void(Desk&)> OnLine(const QString& text, int column = 0) {
    return [=](Desk& desk) { Select(desk, text, column); };
}

/// Adds, or edits the line of that key, and types over these boxes, one after the other.
std::function<void(Desk&)> Typed(const QString& key, const std::vector<std::pair<int, QString>>& boxes,
                                 int column = 0) {
    return [=](Desk& desk) {
        if (!key.isEmpty()) Select(desk, key, column);
        AltKey(key.isEmpty() ? u'A' : u'E');
        for (const auto& [box, text] : boxes) desk.SetBox(box, text);
    };
}

void AddPlace(Desk& desk, const QString& name, int box, const QString& button) {
    desk.SetBox(box, name);
    desk.Push(button);
}

void NewChannel(Desk& desk) {
    Typed({}, {{0, u"H8"_s}, {1, u"新渠道"_s}, {7, u"2"_s}})(desk);
    for (const auto& bound : {u"21"_s, u"45"_s}) {
        Press(Qt::Key_Return);
        TypeOver(bound);
    }
}

void NewZone(Desk& desk) {
    Typed({}, {{0, u"Z8"_s}, {1, u"新区"_s}, {9, u"30"_s}})(desk);
    for (const auto& place : {u"巴黎"_s, u"里昂"_s}) AddPlace(desk, place, 6, u"Cmd(0)"_s);
}

void EditOfZone(Desk& desk) {
    Typed(u"乙"_s, {{1, u"旧区"_s}})(desk);
    AddPlace(desk, u"尼斯"_s, 6, u"Cmd(0)"_s);
}

void NewCostZone(Desk& desk) {
    Typed({}, {{0, u"H19"_s}, {1, u"新区"_s}, {9, u"20"_s}})(desk);
    AddPlace(desk, u"巴黎"_s, 6, u"Cmd(0)"_s);
}

void EditOfCostZone(Desk& desk) {
    Typed(u"乙"_s, {{1, u"旧区"_s}}, 1)(desk);
    AddPlace(desk, u"尼斯"_s, 6, u"Cmd(0)"_s);
}

void NewCustomer(Desk& desk) {
    Typed({}, {{0, u"C8"_s}, {1, u"新客"_s}})(desk);
    desk.Push(u"CmdUpDown"_s);
    AddQuote(desk, u"Z1"_s, u"1.1"_s);
    AddQuote(desk, u"甲"_s, u"2"_s);
}

void EditOfCustomer(Desk& desk) {
    Typed(u"乙"_s, {{0, u"C7"_s}})(desk);
    desk.Push(u"CmdUpDown"_s);
    AddQuote(desk, u"乙"_s, u"3"_s);
}

/// Dated before both waybills, so that the chains behind it roll.
void NewWaybill(Desk& desk) {
    AltKey(u'A');
    FillCard(*desk.Frame().Front(), {.number = u"W3"_s, .date = QDate(2024, 3, 15)});
}

/// With a charge that was computed, so that its steps are stored.
void NewPricedWaybill(Desk& desk) {
    NewWaybill(desk);
    desk.SetBox(waybills::ReceivedWeight, u"3"_s);
    desk.Enter(u"Txt(%1)"_s.arg(waybills::BasicCharge));
}

void EditOfWaybill(Desk& desk) {
    Select(desk, u"W1"_s);
    AltKey(u'E');
    FillCard(*desk.Frame().Front(), {.number = u"W4"_s,
                                     .customer = u"C3"_s,
                                     .courier = u"张三"_s,
                                     .channel = u"H2"_s,
                                     .date = QDate(2024, 3, 17),
                                     .total = 99.5});
}

/// Adds, or edits the row of that key; the cells are typed in the order in which Enter reaches them. Dated
/// back, so that the chains behind them roll.
std::function<void(Desk&)> TypedRows(const QString& key, const std::vector<QStringList>& rows) {
    return [=](Desk& desk) {
        if (!key.isEmpty()) Select(desk, key);
        AltKey(key.isEmpty() ? u'A' : u'E');
        for (const QStringList& cells : rows)
            for (const QString& cell : cells) {
                TypeOver(cell);
                Press(Qt::Key_Return);
            }
        Press(Qt::Key_Escape);
    };
}

void SpoilBalances(Desk& desk) {
    desk.Execute(u"update TB1 set QC=9,QM=9"_s);
}

std::function<void(Desk&)> Refresh(int choice) {
    return [=](Desk&) {
        ModalScript modals;
        modals.Next(u"ReKuanFrm"_s, [=](QWidget& dialog) {
            Find<QRadioButton>(dialog, u"Opt(%1)"_s.arg(choice)).setChecked(true);
            Find<controls::ComboBox>(dialog, u"Cmb"_s).SetText(u"华兴"_s);
            Click(Find<controls::Button>(dialog, u"Command1"_s));
            if (dialog.isVisible()) Click(Find<controls::Button>(dialog, u"Command2"_s));
        });
        AltKey(u'S');
        Press(Qt::Key_Return);
    };
}

/// Opens a dialog by its menu's keys, does this in it and, unless the program ends, presses the button that
/// leaves it.
std::function<void(Desk&)> InDialog(const QString& form, const QString& keys,
                                    std::function<void(QWidget&)> drive, const QString& leave = {}) {
    return [=](Desk&) {
        ModalScript modals;
        modals.Next(form, [&](QWidget& dialog) {
            drive(dialog);
            if (!leave.isEmpty() && dialog.isVisible()) Click(Find<controls::Button>(dialog, leave));
        });
        for (const QChar key : keys) AltKey(key.unicode());
        if (form == u"S2") Press(Qt::Key_Return);  // two items share the key
    };
}

void PressIn(QWidget& dialog, const QString& button) {
    Find<controls::Button>(dialog, button).SetFocus();
    Settle();
    Press(Qt::Key_Return);
}

void ClearAll(QWidget& dialog) {
    for (int i = 0; i < 4; ++i) Find<controls::CheckBox>(dialog, u"Chk(%1)"_s.arg(i)).SetValue(1);
    PressIn(dialog, u"Cmd(0)"_s);
}

void TypeNewPassword(QWidget& dialog) {
    for (const QString& text : {u""_s, u"新密码"_s, u"新密码"_s}) {
        Type(text);
        Press(Qt::Key_Return);
    }
    PressIn(dialog, u"Cmd(0)"_s);
}

void MakeLayouts() {
    for (const QString& layout : schema::LayoutFiles())
        if (!QFile::exists(AppFolder + layout)) schema::MakeLayout(AppFolder + layout);
}

/// The list of a report over the days of both waybills, for that customer or channel.
std::function<void(Desk&)> Listed(const QString& code) {
    return [=](Desk& desk) {
        MakeLayouts();
        if (!code.isEmpty()) desk.At<controls::ComboBox>(u"Cmb"_s).SetText(code);
        const bool oneDay = desk.Frame().Front()->findChild<QWidget*>(u"DTP"_s);
        desk.At<controls::DTPicker>(oneDay ? u"DTP"_s : u"DTP(1)"_s)
            .SetValue(QDate(2024, 3, oneDay ? 16 : 17));
        desk.Push(u"Cmd"_s);
    };
}

void NewNotice(Desk& desk) {
    MakeLayouts();
    const QStringList texts{u"W1"_s, u"重量:1"_s, u"无人接听"_s};
    for (int box = 0; box < texts.size(); ++box) desk.TextBoxAt(box).SetText(texts[box]);
}

/// The entry of the bar, or the first of its menu.
void Print(Desk& desk) {
    AltKey(u'P');
    const QString form = desk.Frame().Front()->objectName();
    if (form == u"C01" || form == u"Ageing") Press(Qt::Key_Return);
}

/// The sheet of the zones at home; both sheets have the key 1, which goes from the first to this one.
void PrintQuotes(Desk&) {
    AltKey(u'P');
    AltKey(u'1');
    Press(Qt::Key_Return);
}

/// Forms of the invoice accounts, to which no menu leads.
std::function<void(Desk&)> Shown(const QString& form) {
    return [=](Desk& desk) {
        MakeLayouts();
        desk.Execute(u"insert into TA2 (F1,F2) VALUES ('C1','华兴')"_s);
        desk.Execute(u"insert into TD1 (F1,F2,F3,F9) VALUES ('N1','2024-03-02','C1',100)"_s);
        sys::Guarded([&] { desk.Frame().ShowChild(form); });
        Settle();
    };
}

/// The ageing of a customer who owes.
void Aged(Desk& desk) {
    desk.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3,YF,QM,F6) VALUES (500,-9,'YS9','2024-03-02','恒丰',7,7,'甲')"_s);
    Shown(u"Ageing"_s)(desk);
}

void TypeInvoicePayment(QWidget& dialog) {
    Find<controls::ComboBox>(dialog, u"CmbKH"_s).SetText(u"C1"_s);
    Find<controls::LineBox>(dialog, u"Txt(0)"_s).SetText(u"N1"_s);
    Find<controls::LineBox>(dialog, u"Txt(1)"_s).SetText(u"60.25"_s);
    PressIn(dialog, u"Command1"_s);
}

/// What the commands of 操作记录 find: written by one command, nothing where it was written before.
const std::map<std::string, QStringList>& WrittenBefore() {
    static const std::map<std::string, QStringList> all = {
        {"History_Waybill",
         {u"delete from TB1 where F1='YSW1' or F1='YFW1'"_s, u"delete from B01 where F1='W1'"_s}},
        {"History_Customer", {u"delete from M03 where F1='甲'"_s, u"delete from M031 where F0='甲'"_s}},
        // Edits, which delete the rows and insert others.
        {"History_Overwrite",
         {u"delete from TB1 where F1 in ('YSW1','YFW1') and YF<>60"_s,
          u"delete from B01 where F1='W1' and F504<>60"_s,
          u"delete from B011 where F1='W1' and F5='11 0 0 50'"_s,
          u"insert into B01 (F1,F101,F504,F602,F603,F604) select 'W1','2024-03-16',60,'张三','C1','未审核' where not exists(select 1 from B01 where F1='W1')"_s,
          u"insert into B011 (F1,F2,F3,F4,F5) select 'W1','C1','Z1','2024-03-16','11 0 0 60' where not exists(select 1 from B011 where F1='W1')"_s,
          u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM) select 131,-9,'YSW1','2024-03-16','华兴',60,0,60 where not exists(select 1 from TB1 where F1='YSW1')"_s}},
        {"History_Zone",
         {u"delete from M02 where F1='乙' and F2='二'"_s, u"delete from M021 where F0='乙' and F1='首尔'"_s,
          u"insert into M02 (F1,F2) select '乙','新' where not exists(select 1 from M02 where F1='乙')"_s,
          u"insert into M021 (F0,F1) select '乙','釜山' where not exists(select 1 from M021 where F0='乙')"_s}},
    };
    return all;
}

/// Brings the focus to the button that puts the last record back.
std::function<void(Desk&)> Written(const std::string& command) {
    return [=](Desk& desk) {
        WriteBefore(command);
        desk.Frame().ShowChild(u"History"_s);
        Settle();
        desk.Enter(u"Cmd(1)"_s);
    };
}

/// A bill of one line, chosen; the focus is on the button that compares it and keeps its columns.
void BillChosen(Desk& desk) {
    const QString path = AppFolder + u"bill.csv"_s;
    Write(path, u"运单号,费用\nW1,30\n"_s.toUtf8());
    sys::Guarded([&] { desk.Frame().ShowChild(u"ChannelBill"_s); });
    Settle();
    desk.SetCombo(0, u"H1"_s);
    const auto ask = std::exchange(sys::seams().askFile, [&](const sys::FileRequest&) { return path; });
    desk.Push(u"Cmd(0)"_s);
    sys::seams().askFile = ask;
    desk.Enter(u"Cmd(1)"_s);
}

void PressButton(Desk&) {
    Press(Qt::Key_Return);
}

std::vector<Command> Made() {
    std::vector<Command> commands;
    const struct {
        const char *keys, *form, *add, *edit, *del, *delUsed;
    } masters[] = {
        {"A4", "A030", "A030_Add", "A030_Edit", "A030_Delete", "A030_DeleteUsed"},
        {"A6", "A04", "A04_Add", "A04_Edit", "A04_Delete", "A04_DeleteUsed"},
        {"A7", "A05", "A05_Add", "A05_Edit", "A05_Delete", "A05_DeleteUsed"},
        {"A8", "A06", "A06_Add", "A06_Edit", "A06_Delete", "A06_DeleteUsed"},
    };
    for (const auto& each : masters) {
        commands.push_back({each.add, each.keys, each.form, Typed({}, {{0, u"丙"_s}, {1, u"三"_s}}), Save});
        commands.push_back(
            {each.edit, each.keys, each.form, Typed(u"乙"_s, {{0, u"丁"_s}, {1, u"四"_s}}), Save});
        commands.push_back({each.del, each.keys, each.form, OnLine(u"乙"_s), Delete});
        commands.push_back({each.delUsed, each.keys, each.form, OnLine(u"甲"_s), Delete});
    }
    const std::vector<Command> others = {
        {"A01_Add", "A1", "A01", NewChannel, Save},
        {"A01_Edit", "A1", "A01", Typed(u"乙"_s, {{1, u"旧渠道"_s}}), Save},
        {"A01_Delete", "A1", "A01", OnLine(u"乙"_s), Delete},
        {"A01_DeleteUsed", "A1", "A01", OnLine(u"甲"_s), Delete},
        {"A011_Add", "A2", "A011", NewCostZone, Save},
        {"A011_Edit", "A2", "A011", EditOfCostZone, Save},
        {"A011_Delete", "A2", "A011", OnLine(u"乙"_s, 1), Delete},
        {"A02_Add", "A3", "A02", NewZone, Save},
        {"A02_Edit", "A3", "A02", EditOfZone, Save},
        {"A02_Delete", "A3", "A02", OnLine(u"乙"_s), Delete},
        {"A03_Add", "A5", "A03", NewCustomer, Save},
        {"A03_Edit", "A5", "A03", EditOfCustomer, Save},
        {"A03_Delete", "A5", "A03", OnLine(u"乙"_s), Delete},
        {"A03_DeleteUsed", "A5", "A03", OnLine(u"甲"_s), Delete},
        {"A03_Print", "A5", "A03",
         [](Desk& desk) {
             MakeLayouts();
             desk.Execute(u"update M031 set F3=1,F4=1,F5=1,F6=1,F7=1,F8=1,F9=1,F10=1 where F0='乙'"_s);
             Select(desk, u"乙"_s);
         },
         PrintQuotes},
        {"B01_Add", "B", "B01", NewWaybill, Save},
        {"B01_AddPriced", "B", "B01", NewPricedWaybill, Save},
        {"B01_Edit", "B", "B01", EditOfWaybill, Save},
        {"B01_Release", "B", "B01", OnLine(u"W2"_s), [](Desk&) { AltKey(u'C'); }},
        {"B01_Delete", "B", "B01", OnLine(u"W1"_s), Delete},
        {"ScanRelease_Scan", "", "", Shown(u"ScanRelease"_s),
         [](Desk&) {
             Type(u"w2"_s);
             Press(Qt::Key_Return);
         }},
        {"Unreleased_Print", "", "", Shown(u"Unreleased"_s), Print},
        {"zhLst_Add", "D2", "zhLst",
         TypedRows({}, {{u"YS8"_s, u"2024-03-15"_s, u"华兴"_s, u"12.5"_s, u"张三"_s, u"仓租"_s},
                        {u"YS9"_s, u"2024-03-16"_s, u"恒丰"_s, u"3"_s, u""_s, u""_s}}),
         Save},
        {"zhLst_Edit", "D2", "zhLst",
         TypedRows(u"YSW1"_s, {{u"YSW7"_s, u"2024-03-17"_s, u"恒丰"_s, u"51"_s, u""_s, u""_s}}), Save},
        {"zhLst_Delete", "D2", "zhLst", OnLine(u"YSW1"_s), Delete},
        {"PayLst_Add", "D4", "PayLst",
         TypedRows({}, {{u"SK8"_s, u"2024-03-15"_s, u"华兴"_s, u"20"_s, u""_s, u""_s}}), Save},
        {"PayLst_Edit", "D3", "PayLst",
         TypedRows(u"FK1"_s, {{u"FK1"_s, u"2024-03-14"_s, u"环洋"_s, u"9"_s, u""_s, u""_s}}), Save},
        {"PayLst_Delete", "D3", "PayLst", OnLine(u"FK1"_s), Delete},
        {"ReKuan_All", "D8", "KuanMx", SpoilBalances, Refresh(0)},
        {"ReKuan_One", "D8", "KuanMx", SpoilBalances, Refresh(1)},
        {"KuanMx_Print", "D8", "KuanMx", Listed({}), Print},
        {"KuanHz_Print", "D7", "KuanHz", Listed({}), Print},
        {"Ageing_Print", "", "", Aged, Print},
        {"C01_Print", "C1", "C01", Listed(u"H1"_s), Print},
        {"C02_Print", "C2", "C02", Listed(u"C1"_s), Print},
        {"C03_Print", "C3", "C03", Listed(u"H1"_s), Print},
        {"C04_Print", "C4", "C04", Listed({}), Print},
        {"C05_Print", "C5", "C05", NewNotice, Print},
        {"C06_Print", "C6", "C06", Listed({}), Print},
        {"D201_Register", "", "", Shown(u"D2"_s),
         InDialog(u"D201"_s, u"A"_s, TypeInvoicePayment, u"Command2"_s)},
        {"D3_Print", "", "", Shown(u"D3"_s), Print},
        {"D3_Print2", "", "", Shown(u"D3"_s), [](Desk&) { AltKey(u'M'); }},
        {"History_Waybill", "", "", Written("History_Waybill"), PressButton},
        {"History_Customer", "", "", Written("History_Customer"), PressButton},
        {"History_Overwrite", "", "", Written("History_Overwrite"), PressButton},
        {"History_Zone", "", "", Written("History_Zone"), PressButton},
        {"ChannelBill_Compare", "", "", BillChosen, PressButton},
        {"S01_Save",
         "",
         "",
         {},
         InDialog(
             u"S01"_s, u"S1"_s, [](QWidget& dialog) { PressIn(dialog, u"CmdOK"_s); }, u"CmdCancel"_s)},
        {"S02_Add", "S2", "S02", Typed({}, {{0, u"8"_s}, {1, u"新人"_s}, {2, u"密码"_s}}), Save},
        {"S02_Edit", "S2", "S02", Typed(u"乙"_s, {{0, u"7"_s}, {1, u"旧人"_s}}), Save},
        {"S02_Delete", "S2", "S02", OnLine(u"乙"_s), Delete},
        {"S03_Clear", "", "", {}, InDialog(u"S03"_s, u"S3"_s, ClearAll, u"Cmd(1)"_s)},
        {"S2_Change", "", "", {}, InDialog(u"S2"_s, u"H2"_s, TypeNewPassword, u"Cmd(1)"_s)},
        {"S32_Restore",
         "",
         "",
         {},
         InDialog(u"S32"_s, u"S5"_s, [](QWidget& dialog) { PressIn(dialog, u"Command1"_s); })},
    };
    commands.insert(commands.end(), others.begin(), others.end());
    return commands;
}

}  // namespace

const std::vector<Command>& WritingCommands() {
    static const std::vector<Command> commands = Made();
    return commands;
}

const Command& CommandOf(const std::string& name) {
    for (const Command& command : WritingCommands())
        if (command.name == name) return command;
    throw std::runtime_error("no command " + name);
}

QStringList CommandMasters() {
    QStringList rows = FaultMasters();
    for (const auto& table :
         {u"M01"_s, u"M02"_s, u"M03"_s, u"M030"_s, u"M04"_s, u"M05"_s, u"M06"_s, u"TE1"_s})
        for (const auto& values : {u"'甲','一'"_s, u"'乙','二'"_s})
            rows += u"insert into %1 (F1,F2) VALUES (%2)"_s.arg(table, values);
    const auto waybill = [&](const QString& number, const QString& day, const QString& mark) {
        rows +=
            u"insert into B01 (F1,F101,F203,F2031,F201,F202,F301,F501,F504,F507,F602,F603,F604) VALUES ('"_s +
            number + u"','"_s + day + u"','Z1','纽约','上海','H1','S','月结',50,30,'张三','C1','"_s + mark +
            u"')"_s;
    };
    waybill(u"W1"_s, u"2024-03-16"_s, u"管理员"_s);
    waybill(u"W2"_s, u"2024-03-17"_s, u"未审核"_s);
    const auto entry = [&](const QString& key, int lb, int sn, const QString& day, const QString& party,
                           int qc, int yf) {
        rows +=
            u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values (%1,%2,'%3','%4','%5',%6,%7,%8,'管理员')"_s
                .arg(sn)
                .arg(lb)
                .arg(key, day, party)
                .arg(yf)
                .arg(qc)
                .arg(qc + yf);
    };
    entry(u"YSW1"_s, -9, 131, u"2024-03-16"_s, u"华兴"_s, 0, 50);
    entry(u"YFW1"_s, 9, 132, u"2024-03-16"_s, u"环洋"_s, 0, 30);
    entry(u"YSW2"_s, -9, 162, u"2024-03-17"_s, u"华兴"_s, 50, 50);
    return rows + QStringList{
                      u"insert into TB1 (SN,LB,S2,F1,F2,F3,FK,QC,QM,F5,F6) values "_s +
                          u"(133,10,'付款','FK1','2024-03-16','环洋',10,30,20,'管理员','管理员')"_s,
                      u"update SysInfo set Setval=162 where ID=100"_s,
                      u"update M02 set F3='甲',P101=10,P102=5,P201=12,P202=6 where F1='甲'"_s,
                      u"insert into B01 (F1,F101,F201,F202,F203,F602,F603,F604) VALUES "_s +
                          u"('W8','2024-03-18','甲','甲','甲','甲','甲','未审核')"_s,
                      u"insert into B011 (F1,F2,F3,F4,F5) VALUES ('W1','C1','Z1','2024-03-16','11 0 0 50')"_s,
                      u"insert into B011 (F1,F2,F3,F4,F5) VALUES ('W8','甲','甲','2024-03-18','11 0 0 1')"_s,
                      u"insert into M021 (F0,F1) VALUES ('甲','东京')"_s,
                      u"insert into M021 (F0,F1) VALUES ('乙','首尔')"_s,
                      u"insert into M011 (F1,F2,F3) VALUES ('乙','二','H1')"_s,
                      u"insert into M0111 (F0,F1) VALUES ('乙','首尔')"_s,
                      u"insert into M031 (F0,F1,F2) VALUES ('甲','Z1',1)"_s,
                      u"insert into M031 (F0,F1,F2) VALUES ('乙','Z1',1)"_s,
                      u"insert into M031 (F0,F1,F2) VALUES ('乙','甲',2)"_s,
                  };
}

void WriteBefore(const std::string& command) {
    for (const QString& statement : WrittenBefore().at(command)) Db->ExecuteEngine(statement);
    Db->CloseGroup();
}

void Prepare(Desk& desk, const Command& command) {
    if (*command.keys) desk.Open(QString::fromLatin1(command.keys), QString::fromLatin1(command.form));
    if (command.prepare) command.prepare(desk);
}

void Select(Desk& desk, const QString& text, int column) {
    auto& grid = desk.Grid();
    for (int row = 1; row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, column) != text) continue;
        // Away first: after a save the current record is the last one, whatever line is marked.
        grid.SetRow(row == 1 ? grid.Rows() - 1 : 1);
        return grid.SetRow(row);
    }
    throw std::runtime_error("not in the list: " + text.toStdString());
}

void AddQuote(Desk& desk, const QString& zone, const QString& coefficient) {
    desk.Enter(u"TxtHPBM"_s);
    for (const QString& text : {zone, coefficient}) {
        TypeOver(text);
        Press(Qt::Key_Return);
    }
}

}  // namespace tests
