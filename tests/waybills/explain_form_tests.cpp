// The explanation on the waybill's card, driven by keys: when it opens and closes, that it changes nothing,
// who sees what, what is stored with the waybill, copied and printed.
#include "platform/report/report_control.h"
#include "reports/printing.h"
#include "schema/data_files.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/explanation_panel.h"
#include "waybills/waybill_fields.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>

#include <gtest/gtest.h>

using namespace waybills;

namespace tests {
namespace {

const QString PlainWaybill =
    u"insert into B01 (F1,F101,F201,F202,F2021,F203,F2031,F301,F402,F404,F501,F502,F503,F504,F505,F506,F507,"_s +
    u"F508,F602,F603,F604) values ('W1','2024-03-01','上海','H1','H1-1','Z1','纽约','S',3,3,'月结',115,0,115,1,"_s +
    u"1,66,0,'张三','C1','未审核')"_s;

class Explaining : public Program {
  public:
    explicit Explaining(const QStringList& more = {}, const QString& operatorCode = u"001"_s)
        : Program(WaybillMasters() + more, operatorCode) {
        Open(u"B"_s, u"B01"_s);
    }
    void EnterBox(int box) { Enter(u"Txt(%1)"_s.arg(box)); }
    ExplanationPanel* Panel() { return Frame().Front()->findChild<ExplanationPanel*>(); }
    bool IsOpen() { return Panel() && Panel()->isVisible(); }
    /// All that the panel says; "" while it is closed.
    QString Words() { return IsOpen() ? Panel()->accessibleDescription() : QString(); }
    bool Says(const QString& words) { return Words().contains(words); }
    /// A waybill of 3 kg, up to its fees.
    void Begin(const QString& number) {
        AltKey(u'A');
        SetBox(Number, number);
        const std::pair<waybills::Box, QString> combos[] = {
            {CustomerCode, u"C1.华兴"_s}, {ServiceZoneCode, u"Z1.北美"_s}, {ServiceType, u"S.物品(Parcel)"_s},
            {OriginName, u"上海"_s},      {Destination, u"纽约"_s},        {ChannelCode, u"H1.环洋"_s}};
        for (const auto& [box, text] : combos) {
            SetCombo(box, text);
            Press(Qt::Key_Return);
        }
        SetBox(ReceivedWeight, u"3"_s);
        SetBox(ShippedWeight, u"3"_s);
        SetBox(FuelRate, u"1"_s);
    }
    void Save() {
        AltKey(u'S');
        EXPECT_FALSE(EditInProgress);
    }
    QStringList StoredSteps() { return Rows(u"select F1,F2,F3,F4,F6,F7,F8 from B011 order by F1"_s); }
};

TEST(Explanations, OpenByF1AndCloseWithoutChangingAnything) {
    Explaining form;
    form.Begin(u"W1"_s);
    form.EnterBox(BasicCharge);
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"框中没有金额"_s)) << "the cost was not computed yet";
    EXPECT_EQ(form.Box(ShippingCost), u""_s);
    EXPECT_EQ(form.Box(ChannelFuelRate), u""_s);
    EXPECT_EQ(FocusName(), u"Txt(26)"_s);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_TRUE(EditInProgress);
    EXPECT_EQ(FocusName(), u"Txt(26)"_s);

    Press(Qt::Key_F1);
    TypeOver(u"120"_s);
    EXPECT_TRUE(form.Says(u"框中为 120，由操作员填写\t+5.00"_s)) << "typing goes on under the panel";
    Press(Qt::Key_Return);
    EXPECT_FALSE(form.IsOpen()) << "leaving the box closes it";
    Press(Qt::Key_F1);
    EXPECT_FALSE(form.IsOpen()) << "no other box opens it";
    form.EnterBox(TotalCharge);
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"总计费用\t(120.00 + 附加 0.00) × 燃油费率 1 + 其它 0.00\t120.00"_s));
    // What refuses is a row and no message box; what the card has become since is said.
    form.SetBox(ReceivedWeight, u"30"_s);
    form.SetBox(ShippedWeight, u""_s);
    form.EnterBox(TotalCharge);
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"3 公斤"_s));
    EXPECT_TRUE(form.Says(u"算出之后，单据的内容有改动"_s));
    EXPECT_TRUE(form.Says(u"未输入出货重量，系统无法计算出货成本！"_s));
    AltKey(u'C');
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(form.Rows(u"select count(*) from B011"_s), QStringList{u"0"_s});
}

TEST(Explanations, AreStoredAndStayWhenThePricesChange) {
    Explaining form;
    form.Begin(u"W1"_s);
    form.EnterBox(BasicCharge);
    form.EnterBox(ShippingCost);
    form.EnterBox(TotalCharge);
    form.Save();
    EXPECT_EQ(form.StoredSteps(), QStringList{u"W1|C1|Z1|2024-03-15|H1|H1-1|2024-03-15"_s});
    form.Execute(u"update M031 set F4=80,F5=1"_s);
    form.Execute(u"update M011 set P201=1,P202=1"_s);
    Press(Qt::Key_F1);
    EXPECT_EQ(FocusName(), u"TabS"_s);
    EXPECT_TRUE(form.Says(u"基本费用\t首重 + 续重\t115.00"_s));
    EXPECT_TRUE(form.Says(u"出货成本\t(30.00 + 36.00 + 0.00) × 燃油费率 1（未填）\t66.00"_s));
    EXPECT_TRUE(form.Says(u"按 2024-03-15 的资料算出"_s));
    EXPECT_FALSE(form.Says(u"框中"_s));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form.IsOpen());

    // An edit keeps the steps of an amount that it does not compute, under a new number too.
    AltKey(u'E');
    TypeOver(u"W2"_s);
    form.EnterBox(ShippingCost);
    TypeOver(u"5"_s);
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"首重\t首 0.5 公斤\t40.00"_s)) << "of the day of the save";
    EXPECT_TRUE(form.Says(u"首重\t首 0.5 公斤\t1.00"_s)) << "of today";
    form.Save();
    EXPECT_EQ(form.StoredSteps(), QStringList{u"W2|C1|Z1|2024-03-15|H1|H1-1|2024-03-15"_s});
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"基本费用\t首重 + 续重\t115.00"_s));
    EXPECT_TRUE(form.Says(u"框中为 5，由操作员填写\t+1.00"_s));

    form.script.Question(u"数据删除后将不可恢复！\r真的要删除单号为:W2的单据吗？"_s, u"警告"_s, true);
    AltKey(u'D');
    EXPECT_EQ(form.StoredSteps(), QStringList{});
}

TEST(Explanations, WithoutStoredStepsAreOfToday) {
    Explaining form({PlainWaybill, u"insert into B011 (F1,F5) values ('W1','not steps')"_s});
    Press(Qt::Key_F1);
    EXPECT_FALSE(form.IsOpen()) << "the list is in front";
    form.Tabs().SelectItem(2);
    form.Tabs().SetFocus();
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"按今日资料计算"_s));
    EXPECT_TRUE(form.Says(u"基本费用\t首重 + 续重\t115.00"_s));
    form.Tabs().SelectItem(1);
    form.Tabs().SelectItem(2);
    EXPECT_FALSE(form.IsOpen());
    // With other prices the waybill's amount is no longer what is computed.
    form.Execute(u"update M031 set F4=50"_s);
    form.Tabs().SetFocus();
    Press(Qt::Key_F1);
    EXPECT_TRUE(form.Says(u"框中为 115，与今日资料算出的不同\t−10.00"_s));
    // An edit that computes nothing stores nothing.
    AltKey(u'E');
    form.Save();
    EXPECT_EQ(form.StoredSteps(), QStringList{});
}

TEST(Explanations, ShowTheCostToTheAdministratorAlone) {
    struct Row {
        QString code;
        int seesFigures;
        bool charge, cost;
    };
    const Row rows[] = {{u"001"_s, 1, true, true}, {u"002"_s, 1, true, false}, {u"002"_s, 0, false, false}};
    for (const Row& row : rows) {
        Explaining form({PlainWaybill, u"insert into TE1 (F1,F2,F61,F65) values ('002','小王',1,%1)"_s.arg(
                                           row.seesFigures)},
                        row.code);
        form.Tabs().SelectItem(2);
        form.Tabs().SetFocus();
        Press(Qt::Key_F1);
        EXPECT_EQ(form.Says(u"客户报价"_s), row.charge);
        EXPECT_EQ(form.Says(u"渠道成本"_s), row.cost);
        EXPECT_EQ(form.Says(u"66.00"_s), row.cost);
        if (!row.charge || row.cost) continue;
        AltKey(u'E');
        form.EnterBox(ShippingCost);
        Press(Qt::Key_F1);
        EXPECT_TRUE(form.Says(u"客户报价"_s));
        EXPECT_FALSE(form.Says(u"渠道成本"_s)) << "in the cost's own text box too";
        AltKey(u'C');
    }
}

TEST(Explanations, AreCopiedAndPrintedForTheCustomer) {
    Explaining form({PlainWaybill, u"update M02 set F2='O''Hara'"_s});
    form.Tabs().SelectItem(2);
    form.Tabs().SetFocus();
    Press(Qt::Key_F1);
    Press(Qt::Key_C, Qt::ControlModifier);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith(u"基本费用\t客户报价  C1.华兴 / Z1.O'Hara\t115.00\n收重\t3 公斤"_s));
    EXPECT_TRUE(copied.contains(u"\n\n出货成本\t渠道成本  H1.环洋 / H1-1.美东\t66.00\n"_s));
    form.script.Box(u"报表文件prntb01.rpt丢失!"_s, Title);
    Press(Qt::Key_P, Qt::ControlModifier);
    schema::MakeLayout(AppFolder + u"prntb01.rpt"_s);
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(form.Rows(u"select F1,F3,F4 from PRNTB01"_s),
              (QStringList{u"收重|3|0"_s, u"计费段||0"_s, u"首重|40.00|0"_s, u"续重|75.00|0"_s,
                           u"基本费用|115.00|1"_s, u"总计费用|115.00|1"_s}));
    auto& print = dynamic_cast<Prnt&>(*form.Frame().Front());
    EXPECT_EQ(print.Cry->Formulas[3], u"QY='Z1.O’Hara'"_s);
    AltKey(u'R');
    EXPECT_TRUE(form.IsOpen());

    // The list has no explanation.
    form.Tabs().SelectItem(1);
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(form.Frame().Front()->objectName(), u"B01"_s);
    form.Tabs().SelectItem(2);
    EXPECT_FALSE(form.IsOpen());

    // In an edit the amounts are not the customer's yet.
    AltKey(u'E');
    form.EnterBox(BasicCharge);
    TypeOver(u"100"_s);
    Press(Qt::Key_F1);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"框中为 100，由操作员填写\t−15.00"_s));
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(form.Frame().Front()->objectName(), u"B01"_s);
    form.EnterBox(TotalCharge);
    form.Save();
    Press(Qt::Key_F1);
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(form.Rows(u"select F1,F2,F3 from PRNTB01 where F4='1'"_s),
              (QStringList{u"基本费用|首重 + 续重|115.00"_s, u"基本费用|另行议定|100.00"_s,
                           u"总计费用|(100.00 + 附加 0.00) × 燃油费率 1 + 其它 0.00|100.00"_s}));
    AltKey(u'R');
}

// On a window that is too low for the card it moves with the card, whole, and covers nothing it explains.
TEST(Explanations, FollowTheCardThatIsScrolledOnALowWindow) {
    Explaining form({PlainWaybill});
    form.Tabs().SelectItem(2);
    form.Frame().setMinimumSize(400, 200);
    int shown = 0, hidden = 0;
    for (const int height : {480, 400, 340, 240}) {
        form.Frame().resize(853, height);
        Settle();
        Press(Qt::Key_F1);
        auto* const card = form.Frame().Front()->findChild<QScrollArea*>();
        QScrollBar& bar = *card->verticalScrollBar();
        EXPECT_TRUE(form.IsOpen() || height < 340) << height;
        bar.setValue(bar.minimum());
        Press(Qt::Key_F1);
        EXPECT_TRUE(form.IsOpen() || height < 340) << height;
        for (int value = bar.minimum(); value <= bar.maximum(); value += 7) {
            bar.setValue(value);
            const QWidget& box = *form.TextBoxAt(BasicCharge).Widget();
            ++(form.IsOpen() ? shown : hidden);
            if (!form.IsOpen()) continue;
            EXPECT_GE(form.Panel()->y(), 0) << height << ' ' << value;
            const int bottom = form.Panel()->mapToGlobal(QPoint(0, form.Panel()->height())).y();
            EXPECT_EQ(box.mapToGlobal(QPoint()).y() - bottom, 2) << height << ' ' << value;
        }
        Press(Qt::Key_Escape);
    }
    EXPECT_GT(shown, 10);
    EXPECT_GT(hidden, 10);
}

TEST(Explanations, OpenFromTheContextMenuOfTheirTextBoxes) {
    Explaining form({PlainWaybill});
    form.Tabs().SelectItem(2);
    AltKey(u'E');
    for (const Box box : {BasicCharge, TotalCharge, ShippingCost}) {
        form.EnterBox(box);
        QWidget& line = *form.TextBoxAt(box).Widget();
        QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(5, 5), line.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&line, &open);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        menu->findChild<QAction*>(u"Menu_Explain"_s)->trigger();
        menu->close();
        Settle();
        EXPECT_TRUE(form.IsOpen());
    }
    AltKey(u'C');
}

}  // namespace
}  // namespace tests
