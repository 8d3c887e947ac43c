// The ageing over the sample company, both sides with their prints, as in the expected files
// (tests/support/expected.h says how to renew them).
#include "tests/reports/report_desk.h"
#include "tests/support/expected.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

class SampleAgeing : public testing::Test {
  protected:
    void SetUp() override {
        sys::Guarded([&] { desk.Frame().ShowChild(u"Ageing"_s); });
        Settle();
    }
    void Build(const QString& side, QDate day, const QString& days, bool overdueOnly = false) {
        desk.At<controls::ComboBox>(u"Cmb(0)"_s).SetListIndex(side == u"应付" ? 1 : 0);
        desk.At<controls::DTPicker>(u"DTP"_s).SetValue(day);
        desk.SetBox(0, days);
        auto& only = desk.At<controls::CheckBox>(u"Chk(0)"_s);
        only.SetValue(overdueOnly ? 1 : 0);
        desk.Push(u"Cmd"_s);
        lines += u"-- "_s + side;
        QStringList headers;
        for (int col = 0; col < desk.Grid().Cols(); ++col) headers += desk.Grid().TextMatrix(0, col);
        lines += headers.join(u'|');
        lines += desk.Lines();
        lines += u"-- "_s + desk.Status();
    }
    void Print(int entry) {
        desk.PrintList(entry);
        lines += u"-- "_s + desk.Layout();
        lines += desk.Formulas();
        lines += desk.Rows(u"select * from PRNTC04"_s);
        lines += u"-- PDF"_s;
        lines += desk.PdfLines();
        AltKey(u'R');
    }

    ReportDesk desk{{}, {.file = QStringLiteral(SAMPLE_COMPANY "/tessik.dat")}};
    QStringList lines;
};

TEST_F(SampleAgeing, BothSidesAndTheirPrintsAreAsExpected) {
    Build(u"应付"_s, QDate(2024, 11, 23), u"30"_s);
    Print(0);
    Build(u"应收"_s, QDate(2024, 11, 23), u"30"_s);
    Print(0);
    Build(u"应收"_s, QDate(2025, 3, 31), u"150"_s, true);
    Print(0);
    desk.Enter(u"GD"_s);
    Press(Qt::Key_Down);
    Print(1);
    Print(2);
    ExpectAsInFile(QStringLiteral(EXPECTED "/ageing.txt"), lines.join(u'\n') + u'\n');
}

TEST_F(SampleAgeing, RefusesWhatItCannotAnswer) {
    desk.script.Box(u"逾期天数应为 0 到 9999 的整数!"_s, Title);
    Build(u"应付"_s, QDate(2024, 11, 23), u"3x"_s);
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    Build(u"应付"_s, QDate(2024, 11, 23), u"0"_s);
    desk.script.Box(u"催款单只用于应收帐款!"_s, Title);
    desk.PrintList(2);
    // From a counterparty to its ledger, of this side too where that of the other is open.
    desk.Frame().MenuItem(u"Menu_ysmx"_s)->trigger();
    desk.Frame().ShowChild(u"Ageing"_s);
    desk.Enter(u"GD"_s);
    Press(Qt::Key_Down);
    const QString unit = desk.Grid().TextMatrix(desk.Grid().Row(), 0);
    const QString oldest = desk.Grid().TextMatrix(desk.Grid().Row(), 10);
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"应付帐款明细"_s);
    EXPECT_EQ(desk.At<controls::ComboBox>(u"Cmb"_s).Text(), unit);
    EXPECT_EQ(desk.At<controls::DTPicker>(u"DTP(0)"_s).Value(), QDate::fromString(oldest, Qt::ISODate));
    EXPECT_EQ(desk.At<controls::DTPicker>(u"DTP(1)"_s).Value(), QDate(2024, 11, 23));
    EXPECT_GT(desk.Lines().filter(unit).size(), 1);
    AltKey(u'R');
    Build(u"应收"_s, QDate(2020, 1, 1), u"30"_s);
    EXPECT_EQ(desk.Status(), u"无信息"_s);
    desk.script.Box(u"请选择要催款的单位!"_s, Title);
    desk.PrintList(2);
    // A balance that its rows do not explain is asked about, a prepayment needs no reminder.
    desk.Execute(u"update TB1 set QM=QM+0.01"_s);
    Build(u"应收"_s, QDate(2024, 11, 23), u"30"_s);
    const QString first = desk.Grid().TextMatrix(1, 0);
    desk.script.Question(first + u"的余额与单据相差 0.01 元，请先核对或刷新明细帐。\r\r仍然打印催款单吗?"_s,
                         Title, false);
    desk.PrintList(2);
    // What others have entered since the list was built counts.
    desk.Execute(u"update TB1 set FK=99999999.99 where LB=-10"_s);
    desk.script.Box(first + u"没有未付的帐款!"_s, Title);
    desk.PrintList(2);
    desk.Push(u"Cmd"_s);
    EXPECT_NE(desk.Grid().TextMatrix(1, 7), QString());
    desk.Execute(u"update TB1 set YF=1e15 where LB=-9"_s);
    desk.script.Box(u"金额太大，无法分析帐龄！"_s, Title);
    desk.PrintList(2);
    desk.script.Box(u"金额太大，无法分析帐龄！"_s, Title);
    desk.Push(u"Cmd"_s);
    EXPECT_EQ(desk.Lines().size(), 1);
}

}  // namespace
}  // namespace tests
