// The two quote sheets: which zones each lists, what is printed, and what refuses or fails.
#include "tests/reports/report_desk.h"
#include "tests/tariffs/customer_company.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Sheet = u"select F1,F2,F31,F32,F33,F34,F35,F36,F37,F38,F39 from PRNTM03"_s;

/// C1 has a quote for a zone of each mark, C2 has none, and both have remarks.
QStringList Masters() {
    QStringList rows = CustomerMasters() + QStringList{
                                               u"delete from M031"_s,
                                               u"update M02 set F3='国外' where F1='B01'"_s,
                                               u"update M02 set F3='国内' where F1='A01'"_s,
                                               u"update M02 set F3='国外 ' where F1='A02'"_s,
                                               u"insert into M02 (F1,F2) VALUES ('N01','未标')"_s,
                                               u"update M03 set F2='华''兴',F92='''三''' where F1='C1'"_s,
                                           };
    for (const auto& zone : {u"A01"_s, u"A02"_s, u"B01"_s, u"N01"_s})
        rows += u"insert into M031 (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10) VALUES "_s +
                u"('C1','%1',30,10,40.25,15.5,12,11.55,10,9,8.5)"_s.arg(zone);
    return rows;
}

/// The menu opens on the first; both have the key 1, which selects the other.
void Print(int sheet) {
    AltKey(u'P');
    if (sheet == 2) AltKey(u'1');
    Press(Qt::Key_Return);
}

class QuoteSheet : public testing::Test {
  protected:
    QuoteSheet() { form.Open(u"A5"_s, u"A03"_s); }

    ReportDesk form{Masters()};
};

const QString Prices = u"|30|10|40.3|15.5|12|11.55|10|9|8.5"_s;  // as the grid shows them

TEST_F(QuoteSheet, ListsTheZonesOfItsMarkAndTheOtherAllOthers) {
    Print(1);
    EXPECT_EQ(form.Rows(Sheet), QStringList{u"B01|北美"_s + Prices});
    const QStringList formulas{
        u"TO='TO:华'兴'"_s, u"P1='首0.5Kg'"_s, u"P2='续0.5Kg'"_s,  u"P3='首0.5Kg'"_s,   u"P4='续0.5Kg'"_s,
        u"P5='21-45Kg'"_s,  u"P6='46-70Kg'"_s, u"P7='71-100Kg'"_s, u"P8='101-200Kg'"_s, u"P9='201-300Kg'"_s,
        u"B1='一'"_s,       u"B2='二'"_s,      u"B3=''三''"_s,     u"B4='四'"_s,        u"B5='五'"_s,
    };
    EXPECT_EQ(form.Layout(), u"prnTM03.rpt"_s);
    EXPECT_EQ(form.Formulas(), formulas);
    AltKey(u'R');
    EXPECT_EQ(form.Tabs().SelectedItem(), 2) << "the card is shown for the print";

    Print(2);
    EXPECT_EQ(form.Rows(Sheet),
              (QStringList{u"A01|东亚"_s + Prices, u"A02|南亚"_s + Prices, u"N01|未标"_s + Prices}));
    EXPECT_EQ(form.Layout(), u"prnTM032.rpt"_s);
    EXPECT_EQ(form.Formulas(), formulas);
}

TEST_F(QuoteSheet, HasTheCaptionsOfTheDayAndApostrophes) {
    form.Execute(u"update MS1 set F6=51"_s);
    form.GoToRow(1);
    Print(2);
    EXPECT_EQ(form.Formulas().mid(5, 2), (QStringList{u"P5='21-50Kg'"_s, u"P6='51-70Kg'"_s}));
    for (const auto& text : {u"TO:华'兴"_s, u"3. '三'"_s}) EXPECT_TRUE(form.Contains(form.PdfLines(), text));
}

TEST_F(QuoteSheet, OfACustomerWithoutQuotesIsEmptyAbroadAndFailsAtHome) {
    form.GoToRow(2);
    Print(1);
    EXPECT_EQ(form.Formulas().value(0), u"TO='TO:恒丰'"_s);
    EXPECT_TRUE(form.Rows(Sheet).isEmpty());
    AltKey(u'R');
    form.EndsWith(
        u"insert into prntm03 (F1,F2,F31,F32,F33,F34,F35,F36,F37,F38,F39) VALUES ('','',,,,,,,,,)"_s);
    Print(2);
}

TEST_F(QuoteSheet, IsNotBegunWithoutItsLayoutOrACustomer) {
    form.Execute(u"insert into PRNTM03 (F1) values ('旧')"_s);
    QFile::remove(AppFolder + u"prnTM03.rpt"_s);
    QFile::remove(AppFolder + u"prnTM032.rpt"_s);
    form.script.Box(u"报表文件prnTM03.rpt丢失!"_s, Title);
    Print(1);
    EXPECT_EQ(form.Tabs().SelectedItem(), 2);
    form.script.Box(u"报表文件prnTM032.rpt丢失!"_s, Title);
    Print(2);
    EXPECT_EQ(form.Rows(u"select F1 from PRNTM03"_s), QStringList{u"旧"_s});
    AltKey(u'R');
    form.Execute(u"delete from M03"_s);
    form.Open(u"A5"_s, u"A03"_s);
    form.script.Box(u"无数据可打印!"_s, Title);
    Print(1);
    EXPECT_EQ(form.Tabs().SelectedItem(), 1);
    EXPECT_EQ(form.Frame().Front()->objectName(), u"A03"_s);
}

}  // namespace
}  // namespace tests
