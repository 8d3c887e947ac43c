// The waybill's form, driven by keys, against a real file: entering, pricing, saving, posting, refusing.
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/waybill_fields.h"

#include <gtest/gtest.h>
#include <set>

using namespace waybills;

namespace tests {
namespace {

class WaybillForm : public Program {
  public:
    explicit WaybillForm(const QStringList& more = {}, const QString& operatorCode = u"001"_s)
        : Program(WaybillMasters() + more, operatorCode) {
        Open(u"B"_s, u"B01"_s);
    }

    void EnterBox(int box) { Enter(u"Txt(%1)"_s.arg(box)); }

    /// The shortest waybill that saves, entered in the order of Tab; the total comes from the charge.
    struct Entry {
        QString number = u"W1"_s;
        QString customer = u"C1.华兴"_s;
        QString service = u"S"_s;
        QString weight = u"3"_s;
        QString fuel = u"1"_s;
        QString date = u"2024-03-15"_s;
        bool released = false;
        QString channel = u""_s;
        QString shipped = u""_s;
        QString cost = u""_s;
    };

    /// From Menu_Add to just before the save.
    void Fill(const Entry& entry) {
        AltKey(u'A');
        TypeOver(entry.customer);
        if (entry.released) {
            GoTo(u"ChkChuHuo"_s);
            Press(Qt::Key_Space);
        }
        GoTo(u"Txt(0)"_s);
        Type(entry.number);
        At<controls::DTPicker>(u"DTP"_s).SetValue(QDate::fromString(entry.date, Qt::ISODate));
        const std::pair<QString, QString> rest[] = {
            {u"Cmb(4)"_s, u"上海"_s},      {u"Cmb(6)"_s, u"Z1"_s},        {u"Cmb(7)"_s, u"纽约"_s},
            {u"Cmb(5)"_s, entry.channel},  {u"Cmb(17)"_s, entry.service}, {u"Txt(21)"_s, entry.weight},
            {u"Txt(23)"_s, entry.shipped}, {u"Txt(33)"_s, entry.fuel},    {u"Txt(28)"_s, {}},
            {u"Txt(34)"_s, entry.cost}};
        for (const auto& [control, text] : rest) {
            GoTo(control);
            if (!text.isEmpty()) TypeOver(text);
        }
    }
    void Add(const Entry& entry) {
        Fill(entry);
        AltKey(u'S');
        EXPECT_FALSE(EditInProgress) << entry.number.toStdString();
    }
    QStringList Journal() { return Rows(u"select F1,F3,YF,SN,QC,QM from TB1 order by SN"_s); }
};

TEST(B01, AConsignmentTravelsFromTheKeysToTheBalance) {
    WaybillForm form;
    form.Add({.number = u"W1"_s, .weight = u"3"_s});
    EXPECT_EQ(
        form.Rows(u"select F1,F101,F201,F202,F203,F2031,F2041,F2052,F301,F402,F501,F502,F504,F505,F601,F602,"
                  u"F603,F604,DF,YJ,XJ from B01"_s),
        QStringList{u"W1|2024-03-15|上海||Z1|纽约|华兴公司|Pudong|S|3|月结|115|115|1|管理员|张三|C1|未审核|"
                    u"0|115|0"_s});
    EXPECT_EQ(form.Rows(u"select S2,SN,LB,F1,F2,F3,YF,FK,QC,QM,S1,F5,F6,F10,H8,K from TB1"_s),
              QStringList{u"增加应收|131|-9|YSW1|2024-03-15|华兴|115|0|0|115|张师傅|管理员|管理员||"
                          u"2024-03-15 10:00:00|0"_s});
    EXPECT_EQ(form.Lines(), QStringList{u"W1|2024-03-15|纽约|S||月结||C1.华兴|张三|未审核|"_s})
        << "until the next load the customer shows as code and name";
    EXPECT_EQ(form.Status(), u"速递单：共 1 条记录 当前为第 1 条"_s);

    // The same day 2 above the one before; a newer day 31; a day in between a quarter of the way.
    form.Add({.number = u"W2"_s, .service = u"D"_s, .weight = u"1.2"_s});
    form.Add({.number = u"W3"_s, .weight = u"30"_s, .date = u"2024-03-20"_s});
    form.Add({.number = u"W4"_s, .weight = u"50"_s, .date = u"2024-03-18"_s});
    EXPECT_EQ(form.Journal(),
              (QStringList{u"YSW1|华兴|115|131|0|115"_s, u"YSW2|华兴|50|133|115|165"_s,
                           u"YSW4|华兴|1525|140.75|165|1690"_s, u"YSW3|华兴|360|164|1690|2050"_s}));
    EXPECT_EQ(form.Rows(u"select Setval from SysInfo where ID=100"_s), QStringList{u"165"_s})
        << "the back-dated entry moved the counter by 1 all the same";
}

TEST(B01, APaymentModeTakesTheTotalIntoItsColumn) {
    WaybillForm form;
    const struct {
        QString typed, split;
    } modes[] = {{u"月结"_s, u"0|115|0"_s}, {u"现金.Cash"_s, u"0|0|115"_s}, {u"到付"_s, u"115|0|0"_s}};
    int number = 0;
    for (const auto& mode : modes) {
        const QString key = u"P%1"_s.arg(++number);
        form.Fill({.number = key});
        form.SetCombo(PaymentMode, mode.typed);
        AltKey(u'S');
        EXPECT_EQ(form.Rows(u"select DF,YJ,XJ from B01 where F1='"_s + key + u"'"_s),
                  QStringList{mode.split});
    }
}

TEST(B01, ReleasedPostsThePayable) {
    WaybillForm form;
    form.Add(
        {.number = u"W1"_s, .released = true, .channel = u"H1.环洋"_s, .shipped = u"3"_s, .cost = u"80.5"_s});
    EXPECT_EQ(form.Rows(u"select F202,F2021,F507,F604 from B01"_s), QStringList{u"H1|H1-1|80.5|管理员"_s})
        << "leaving the channel chose its first zone";
    EXPECT_EQ(form.Journal(), (QStringList{u"YSW1|华兴|115|131|0|115"_s, u"YFW1|环洋|80.5|132|0|80.5"_s}));

    // An edit brings both rows anew; unchecked, the payable goes. With no other row left the day counts as
    // new.
    AltKey(u'E');
    form.GoTo(u"Txt(28)"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Journal(), (QStringList{u"YSW1|华兴|115|162|0|115"_s, u"YFW1|环洋|80.5|163|0|80.5"_s}));
    AltKey(u'E');
    form.GoTo(u"ChkChuHuo"_s);
    Press(Qt::Key_Space);
    EXPECT_EQ(form.Box(ReleaseMark), u"未出货"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Journal().size(), 1);
    EXPECT_EQ(form.Rows(u"select F604 from B01"_s), QStringList{u"未出货"_s});

    // Without a channel a released waybill posts a payable to nobody.
    form.Add({.number = u"W2"_s, .released = true});
    EXPECT_TRUE(form.Journal().contains(u"YFW2||0|196|0|0"_s)) << form.Journal().join(u'\n').toStdString();
}

TEST(B01, EditMayChangeTheNumberButNotToATakenOne) {
    WaybillForm form;
    form.Add({.number = u"W1"_s});
    form.Add({.number = u"W2"_s});
    AltKey(u'E');
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    form.SetBox(Number, u"w1"_s);
    form.script.Box(u"[W1]已经使用了w1这个速递单号，请重新设置!"_s, Title);
    AltKey(u'S');
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(form.Journal().size(), 2) << "nothing has been written";
    form.SetBox(Number, u"W9"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F1 from B01 order by F1"_s), (QStringList{u"W1"_s, u"W9"_s}));
    EXPECT_EQ(form.Rows(u"select F1 from TB1 order by F1"_s), (QStringList{u"YSW1"_s, u"YSW9"_s}));
}

TEST(B01, RefusalsInTheirOrder) {
    WaybillForm form;
    form.Add({.number = u"W0"_s});
    form.Execute(u"update TE1 set F67=7"_s);
    AltKey(u'A');
    for (const int box : {CustomerCode, Courier, ServiceType, PaymentMode, ServiceZoneCode, OriginName})
        form.SetCombo(box, u" "_s);
    const struct {
        Box box;
        QString caption, bad;
    } required[] = {{CustomerCode, u"发件客户"_s, u"无.此人"_s}, {Courier, u"外务员"_s, u"无此人"_s},
                    {ServiceType, u"服务类型"_s, u"X"_s},        {PaymentMode, u"付款方式"_s, u"赊"_s},
                    {ServiceZoneCode, u"目的区域"_s, u"Z9"_s},   {OriginName, u"始发地"_s, u"无此地"_s}};
    for (const auto& row : required) {
        form.RefusesToSave(u"请输入"_s + row.caption + u"!"_s);
        form.SetCombo(row.box, row.bad);
    }
    EXPECT_EQ(form.Rows(u"select F67 from TE1"_s), QStringList{u"7"_s});
    form.RefusesToSave(u"请输入目的地!"_s);
    EXPECT_EQ(form.Rows(u"select F67 from TE1"_s), QStringList{u"-1"_s})
        << "remembered, though the save failed";
    form.SetCombo(Destination, u".只有点"_s);
    form.SetCombo(ChannelCode, u"H9"_s);
    const struct {
        Box box;
        QString caption, good;
    } masters[] = {{CustomerCode, u"发件客户"_s, u"C2"_s}, {ChannelCode, u"出货渠道"_s, u""_s},
                   {OriginName, u"始发地"_s, u"苏州"_s},   {ServiceZoneCode, u"目的区域"_s, u"Z1"_s},
                   {Courier, u"外务员"_s, u"李四"_s},      {ServiceType, u"服务类型"_s, u"D.文件(File)"_s},
                   {PaymentMode, u"付款方式"_s, u"现金"_s}};
    for (const auto& row : masters) {
        form.RefusesToSave(row.caption + u"输入错误！"_s);
        form.SetCombo(row.box, row.good);
    }
    form.RefusesToSave(u"请输入速递单号!"_s);
    form.SetBox(Number, u"W0"_s);
    form.RefusesToSave(u"请输入目的地!"_s);
    form.SetCombo(Destination, u"纽约"_s);
    form.RefusesToSave(u"请输入总计费用!"_s);
    for (const int box : {OtherFees, FuelRate}) form.SetBox(box, u"-5"_s);
    form.SetBox(AdditionalCharge, u"0"_s);
    form.EnterBox(TotalCharge);
    EXPECT_EQ(form.Box(TotalCharge), u"-5.00"_s);
    form.RefusesToSave(u"[W0]已经使用了W0这个速递单号，请重新设置!"_s);
    form.SetBox(Number, u"W1"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F1,F504,XJ,F2031 from B01 order by F1"_s).last(), u"W1|-5|-5|纽约"_s)
        << "a negative total passes";
    EXPECT_EQ(form.Rows(u"select F67 from TE1"_s), QStringList{u"1"_s});
}

TEST(B01, ChargeIsAskedByEnteringItsBox) {
    WaybillForm form;
    AltKey(u'A');
    const auto enter = [&] {
        form.EnterBox(3);
        form.EnterBox(BasicCharge);
        return form.Box(BasicCharge);
    };
    form.script.Box(u"未输入发件客户，系统无法根据报价计算发件费用！"_s, Title);
    EXPECT_EQ(enter(), u""_s);
    form.SetCombo(CustomerCode, u"C1.华兴"_s);
    form.SetCombo(ServiceZoneCode, u"Z1.北美"_s);
    form.SetBox(ReceivedWeight, u"3kg"_s);
    form.SetCombo(ServiceType, u"S"_s);
    EXPECT_EQ(enter(), u"115"_s);
    Press(Qt::Key_A, Qt::ControlModifier);
    Type(u"９９。５"_s);
    EXPECT_EQ(form.Box(BasicCharge), u"99.5"_s) << "the operator may type another amount";
    form.SetBox(AdditionalCharge, u"5"_s);
    form.SetBox(FuelRate, u"1.1"_s);
    form.SetBox(OtherFees, u"2"_s);
    enter();
    form.EnterBox(TotalCharge);
    EXPECT_EQ(form.Box(TotalCharge), u"134.00"_s);
    form.Execute(u"delete from MS1"_s);
    form.script.Box(u"本公司报价标准设定数据丢失！请重新设置！"_s, u"意外错误"_s, sys::BoxIcon::Warning);
    ModalScript modals;
    modals.Next(u"S01"_s, [](QWidget& dialog) {
        Find<controls::Button>(dialog, u"CmdCancel"_s).SetFocus();
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(enter(), u"115"_s) << "after the dialog nothing is charged; the box has to be entered again";
    AltKey(u'C');
}

TEST(B01, CostIsAskedByEnteringItsBox) {
    WaybillForm form;
    AltKey(u'A');
    form.SetCombo(ServiceType, u"D.文件(File)"_s);
    const auto enter = [&](const QString& weight) {
        form.SetBox(ShippedWeight, weight);
        form.EnterBox(ShippingCost);
        return form.Box(ShippingCost);
    };
    EXPECT_EQ(enter(u"1.3"_s), u""_s) << "no channel, no cost and no word";
    EXPECT_EQ(form.Box(ChannelFuelRate), u""_s);
    form.SetCombo(ChannelCode, u"H1"_s);
    form.SetBox(ChannelAdditionalFees, u"3"_s);
    form.script.Box(u"未输入出货重量，系统无法计算出货成本！"_s, Title);
    enter(u"0"_s);
    EXPECT_EQ(enter(u"1.3"_s), u"39.00"_s);
    EXPECT_EQ(form.Box(ChannelFuelRate), u"1"_s) << "the empty factor shows as taken";
    form.SetBox(ChannelFuelRate, u"2"_s);
    form.SetBox(ChannelOtherFees, u"2"_s);
    EXPECT_EQ(enter(u"1.3"_s), u"46.00"_s);
    form.SetBox(ChannelOtherFees, u"1"_s);
    form.Execute(u"update M011 set P102=null"_s);
    form.script.Box(u"无效使用 Null"_s, Title);
    EXPECT_EQ(enter(u"1.3"_s), u"46.00"_s) << "nothing to format: the box stays and the program goes on";
    Type(u"77"_s);
    EXPECT_EQ(form.Box(ShippingCost), u"77"_s) << "an amount typed afterwards remains";
    AltKey(u'C');
}

TEST(B01, CombosFollowWhatWasChosen) {
    WaybillForm form({u"insert into M011 (F1,F2,F3) VALUES ('A0','别家','H2')"_s,
                      u"insert into M021 (F0,F1) VALUES ('Z2','利马')"_s});
    AltKey(u'A');
    EXPECT_EQ(FocusName(), u"Cmb(31)"_s);
    EXPECT_EQ(form.Combo(PaymentMode), u"月结.Account"_s);
    EXPECT_EQ(form.Combo(Courier), u"张三"_s);
    form.SetCombo(CustomerCode, u"C1.华"_s);
    form.EnterBox(ShipperAddress);
    EXPECT_EQ(form.Combo(CustomerCode), u"C1.华兴"_s);
    EXPECT_EQ(form.Box(ShipperCompany), u"华兴公司"_s);
    EXPECT_EQ(form.script.InputMethodSwitches(), 1);
    form.SetBox(ShipperCompany, u"分公司"_s);
    form.Enter(u"Cmb(31)"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(ShipperCompany), u"分公司"_s) << "left unchanged, the customer overwrites nothing";
    form.SetCombo(Destination, u"别处"_s);
    form.SetCombo(ServiceZoneCode, u"Z1"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.ComboAt(Destination).ListCount(), 2);
    EXPECT_EQ(form.Combo(Destination), u"别处"_s) << "a typed destination survives";
    form.SetCombo(ChannelCode, u"H1"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Combo(ChannelZoneCode), u"H1-1.美东"_s);
    form.SetCombo(ChannelCode, u""_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.ComboAt(ChannelZoneCode).ListCount(), 2)
        << "left empty it keeps the zones of the one before";
    AltKey(u'C');
}

/// Another form was looked at meanwhile.
TEST(B01, ComingBackToTheCardEntersNoBoxAnew) {
    WaybillForm form({u"insert into M03 (F1,F2,F301) VALUES ('C7','恒丰','恒丰公司')"_s});
    const auto lookElsewhere = [&] {
        form.Frame().ShowChild(u"A06"_s);
        Settle();
        form.Frame().ShowChild(u"B01"_s);
        Settle();
    };
    AltKey(u'A');
    TypeOver(u"C7"_s);
    lookElsewhere();
    EXPECT_EQ(FocusName(), u"Cmb(31)"_s);
    Press(Qt::Key_Tab);
    EXPECT_EQ(form.Box(ShipperCompany), u"恒丰公司"_s) << "the customer is left now, and not before";
    form.SetCombo(ServiceType, u"D.文件(File)"_s);
    form.EnterBox(TotalCharge);
    TypeOver(u"88"_s);
    lookElsewhere();
    Press(Qt::Key_Tab);
    EXPECT_EQ(form.Box(TotalCharge), u"88"_s) << "what was typed stays";
    AltKey(u'C');
}

TEST(B01, TheCardReadsDressedAndANewOneKeepsTheRest) {
    WaybillForm form(
        {u"insert into B01 (F1,F101,F201,F202,F203,F301,F501,F602,F603,F604,F2021,F605,F508,F509,F4051) "
         u"VALUES ('W1','2024-1-5','上海','H1','Z9','?','赊账','张三','C1','管理员','H1-2','老王',2,3,40)"_s});
    form.Tabs().SelectItem(2);
    const struct {
        Box box;
        QString text;
    } shown[] = {{ChannelCode, u"H1.环洋"_s},
                 {ServiceZoneCode, u"Z9."_s},
                 {ServiceType, u"S.物品(Parcel)"_s},
                 {PaymentMode, u"赊账"_s},
                 {Courier, u"张三.张师傅"_s},
                 {CustomerCode, u"C1.华兴"_s},
                 {ChannelZoneCode, u"H1-2.美西"_s},
                 {OtherFees, u"2"_s},
                 {Length, u"40"_s},
                 {BasicCharge, u""_s}};
    for (const auto& row : shown) EXPECT_EQ(form.Box(row.box), row.text) << row.box;
    EXPECT_EQ(form.At<controls::CheckBox>(u"ChkChuHuo"_s).Value(), 1);
    AltKey(u'A');
    EXPECT_EQ(form.At<controls::CheckBox>(u"ChkChuHuo"_s).Value(), 0);
    EXPECT_EQ(form.Combo(ChannelZoneCode), u"H1-2.美西"_s);
    EXPECT_EQ(form.Box(SignedBy), u"老王"_s);
    EXPECT_EQ(form.Box(ChannelOtherFees), u"3"_s);
    EXPECT_EQ(form.Box(Courier), u""_s);
    AltKey(u'C');
    EXPECT_EQ(form.Box(CustomerCode), u"C1.华兴"_s);

    // A row that is gone empties the card but for the fees.
    form.Execute(u"delete from B01"_s);
    AltKey(u'A');
    AltKey(u'C');
    EXPECT_EQ(form.Box(CustomerCode), u""_s);
    EXPECT_EQ(form.Box(Length), u""_s);
    EXPECT_EQ(form.Box(OtherFees), u"2"_s);
}

TEST(B01, TheListShowsNamesAndKeepsItsOddities) {
    WaybillForm form(
        {u"insert into M01 (F1,F2) VALUES ('N','3')"_s,
         u"insert into B01 (F1,F101,F202,F603,F401) VALUES ('W2','2024-02-01','N','C9',2)"_s,
         u"insert into B01 (F1,F101,F202,F603,F401) VALUES ('W1','2024-01-05','H1','C2',12.5)"_s});
    EXPECT_EQ(form.Lines(),
              (QStringList{u"W1|2024-01-05|||12.5||环洋|恒丰|||"_s, u"W2|2024-02-01|||2||3.00||||"_s}));
}

const QString ReleasedWaybill =
    u"insert into B01 (F1,F101,F203,F2031,F201,F202,F301,F501,F504,F507,F602,F603,F604) VALUES "_s +
    u"('W1','2024-03-01','Z1','纽约','上海','H1','S','月结',115,80,'张三','C1','管理员')"_s;

TEST(B01, RightsDecideWhatIsSeenAndEdited) {
    const QStringList rows = {
        u"insert into TE1 (F1,F2,F61,F64,F65) VALUES ('002','小王',1,0,0)"_s, ReleasedWaybill,
        u"insert into B01 (F1,F101,F203,F2031,F201,F202,F301,F501,F504,F507,F602,F603,F604) VALUES "
        u"('W2','2024-03-02','Z1','纽约','上海','H1','S','月结',50,30,'张三','C1','未审核')"_s};
    WaybillForm form(rows, u"002"_s);
    form.Grid().SetRow(2);
    AltKey(u'E');
    EXPECT_EQ(form.Box(Maker), u"小王"_s);
    const std::set<int> figures = {ChannelCode,     ShippedWeight, BasicCharge,      AdditionalCharge,
                                   TotalCharge,     FuelRate,      ShippingCost,     ChannelFuelRate,
                                   ChannelZoneCode, OtherFees,     ChannelOtherFees, ChannelAdditionalFees};
    for (int i = 0; i < BoxCount; ++i) {
        const auto* box = qobject_cast<QLineEdit*>(form.TextBoxAt(i).Widget());
        EXPECT_EQ(box->echoMode() != QLineEdit::Normal, figures.contains(i)) << i;
        EXPECT_EQ(box->isEnabled(), !figures.contains(i)) << i;
    }
    EXPECT_FALSE(form.ComboAt(ChannelCode).isVisible());
    EXPECT_TRUE(form.ComboAt(ServiceZoneCode).isVisible());
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F504,F202,F601 from B01 where F1='W2'"_s), QStringList{u"50|H1|小王"_s})
        << "an edit that keeps a stored total saves";
}

TEST(B01, ANumberInUseIsMarkedWhenItsTextBoxIsLeft) {
    WaybillForm form({u"insert into B01 (F1,F101,F604) values ('W3','2024-03-13','未审核')"_s,
                      u"insert into B01 (F1,F101,F604) values ('W4','2024-03-14','未审核')"_s});
    const QString refusal = u"[W3]已经使用了w3这个速递单号，请重新设置!"_s;
    const auto leave = [&](const QString& number) {
        form.SetBox(Number, number);
        Press(Qt::Key_Return);
        EXPECT_NE(FocusName(), u"Txt(0)"_s) << "the focus moves on";
        return form.TextBoxAt(Number).Widget()->toolTip();
    };
    const auto marked = [&] { return form.TextBoxAt(Number).Widget()->property("state").toString(); };
    AltKey(u'A');
    const QString before = form.Status();
    EXPECT_EQ(leave(u"w3 "_s), u"[W3]已经使用了w3 这个速递单号，请重新设置!"_s);
    EXPECT_EQ(leave(u"w3"_s), refusal);
    EXPECT_EQ(form.Status(), refusal);
    EXPECT_EQ(marked(), u"error"_s);
    for (const QString& free : {u"W9"_s, u"O'W3"_s, u""_s}) {
        EXPECT_EQ(leave(free), QString());
        EXPECT_EQ(form.Status(), before);
        EXPECT_EQ(marked(), QString());
    }
    EXPECT_EQ(leave(u"w3"_s), refusal);
    AltKey(u'C');
    EXPECT_EQ(marked(), QString());
    EXPECT_EQ(form.Status(), u"速递单：共 2 条记录 当前为第 1 条"_s);
    form.GoToRow(2);
    AltKey(u'E');
    EXPECT_EQ(leave(form.Box(Number)), QString()) << "its own number";
    EXPECT_EQ(leave(u"w3"_s), refusal);
    AltKey(u'C');
}

}  // namespace
}  // namespace tests
