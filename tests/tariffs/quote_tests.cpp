// Quoting a customer by keys: one zone, many zones, floating, editing a price, removing, updating, and what
// is stored of it.
#include "tests/tariffs/customer_company.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString FloatAgain = u"已经存在针对该区域的报价！\r需要在现有报价基础上，再次浮动报价吗？"_s;

/// The customer C2 in edit state with the panel unfolded and its one quote, A01, cleared away if so wished.
class QuoteForm : public CustomerForm {
  public:
    explicit QuoteForm(bool cleared = true, const QStringList& more = {})
        : CustomerForm(CustomerMasters() + more) {
        GoToRow(Grid().TextMatrix(1, 0) == u"C2" ? 1 : 2);
        AltKey(u'E');
        Push(u"CmdUpDown"_s);
        if (cleared) Push(u"CmdGdMxclear"_s);
    }
    void Save() {
        AltKey(u'S');
        EXPECT_FALSE(EditInProgress);
    }
    /// A click with the mouse on a cell of the quotes.
    void ClickCell(int row, int col) {
        QTest::mouseClick(Quotes().viewport(), Qt::LeftButton, {}, Quotes().CellRect(row, col).center());
        Settle();
    }
    /// By keys: to the grid, to the cell, and the editor over it.
    void EditByKeys(int row, int col) {
        Enter(u"GdMx"_s);
        Quotes().SetRow(row);
        Quotes().SetCol(col);
        Press(Qt::Key_F2);
        EXPECT_EQ(FocusName(), u"GdMx"_s) << "the editor belongs to the grid";
        EXPECT_TRUE(Quotes().Editing());
    }
};

TEST(Quotes, OneZoneAtATime) {
    QuoteForm form;
    EXPECT_EQ(form.Quotes().Rows(), 3);
    form.EnterCode(u"A01"_s);
    EXPECT_EQ(FocusName(), u"TxtSL"_s);
    EXPECT_EQ(form.Line(u"TxtSL"_s), u"1"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    EXPECT_EQ(form.Quotes().Rows(), 3) << "the blank row went";
    EXPECT_EQ(form.Quote(2, 0, 20),
              u"A01|东亚|12.3|10.0|20.0|15.1|9|8|7|6|5|4|3|2|1.9|1.8|1.7|1.6|1.5|1.4|1.3"_s)
        << "each list price in its own column";
    EXPECT_EQ(form.Status(), u"报价单：共 1 条记录 当前为第 1 条"_s);
    Type(u"b01"_s);  // typed over the code that was there; the table does not mind small letters
    Press(Qt::Key_Return);
    TypeOver(u"1.05"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Quote(3), u"B01|北美|210.0|52.5|231.0|63.0|94.5|84"_s);
    EXPECT_EQ(form.Status(), u"报价单：共 2 条记录 当前为第 2 条"_s);
    form.AddQuote(u"A02"_s, u"1.1"_s);
    EXPECT_EQ(form.Quote(4), u"A02|南亚|110.0|33.0|132.0|44.0|0|8.8"_s) << "no list price comes out as 0";
    EXPECT_TRUE(form.Stored(u"C2"_s).size() == 1) << "nothing is stored before the save";
    form.Save();
    EXPECT_EQ(form.Stored(u"C2"_s), (QStringList{u"A01|12.3|10|20|15.1|9|1.3"_s, u"A02|110|33|132|44|0|0"_s,
                                                 u"B01|210|52.5|231|63|94.5|10.5"_s}));
    EXPECT_EQ(form.Stored(u"C1"_s).size(), 2) << "another customer's quotes stay";
}

TEST(Quotes, TheCoefficientIsProposedByTheCard) {
    QuoteForm form;
    const struct {
        QString card, proposed;
    } cases[] = {{u"1.2"_s, u"1.2"_s}, {u"0"_s, u"1.2"_s}, {u"无"_s, u"1.2"_s}, {u"0.90"_s, u"0.9"_s}};
    for (const auto& c : cases) {
        form.SetBox(11, c.card);
        form.EnterCode(u"A02"_s);
        EXPECT_EQ(form.Line(u"TxtSL"_s), c.proposed) << c.card.toStdString();
    }
    // A coefficient of 0 or none adds nothing and says nothing.
    form.SetBox(11, u"0"_s);
    for (const auto& none : {u"0"_s, u""_s, u"无"_s}) {
        form.AddQuote(u"A01"_s, none);
        EXPECT_EQ(form.Zones(), u""_s);
        EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    }
    // Without a code Enter leads back to it.
    form.EnterCode(u""_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    for (const auto& code : {u"A0"_s, u"A*"_s, u"X"_s}) {
        form.script.Box(u"无效的区域编码!"_s, Title);
        form.AddQuote(code, u"1"_s);
        EXPECT_TRUE(form.script.Done()) << code.toStdString();
    }
    EXPECT_EQ(form.Zones(), u""_s);
    AltKey(u'C');
}

TEST(Quotes, AZoneIsPickedFromTheDropDown) {
    QuoteForm form;
    form.Enter(u"TxtHPBM"_s);
    TypeOver(u"a"_s);
    Press(Qt::Key_Down);
    auto& list = form.At<controls::FlexGrid>(u"GdDownList"_s);
    EXPECT_EQ(FocusName(), u"GdDownList"_s);
    EXPECT_EQ(list.Rows(), 3);
    EXPECT_EQ(form.ButtonCaption(u"CmdDel"_s), u"批量增加"_s);
    Press(Qt::Key_Escape);
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(form.ButtonCaption(u"CmdDel"_s), u"删除报价"_s);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Line(u"TxtHPBM"_s), u"A02"_s);
    EXPECT_EQ(FocusName(), u"TxtSL"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Zones(), u"A02"_s);

    // A wildcard works in the list; one that finds nothing opens empty and leaves the button's job.
    TypeOver(u"?02"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(list.TextMatrix(1, 0), u"A02"_s);
    Press(Qt::Key_Escape);
    TypeOver(u"X"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(list.TextMatrix(1, 0), u""_s);
    EXPECT_EQ(form.ButtonCaption(u"CmdDel"_s), u"删除报价"_s);
    // The button beside the box opens it too, and leads back from it.
    Click(form.At<QWidget>(u"CmdDownList"_s));
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    EXPECT_FALSE(list.isVisible());
    Click(form.At<QWidget>(u"CmdDownList"_s));
    EXPECT_TRUE(list.isVisible());
    form.Enter(u"Txt(1)"_s);
    EXPECT_FALSE(list.isVisible()) << "entering a box of the card closes it";
    AltKey(u'C');
}

TEST(Quotes, WithTheDropDownOpenAddingLooksForTheName) {
    QuoteForm form(true, {u"insert into M02 (F1,F2,P101) VALUES ('东亚1','改名',3)"_s});
    form.Enter(u"TxtHPBM"_s);
    TypeOver(u"A"_s);
    Press(Qt::Key_Down);
    Click(form.At<QWidget>(u"CmdEnter"_s));
    EXPECT_EQ(form.Line(u"TxtHPBM"_s), u"东亚"_s);
    EXPECT_EQ(form.Zones(), u"东亚1"_s) << "zones whose codes begin with the name of the zone in the list";
    TypeOver(u"B"_s);
    Press(Qt::Key_Down);
    form.script.Box(u"无效的区域编码!"_s, Title);
    Click(form.At<QWidget>(u"CmdEnter"_s));
    EXPECT_EQ(form.ButtonCaption(u"CmdDel"_s), u"删除报价"_s);
    AltKey(u'C');
}

TEST(Quotes, TwentyZonesWithoutTheMouse) {
    QStringList zones;
    for (int i = 1; i <= 20; ++i)
        zones += u"insert into M02 (F1,F2,P101,P301) VALUES ('N%1','区%1',%2,10)"_s.arg(i, 2, 10, QChar(u'0'))
                     .arg(i);
    QuoteForm form(false, zones);
    // One of them is quoted already at a price of its own.
    form.AddQuote(u"N07"_s, u"3"_s);
    form.EnterCode(u"N"_s);
    TypeOver(u"1.1"_s);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), u"CmdDel"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    EXPECT_EQ(form.ButtonCaption(u"CmdDel"_s), u"删除报价"_s);
    EXPECT_EQ(form.Quotes().Rows(), 2 + 21);
    EXPECT_EQ(form.Status(), u"报价单：共 21 条记录 当前为第 21 条"_s);
    // Again: all of them are there, nothing is added and nothing said.
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Quotes().Rows(), 2 + 21);
    // The drop-down looks for the text without its blanks, what is added goes by the text as it is.
    TypeOver(u" N0"_s);
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    form.script.Box(u"无效的区域编码!"_s, Title);
    Press(Qt::Key_Return);
    EXPECT_TRUE(form.script.Done());
    form.Save();
    EXPECT_EQ(form.Rows(u"select count(*),sum(F2) from M031 where F0='C2' and F1 like 'N*'"_s),
              QStringList{u"20|244.3"_s});
    EXPECT_EQ(form.Rows(u"select F2 from M031 where F0='C2' and F1='N07'"_s), QStringList{u"21"_s});
}

TEST(Quotes, AnExistingZoneIsFloated) {
    QuoteForm form(false);
    EXPECT_EQ(form.Quote(2), u"A01|东亚|5.0||||6|"_s);
    form.script.Question(FloatAgain, Title, false);
    form.AddQuote(u"A01"_s, u"1.1"_s);
    EXPECT_EQ(form.Quote(2), u"A01|东亚|5.0||||6|"_s);
    form.script.Question(FloatAgain, Title, true);
    form.AddQuote(u"A01"_s, u"1.1"_s);
    EXPECT_EQ(form.Quote(2), u"A01|东亚|5.5|0|0|0|6.6|0"_s) << "on the figures in the grid, not on the list";
    // Small letters are another code for the grid: the table finds the zone, and it is skipped.
    form.AddQuote(u"a01"_s, u"1.1"_s);
    EXPECT_EQ(form.Zones(), u"A01"_s);
    EXPECT_EQ(form.Quote(2, 2, 2), u"5.5"_s);
    AltKey(u'C');
    EXPECT_EQ(form.Quote(2), u"A01|东亚|5.0||||6|"_s) << "cancel reads the quotes afresh";
}

TEST(Quotes, APriceIsEditedByMouseAndByKeys) {
    QuoteForm form;
    form.AddQuote(u"A01"_s, u"1"_s);
    form.AddQuote(u"B01"_s, u"1"_s);
    form.ClickCell(2, 6);
    EXPECT_EQ(form.Line(u"TxtHPBM"_s), u"A01"_s);
    EXPECT_EQ(form.Status(), u"报价单：共 2 条记录 当前为第 1 条"_s);
    ASSERT_TRUE(form.Quotes().Editing());
    EXPECT_EQ(form.Quotes().Editor()->objectName(), u"TxtEnter"_s);
    EXPECT_EQ(form.Quotes().Editor()->selectedText(), u"9"_s);
    Type(u"9.50"_s);
    Press(Qt::Key_Return);
    EXPECT_FALSE(form.Quotes().Editing());
    EXPECT_EQ(FocusName(), u"GdMx"_s);
    EXPECT_EQ(form.Quote(2, 6, 6), u"9.5"_s);
    for (const int col : {0, 1}) {
        form.ClickCell(3, col);
        EXPECT_FALSE(form.Quotes().Editing()) << "codes and names are not edited";
        EXPECT_EQ(form.Line(u"TxtHPBM"_s), u"B01"_s);
    }
    // By keys: what a number can begin with begins, Tab and Up and Down go on to the next price.
    form.Quotes().SetCol(2);
    Type(u"7"_s);
    Press(Qt::Key_Tab);
    Type(u"价"_s);
    Press(Qt::Key_Up);
    Type(u"33"_s);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(form.Quotes().Editor()->text(), u"12.3"_s);
    Press(Qt::Key_Up);
    EXPECT_FALSE(form.Quotes().Editing()) << "above the first row the grid has the focus";
    EXPECT_EQ(FocusName(), u"GdMx"_s);
    EXPECT_EQ(form.Quote(3, 2, 3), u"7|0"_s) << "what is no number is 0";
    EXPECT_EQ(form.Quote(2, 2, 3), u"12.3|33"_s);
    for (const auto& [price, stored] : {std::pair{u".5"_s, u"0.5"_s}, {u"-2"_s, u"-2"_s}}) {
        form.Quotes().SetRow(3);
        form.Quotes().SetCol(4);
        Type(price);
        Press(Qt::Key_Return);
        EXPECT_EQ(form.Quote(3, 4, 4), stored);
    }
    form.EditByKeys(2, 3);
    form.script.Box(u"溢出"_s, Title);
    Type(u"1e999"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Quote(2, 2, 3), u"12.3|33"_s) << "too large a price is refused";
    // The save takes an edit that is still open; its keys do not leave the editor.
    form.EditByKeys(2, 20);
    Type(u"88"_s);
    form.Save();
    EXPECT_EQ(form.Stored(u"C2"_s), (QStringList{u"A01|12.3|33|20|15.1|9.5|88"_s, u"B01|7|0|-2|60|90|10"_s}));
}

TEST(Quotes, DeletingAsksByNameAndFollowsTheCustomerList) {
    QuoteForm form;
    for (const auto& zone : {u"A01"_s, u"A02"_s, u"B01"_s}) form.AddQuote(zone, u"1"_s);
    form.Enter(u"TxtHPBM"_s);
    TypeOver(u" "_s);
    form.script.Box(u"请输入要删除的区域编码或点击要删除的行!"_s, Title);
    form.Push(u"CmdDel"_s);
    EXPECT_EQ(FocusName(), u"TxtHPBM"_s);
    TypeOver(u"b01"_s);
    form.script.Box(u"此客户资料中没有指定区域编号的相关报价：b01!"_s, Title);
    form.Push(u"CmdDel"_s);
    form.ClickCell(3, 0);
    form.script.Question(u"真的要删除[南亚]的报价吗?"_s, Title, false);
    form.Push(u"CmdDel"_s);
    EXPECT_EQ(form.Zones(), u"A01 A02 B01"_s);
    form.script.Question(u"真的要删除[南亚]的报价吗?"_s, Title, true);
    form.Push(u"CmdDel"_s);
    EXPECT_EQ(form.Zones(), u"A01 B01"_s);
    EXPECT_EQ(form.Status(), u"报价单：共 2 条记录 当前为第 1 条"_s)
        << "two customers in the list: row 2 at most";
    form.Save();
    EXPECT_EQ(form.Stored(u"C2"_s, u"F1"_s), (QStringList{u"A01"_s, u"B01"_s}));
}

TEST(Quotes, TheLastQuoteLeavesABlankRowThatIsNotStored) {
    QuoteForm form;
    form.AddQuote(u"B01"_s, u"1"_s);
    form.script.Question(u"真的要删除[北美]的报价吗?"_s, Title, true);
    form.Push(u"CmdDel"_s);
    EXPECT_EQ(form.Quotes().Rows(), 3);
    EXPECT_EQ(form.Quote(2, 0, 8), u"|||||||80|70"_s) << "prices further right stay in the blank row";
    EXPECT_EQ(form.Status(), u"报价单：共 1 条记录 当前为第 1 条"_s);
    form.Save();
    EXPECT_TRUE(form.Stored(u"C2"_s).isEmpty());
    AltKey(u'E');
    form.AddQuote(u"A01"_s, u"1"_s);
    EXPECT_EQ(form.Quote(2), u"A01|东亚|12.3|10.0|20.0|15.1|9|8"_s);
    AltKey(u'C');
}

TEST(Quotes, DeletingTheLastRowUnderALongCustomerListFails) {
    const struct {
        int customers;  // in the list, besides C1 and C2
        QString code;
        bool fails;
    } cases[] = {{0, u"B01"_s, false},
                 {1, u"B01"_s, false},
                 {2, u"B01"_s, true},
                 {9, u"B01"_s, true},
                 {9, u"A02"_s, false}};
    for (const auto& c : cases) {
        QStringList more;
        for (int i = 0; i < c.customers; ++i) more += u"insert into M03 (F1,F2) VALUES ('X%1','x')"_s.arg(i);
        QuoteForm form(true, more);
        for (const auto& zone : {u"A01"_s, u"A02"_s, u"B01"_s}) form.AddQuote(zone, u"1"_s);
        form.Enter(u"TxtHPBM"_s);
        TypeOver(c.code);
        form.script.Question(
            c.code == u"B01" ? u"真的要删除[北美]的报价吗?"_s : u"真的要删除[南亚]的报价吗?"_s, Title, true);
        if (c.fails) {
            form.script.BoxContaining(u"下标越界"_s);
            form.script.End(1);
        }
        form.Push(u"CmdDel"_s);
        EXPECT_TRUE(form.script.Done()) << c.customers;
        EXPECT_EQ(form.Stored(u"C2"_s, u"F1"_s), QStringList{u"A01"_s})
            << "the table is untouched until the save";
        if (!c.fails) AltKey(u'C');
    }
}

TEST(Quotes, AHeaderRowIsNoQuote) {
    // One customer in the list: after a delete the current row of the quotes is a header row.
    QuoteForm form(true, {u"delete from M03 where F1='C1'"_s});
    for (const auto& zone : {u"A01"_s, u"A02"_s, u"B01"_s}) form.AddQuote(zone, u"1"_s);
    form.Enter(u"TxtHPBM"_s);
    TypeOver(u"A02"_s);
    form.script.Question(u"真的要删除[南亚]的报价吗?"_s, Title, true);
    form.Push(u"CmdDel"_s);
    EXPECT_EQ(form.Quotes().Row(), 1);
    form.Enter(u"GdMx"_s);
    for (const auto key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_7}) {
        Press(key);
        EXPECT_FALSE(form.Quotes().Editing());
    }
    EXPECT_FALSE(sys::HasEnded());
    EXPECT_EQ(form.Quotes().TextMatrix(1, 2), u"首0.5Kg"_s);
    Press(Qt::Key_Down);
    Type(u"7"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Quote(2, 2, 2), u"7"_s) << "from there the keys lead back to the quotes";
    // The header's own text as a code finds the header, which cannot be removed.
    form.Enter(u"TxtHPBM"_s);
    TypeOver(u"区域"_s);
    form.script.Question(u"真的要删除[区域名称]的报价吗?"_s, Title, true);
    form.Push(u"CmdDel"_s);
    EXPECT_FALSE(sys::HasEnded());
    EXPECT_EQ(form.Zones(), u"A01 B01"_s);
    AltKey(u'C');
}

TEST(Quotes, UpdatingRaisesAllAndCompounds) {
    QuoteForm form;
    for (const auto& none : {u"1"_s, u"0"_s, u"-1"_s, u""_s, u"1.0"_s}) {
        form.SetBox(11, none);
        form.script.Box(u"请首先输入有意义的加价系数！"_s, Title);
        form.Push(u"CmdReNewPrice"_s);
    }
    form.SetBox(11, u"1.1"_s);
    form.script.Box(u"请先输入报价资料！"_s, Title);
    form.Push(u"CmdReNewPrice"_s);
    form.AddQuote(u"A02"_s, u"1"_s);
    form.AddQuote(u"B01"_s, u"1"_s);
    const QString question = u"您打算把下列所有报价再浮动10%吗？"_s;
    form.script.Question(question, Title, false, sys::BoxIcon::Information);
    form.Push(u"CmdReNewPrice"_s);
    EXPECT_EQ(form.Quote(3, 2, 6), u"200.0|50.0|220.0|60.0|90"_s);
    form.Push(u"CmdUpDown"_s);
    form.Push(u"CmdUpDown"_s);
    form.EditByKeys(3, 6);
    Type(u"91"_s);
    for (int pass = 0; pass < 2; ++pass) {
        form.script.Question(question, Title, true, sys::BoxIcon::Information);
        form.script.Box(u"报价已更新！请及时保存更新的报价！"_s, Title);
        Click(form.At<QWidget>(u"CmdReNewPrice"_s));
        EXPECT_EQ(form.Box(11), u"1.1"_s);
        if (pass == 0) {
            EXPECT_EQ(form.Quote(3, 2, 6), u"220|55|242|66|100.1"_s) << "an edit in hand is part of the base";
        }
    }
    EXPECT_EQ(form.Quote(3, 2, 6), u"242|60.5|266.2|72.6|110.1"_s)
        << "a second press raises what the first made";
    EXPECT_EQ(form.Quote(2, 2, 6), u"121|36.3|145.2|48.4|0"_s);
    EXPECT_EQ(form.Stored(u"C2"_s, u"F1"_s), QStringList{u"A01"_s});
    form.Save();
    EXPECT_EQ(form.Stored(u"C2"_s, u"F1,F2,F6"_s), (QStringList{u"A02|121|0"_s, u"B01|242|110.1"_s}));
    EXPECT_EQ(form.Rows(u"select P888 from M03 where F1='C2'"_s), QStringList{u"1"_s});
}

}  // namespace
}  // namespace tests
