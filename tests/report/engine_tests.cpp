// What is on which page, and what is computed on the way.
#include "platform/report/formats.h"
#include "tests/report/report_lab.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

class Engine : public testing::Test {
  protected:
    /// PRNTC023 with those rows: F1 is the number, F2 the group, F6 the amount.
    void Fill(int rows, int groupOf = 1000) {
        lab.company.Run(u"delete from PRNTC023"_s);
        for (int i = 1; i <= rows; ++i)
            lab.company.Run(u"insert into PRNTC023 (F1,F2,F6) values ('%1','g%2','%3')"_s.arg(i)
                                .arg((i - 1) / groupOf)
                                .arg(i * 1.25));
    }
    QStringList Lay(const QString& inside, const QString& attributes = {}) {
        return ReportLab::AllTexts(
            *lab.LayOut(u"<data>select F1, F2, F6 from PRNTC023</data>"_s + inside, attributes));
    }
    /// An expression's text in the head of a report over those rows.
    QString Value(const QString& expression) {
        const QString text = expression.toHtmlEscaped();
        return Lay(u"<head><band height='5'><text x='1' y='2'>[%1]</text></band></head>"_s.arg(text))
            .value(0);
    }
    ReportLab lab;
};

// 170 mm high: a head of 6.6, then 10 rows of 10 and a rest that holds none.
const QString Ten = u"margins='10 60 10 120'"_s;
const QString TenRows = u"<table row='10'><column width='50' head='H' value='{F1}' %1/></table>"_s;

TEST_F(Engine, FillsPagesToTheRow) {
    const struct {
        int rows;
        const char* pages;
    } cases[] = {
        {0, "H"}, {1, "H 1"}, {11, "H 1 2 3 4 5 6 7 8 9 10 11"}, {12, "H 1 2 3 4 5 6 7 8 9 10 -- H 11 12"}};
    for (const auto& one : cases) {
        Fill(one.rows);
        EXPECT_EQ(Lay(TenRows.arg(QString()), Ten).join(u' ').toStdString(), one.pages) << one.rows;
    }
    // The total and what follows it take two rows with them.
    Fill(10);
    const QString summary =
        u"<summary><band height='9'><sign x='1' y='4' width='50'>S</sign></band></summary>"_s;
    EXPECT_EQ(Lay(TenRows.arg(u"total='{sum(F6)}'"_s) + summary, Ten).join(u' ').toStdString(),
              "H 1 2 3 4 5 6 7 8 -- H 9 10 68.75 S");
}

TEST_F(Engine, CarriesSumsFromPageToPage) {
    Fill(12);
    const QString table =
        u"<table row='10' carriedover='out' broughtforward='in'><column width='50' value='{F1}' "
        "carry='{#carry} {sum(F6)}' total='T {sum(F6)} {count()}'/></table>"_s;
    EXPECT_EQ(Lay(table, Ten).join(u' ').toStdString(),
              "1 2 3 4 5 6 7 8 9 10 out 68.75 -- in 68.75 11 12 T 97.5 12");
}

TEST_F(Engine, KeepsHeadingsWithTheirRowsAndTotalsWithTheirs) {
    Fill(9, 4);
    const QString groups = u"<group by='F2' head='{F2}' note='{count()}' again='+' %1/>"_s;
    const QString table = TenRows.arg(u"subtotal='s{sum(F6)}' total='T{sum(F6)}'"_s);
    // Two rows of the second group would fit, its total would not; the third heading needs its one row and
    // the end.
    EXPECT_EQ(Lay(groups.arg(QString()) + table, Ten).join(u' ').toStdString(),
              "H g0 4 1 2 3 4 s12.5 g1 4 5 6 -- H g1+ 7 8 s32.5 g2 1 9 s11.25 T56.25");
    EXPECT_EQ(Lay(groups.arg(u"newpage='yes'"_s) + table, Ten).join(u' ').toStdString(),
              "H g0 4 1 2 3 4 s12.5 -- H g1 4 5 6 7 8 s32.5 -- H g2 1 9 s11.25 T56.25");
}

TEST_F(Engine, KeepsAHeadingWithRowsThatTheEndTakesToTheNextPage) {
    Fill(11, 4);
    const QString inside = u"<group by='F2' head='{F2}' note='{count()}' again='+'/>"_s +
                           TenRows.arg(u"subtotal='s{sum(F6)}' total='T{sum(F6)}'"_s) +
                           u"<summary><band height='%1'><text x='0' y='2'>end</text></band></summary>"_s;
    for (int height = 4; height < 40; height += 3) {  // no page holds more of it together
        const QStringList texts = Lay(inside.arg(height), Ten);
        const QString all = texts.join(u' ');
        for (const auto& [group, rows] : {std::pair{u"g1 4"_s, u"5 6"_s}, {u"g2 3"_s, u"9 10"_s}})
            EXPECT_TRUE(all.contains(group + u' ' + rows)) << height << ": " << all.toStdString();
        EXPECT_TRUE(all.contains(u"10 11 s"_s)) << height << ": " << all.toStdString();
        EXPECT_LT(all.indexOf(u"g2 3"_s), all.indexOf(u" 9"_s));
    }
}

TEST_F(Engine, RowsGrowWithTheirTextAndAreNotCut) {
    Fill(10);
    lab.company.Run(u"update PRNTC023 set F1='%1' where F1='10'"_s.arg(QString(u"长文字"_s).repeated(20)));
    const auto document = lab.LayOut(u"<data>select F1 from PRNTC023</data>"_s + TenRows.arg(QString()), Ten);
    ASSERT_EQ(document->Pages(), 2);  // its five lines don't fit, and the last two rows are together
    EXPECT_EQ(ReportLab::Texts(*document, 1).size(), 1 + 1 + 5);
    // Higher than a page: it goes on line by line, and nothing is lost.
    const QString endless = QString(u"长文字"_s).repeated(500);
    lab.company.Run(u"update PRNTC023 set F1='%1' where F1 like '长*'"_s.arg(endless));
    QStringList texts = Lay(TenRows.arg(QString()), Ten);
    EXPECT_GT(texts.count(u"--"_s), 2);
    texts.removeIf([](const QString& text) { return !u"长文字"_s.contains(text.front()); });
    EXPECT_EQ(texts.join(QString()), endless);
}

TEST_F(Engine, ComputesWhatIsInBraces) {
    Fill(4, 2);
    lab.company.Run(u"insert into PRNTC023 (F1,F2,F6) values ('', 'g9', '1234567.5')"_s);
    const struct {
        QStringView expression;
        const char* text;
    } cases[] = {
        {u"{F1} {{}} {F1}", "[1 {} 1]"},
        {u"{sum(F6)} {count()} {count(F1 = '')} {average(F6)}", "[1234580 5 1 246916]"},
        {u"{first(F1)}{last(F2)} {sum(first(F6))}", "[1g9 1.25]"},
        {u"{last(F6):#,##0.00} {last(F6):0} {last(F6):0.0%}", "[1,234,567.50 1234568 123456750.0%]"},
        {u"{0:#,##0.00;}{0.004:0.00;}{0.005:0.00;}{-0.004:0.00}", "[0.010.00]"},
        {u"{1 + 2 * 3 - 4 / 2} {-(1 + 1)} {1 / 0}", "[5 -2 ]"},
        {u"{F6 / 0:0.0%}{'' ?? F1 ?? 'x'}{'abc' ?? F1}", "[1abc]"},
        {u"{if(F1 < 2 and not (F2 = 'g1'), 'yes', 'no')}{if(F1 > 1 or F1 <> 1, 'a', 'b')}", "[yesb]"},
        {u"{before('a：b', '：')}|{after('a：b', '：')}|{after('ab', '：')}|{before('ab', '：')}",
         "[a|b||ab]"},
        {u"{join('×', 1, '', 3)} {squeeze(' 合  计 ')} {trim('  x ')}", "[1×3 合计 x]"},
        {u"{'2024/3/5':yyyy-MM-dd} {'never':yyyy-MM-dd} {'abc':0.00}", "[2024-03-05 never abc]"},
        {u"{#date} {#page} {#pages} {#row}", "[2024-03-15 1 1 1]"},
        {u"{isnumber('12')}{isnumber('12kg')}{number('12kg')}", "[1012]"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Value(one.expression.toString()).toStdString(), one.text)
            << one.expression.toString().toStdString();
}

TEST(Formats, AmountsInTheWordsOfABill) {
    const struct {
        double amount;
        const char* words;
    } cases[] = {{0, "零元整"},
                 {0.05, "伍分"},
                 {10, "壹拾元整"},
                 {1005.3, "壹仟零伍元叁角整"},
                 {20.04, "贰拾元零肆分"},
                 {100000, "壹拾万元整"},
                 {10010000, "壹仟零壹万元整"},
                 {100000001.5, "壹亿零壹元伍角整"},
                 {78478.83, "柒万捌仟肆佰柒拾捌元捌角叁分"},
                 {-3, "负叁元整"},
                 {0.004, "零元整"},
                 {1e15, "1E+15"}};
    for (const auto& one : cases)
        EXPECT_EQ(report::AmountInWords(one.amount).toStdString(), one.words) << one.amount;
}

TEST_F(Engine, PassesOverRowsAndTakesTheTotalFromTheTable) {
    Fill(3);
    lab.company.Run(u"insert into PRNTC023 (F1,F2,F6) values ('','','99')"_s);
    lab.company.Run(u"insert into PRNTC023 (F1,F2,F6) values ('x',' 合  计 ','7')"_s);
    const QString data =
        u"<data skip=\"squeeze(F2) = '合计'\" total=\"F1 = ''\">select F1,F2,F6 from PRNTC023</data>"_s;
    const QString table = u"<table><column width='50' value='{F1}' total='{total.F6} {sum(F6)}'/></table>"_s;
    EXPECT_EQ(ReportLab::AllTexts(*lab.LayOut(data + table)).join(u' ').toStdString(), "1 2 3 99 7.5");
}

TEST_F(Engine, WhatIsBelowATextThatGrowsMovesDown) {
    Fill(1);
    const QString head =
        u"<head><band height='20'><text x='0' y='3' width='20'>%1</text>"
        "<line y1='10'/><text x='100' y='4'>side</text></band></head><table><column width='9' "
        "value='{F1}'/></table>"_s;
    const auto lineAt = [&](const QString& text) {
        const auto document = lab.LayOut(u"<data>select F1 from PRNTC023</data>"_s + head.arg(text));
        double line = 0;
        for (const auto& item : document->PageAt(0).items)
            if (const auto* rule = std::get_if<report::Rule>(&item); rule && line == 0) line = rule->y1;
        return line;
    };
    const double one = lineAt(u"短"_s), three = lineAt(QString(u"长"_s).repeated(15));
    EXPECT_NEAR(three - one, 2 * 9 * report::kPoint * 1.3, 1e-6);
}

TEST_F(Engine, FormulasKeepApostrophesAndUnknownOnesAreEmpty) {
    const QString inside =
        u"<formula name='KH'/><formula name='none'/><data>select F1 from PRNTC023</data>"
        "<head><band><text x='0' y='2'>{@kh}|{@none}|</text></band></head>"_s;
    const auto document = lab.LayOut(inside, {}, {u"KH='O'Brien's '"_s, u"other='x'"_s});
    EXPECT_EQ(ReportLab::Texts(*document, 0).value(0).toStdString(), "O'Brien's ||");
}

TEST(Fonts, BreakAtBlanksAndBetweenChineseCharacters) {
    const report::Fonts& fonts = report::Fonts::Of(u"Noto Sans CJK SC"_s);
    const double six = fonts.Width(u"六个字的宽度", 9, false) + 0.01;
    const struct {
        QStringView text;
        const char* lines;
    } cases[] = {{u"短", "短"},
                 {u"一二三四五六七八", "一二三四五六|七八"},
                 {u"一二三四五六，七", "一二三四五|六，七"},  // a closing mark begins no line
                 {u"一二三四五（六）", "一二三四五|（六）"},  // an opening one ends none
                 {u"alpha beta gamma", "alpha beta|gamma"},
                 {u"abcdefghijklmnopqrstuvwxyz", "abcdefghijkl|mnopqrstuv|wxyz"},
                 {u"一\n\n二", "一||二"},
                 {u"", ""}};
    for (const auto& one : cases)
        EXPECT_EQ(fonts.Wrap(one.text.toString(), six, 9, false).join(u'|').toStdString(), one.lines);
}

}  // namespace
}  // namespace tests
