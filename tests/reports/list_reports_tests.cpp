// The five list reports as an operator builds, exports and prints them: which waybills are on which, the
// sums, the refusals, and what a print leaves in its work table.
#include "tests/reports/report_desk.h"
#include "tests/waybills/waybill_company.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

/// Each waybill differs from W1 in what keeps it off a report. Today is the 15th of March.
QStringList Masters() {
    QStringList rows = WaybillMasters() + QStringList{
                                              u"insert into M01 (F1,F2) VALUES ('H2','海运')"_s,
                                              u"update M03 set F8='孙丽萍' where F1='C1'"_s,
                                              u"insert into M03 (F1,F2,F8) VALUES ('C3','百川','孙丽萍')"_s,
                                              u"update M03 set F8='钱伟' where F1='C2'"_s,
                                          };
    const auto waybill = [&](const QString& values, const QString& courierAndRemark = u"'张三',''"_s) {
        rows +=
            u"insert into B01 (F1,F101,F202,F603,F604,F501,F504,XJ,YJ,DF,F507,F506,F301,F2031,F401,F402,"
            u"F404,F502,F503,F505,F508,F602,F103) VALUES ("_s +
            values + u',' + courierAndRemark + u')';
    };
    waybill(
        u"'W1','2024-03-15','H1','C1','管理员','月结',60.5,0,60.5,0,39,1.5,'D','纽约',1,1.25,1.3,50,5,1.1,2"_s,
        u"'张三','轻放'"_s);
    waybill(
        u"'W2','2024-03-15','H1','C1','管理员','现金',20.1,20.1,0,0,50.2,0,'S','东京',2,0.1,0.2,20,0,1,0"_s,
        u"'李四',null"_s);
    waybill(u"'W3','2024-03-15','H1','C2','未审核','月结',70,0,70,0,10,0,'S','首尔',1,2,2,70,0,1,0"_s);
    waybill(u"'W4','2024-03-15','H1','C1','未出货','月结',80,0,80,0,20,0,'S','巴黎',1,3,3,80,0,1,0"_s);
    waybill(u"'W5','2024-02-15','H1','C1','周婷','月结',0.2,0,0.2,0,0.1,0,'S','里昂',1,0.2,0.1,0.2,0,1,0"_s);
    waybill(u"'W6','2024-02-14','H1','C1','周婷','月结',90,0,90,0,30,0,'S','尼斯',1,4,4,90,0,1,0"_s);
    waybill(u"'W7','2024-03-15','','C3','未出货','月结',5,0,5,0,0,0,'S','伦敦',1,1,0,5,0,1,0"_s);
    waybill(u"'W8','2024-03-15','H2','C3','管理员','到付',15,0,0,15,16,0,'S','柏林',3,1,1.5,15,0,1,0"_s);
    return rows;
}

class ListReports : public testing::Test {
  protected:
    /// A second build, with a message in its way.
    void Refuses(const QString& choice, const QString& message, const QString& title) {
        desk.script.Box(message, title);
        desk.Refresh(choice);
        EXPECT_TRUE(desk.script.Done()) << message.toStdString();
    }
    ReportDesk desk{Masters()};
};

TEST_F(ListReports, TheManifestHasWhatWentOutOnTheDay) {
    desk.Open(u"C1"_s, u"C01"_s);
    EXPECT_EQ(desk.Status(), u"2024-03-15"_s);
    Refuses(u" "_s, u"请选择渠道!"_s, u"提示"_s);
    Refuses(u"NoFound"_s, u"您输入的渠道编码无效！"_s, MsgTitle);
    desk.Refresh(u" H1.环洋.北"_s);
    const QStringList lines{u"W1|D|华兴|纽约|1|1.3|0|轻放"_s, u"W2|S|华兴|东京|2|0.2|0|"_s,
                            u"||||3|1.5|0|"_s};
    EXPECT_EQ(desk.Lines(), lines);
    EXPECT_EQ(desk.Status(), u"2024-03-15"_s) << "the position is shown by a click";
    ClickAt(*desk.Grid().viewport(), desk.Grid().CellRect(2, 1).center());
    EXPECT_EQ(desk.Status(), u"共 2 条记录 当前为第 2 条"_s);
    Refuses(u""_s, u"请选择渠道!"_s, u"提示"_s);
    EXPECT_EQ(desk.Lines(), lines) << "a refusal leaves the list";
    desk.Refresh(u"H1"_s, QDate(2024, 3, 13));
    EXPECT_EQ(desk.Lines(), QStringList{u"|||||||"_s});
}

TEST_F(ListReports, TheManifestIsPrintedForTheChannelOfItsRows) {
    desk.Open(u"C1"_s, u"C01"_s);
    desk.script.Box(u"无数据可打印"_s, MsgTitle);
    desk.PrintList(0);
    EXPECT_EQ(desk.Rows(u"select count(*) from PRNTC01"_s), QStringList{u"0"_s});
    desk.Refresh(u"H1.环洋"_s);
    desk.Enter(u"Cmb"_s);
    TypeOver(u"H2"_s);  // the heading names the channel of the rows
    desk.PrintList(0);
    EXPECT_EQ(desk.Formulas(), QStringList{u"TOWHO='TO:环洋  出货明细 '"_s});
    EXPECT_EQ(desk.Rows(u"select F1 from PRNTC01"_s), (QStringList{u"W1"_s, u"W2"_s, u""_s}));
}

TEST_F(ListReports, ACustomersStatementHasItsMonthlyAccount) {
    desk.Open(u"C2"_s, u"C02"_s);
    const QString ask = u"请选择适当的日期范围及客户之后刷新数据"_s;
    EXPECT_EQ(desk.Status(), ask);
    Refuses(u""_s, u"请先择客户!"_s, u"提示"_s);
    Refuses(u"NoFound.x"_s, u"您输入的客户编码无效！"_s, MsgTitle);
    desk.script.Box(u"无数据可打印"_s, MsgTitle);
    desk.PrintList();
    desk.Refresh(u"C1.华兴"_s);
    EXPECT_EQ(
        desk.Lines(),
        (QStringList{u"2024-03-15|W1|D|纽约|1.25|50|5|1.1|2|60.5"_s, u"2024-03-15|W4|S|巴黎|3|80|0|1|0|80"_s,
                     u"2024-02-15|W5|S|里昂|0.2|0.2|0|1|0|0.2"_s, u"||||4.45|||||140.7"_s}))
        << "both days of the period count, released or not, no cash";
    EXPECT_EQ(desk.Status(), u"共 3 条记录 当前为第 1 条"_s);
    desk.PrintList();
    AltKey(u'R');
    EXPECT_EQ(desk.Status(), u"共 3 条记录 当前为第 1 条"_s);
    desk.Refresh(u"C9"_s);
    EXPECT_EQ(desk.Status(), ask);
    EXPECT_EQ(desk.Grid().Rows(), 2);
}

TEST_F(ListReports, AChannelsStatementHasWhatIsReleased) {
    desk.Open(u"C3"_s, u"C03"_s);
    Refuses(u""_s, u"请选择渠道!"_s, u"提示"_s);
    Refuses(u"NoFound"_s, u"您输入的渠道编码无效！"_s, MsgTitle);
    desk.Refresh(u"h1"_s);
    EXPECT_EQ(desk.Lines(), (QStringList{u"2024-03-15|W1|D|纽约|1.3|39"_s, u"2024-03-15|W2|S|东京|0.2|50.2"_s,
                                         u"2024-02-15|W5|S|里昂|0.1|0.1"_s, u"||||1.6|89.3"_s}));
}

TEST_F(ListReports, TheMonthlyTableHasEveryWaybillWithAChannel) {
    desk.Open(u"C4"_s, u"C04"_s);
    desk.script.Box(u"无数据可打印"_s, MsgTitle);
    desk.PrintList();
    desk.Refresh({});
    EXPECT_EQ(desk.Lines(),
              (QStringList{u"2024-03-15|华兴|W1|D|1.25|纽约|0|60.5|0|张三|环洋|1.3|39|1.5|轻放"_s,
                           u"2024-03-15|华兴|W2|S|0.1|东京|20.1|0|0|李四|环洋|0.2|50.2|0|"_s,
                           u"2024-03-15|华兴|W4|S|3|巴黎|0|80|0|张三|环洋|3|20|0|"_s,
                           u"2024-02-15|华兴|W5|S|0.2|里昂|0|0.2|0|张三|环洋|0.1|0.1|0|"_s,
                           u"2024-03-15|恒丰|W3|S|2|首尔|0|70|0|张三|环洋|2|10|0|"_s,
                           u"2024-03-15|百川|W8|S|1|柏林|0|0|15|张三|海运|1.5|16|0|"_s,
                           u"||||7.55||20.1|210.7|15|||8.1|135.3|1.5|"_s}));
}

TEST_F(ListReports, TheMarginIsMadeByCustomerInTheOrderOfSalespersons) {
    desk.Execute(u"insert into PRNTC04 (F1,F15) values ('旧','旧')"_s);
    desk.Open(u"C6"_s, u"C06"_s);
    desk.Refresh({});
    EXPECT_EQ(desk.Lines(),
              (QStringList{u"华兴|20.1|140.7|0|160.8|109.3|1.5||||50.00|孙丽萍"_s,
                           u"百川|0|5|15|20|16|0||||4.00|孙丽萍"_s, u"恒丰|0|70|0|70|10|0||||60.00|钱伟"_s,
                           u"|20.1|215.7|15|250.8|135.3|1.5|0|0|0|114.00|"_s}));
    desk.Execute(u"update B01 set F507=80.555 where F1='W3'"_s);
    desk.Refresh({}, QDate(2024, 3, 1), QDate(2024, 3, 15));
    EXPECT_EQ(desk.Lines()[2], u"恒丰|0|70|0|70|80.555|0||||-10.56|钱伟"_s);
    desk.PrintList();
    EXPECT_EQ(desk.Rows(u"select F1,F8,F10,F11,F12,F15 from PRNTC04"_s),
              (QStringList{u"华兴|||49.90|孙丽萍|<null>"_s, u"百川|||4.00|孙丽萍|<null>"_s,
                           u"恒丰|||-10.56|钱伟|<null>"_s, u"|0|0|43.34||<null>"_s}));
}

TEST_F(ListReports, AnApostrophePrintsInAHeadingAndEndsTheProgramInARow) {
    desk.Execute(u"update M03 set F2=\"O'Neil\" where F1='C1'"_s);
    desk.Execute(u"update B01 set F2061=\"L'Oreal\" where F1='W1'"_s);
    desk.Open(u"C1"_s, u"C01"_s);
    desk.Refresh(u"H1"_s);
    desk.PrintList(1);
    EXPECT_TRUE(desk.Contains(desk.PdfLines(), u"L'Oreal"_s));
    AltKey(u'R');
    AltKey(u'R');
    desk.Open(u"C2"_s, u"C02"_s);
    desk.Refresh(u"C1"_s);
    desk.PrintList();
    EXPECT_TRUE(desk.Contains(desk.PdfLines(), u"单位 O'Neil"_s));
    AltKey(u'R');
    AltKey(u'R');
    desk.Open(u"C6"_s, u"C06"_s);
    desk.Refresh({});
    desk.EndsWith(u"O'Neil"_s);
    desk.PrintList();
}

}  // namespace
}  // namespace tests
