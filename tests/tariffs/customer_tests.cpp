// The customers' card, driven by keys: entering, saving with the quotes, refusing, deleting.
#include "tests/tariffs/customer_company.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

/// Indices of the card's boxes.
enum {
    Code,
    ShortName,
    ChineseName,
    EnglishName,
    ChineseAddress,
    EnglishAddress,
    Coefficient = 11,
    Paid,
    Owed
};

TEST(A03, TheCardReadsTheRowAndItsQuotes) {
    CustomerForm form;
    Press(Qt::Key_Tab);
    form.Tabs().SelectItem(2);
    EXPECT_EQ(form.Box(EnglishAddress), u"Pudong"_s);
    EXPECT_EQ(form.Box(Paid), u"10"_s);
    EXPECT_EQ(form.Box(Owed), u"20"_s);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(form.Line(u"TxtMEMO(%1)"_s.arg(i)), (QStringList{u"二"_s, u"三"_s, u"四"_s, u"五"_s})[i]);
    EXPECT_EQ(form.Quotes().Rows(), 3) << "a quote whose zone is gone is not shown";
    EXPECT_EQ(form.Quote(2, 0, 7), u"B01|北美|30.0|10.0|40.0|15.5|12|"_s);
    EXPECT_EQ(form.Quote(2, 20, 20), u"7.25"_s);
    EXPECT_EQ(form.Quotes().TextMatrix(1, 6) + form.Quotes().TextMatrix(1, 20), u"21-45Kg1201Kg以上"_s);

    // The next customer's card; the remark lines of a row with nulls are empty.
    form.Tabs().SelectItem(1);
    form.GoToRow(2);
    form.Tabs().SelectItem(2);
    EXPECT_EQ(form.Line(u"TxtMEMO(0)"_s), u""_s);
    EXPECT_EQ(form.Zones(), u"A01"_s);
}

TEST(A03, ANewCustomerIsEnteredByKeys) {
    CustomerForm form;
    form.GoToRow(1);
    AltKey(u'A');
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(form.Box(Coefficient), u"1"_s);
    Type(u"K00000000000123"_s);
    EXPECT_EQ(form.Box(Code), u"K00000000000"_s) << "twelve characters at most";
    form.SetBox(Code, u" K9 "_s);
    Press(Qt::Key_Return);
    Type(u"新客"_s);
    EXPECT_EQ(form.script.InputMethodSwitches(), 1) << "the short name";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(ChineseName), u"新客"_s) << "the short name is proposed";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.script.InputMethodSwitches(), 2) << "the English name";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.script.InputMethodSwitches(), 3) << "and leaving it";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.script.InputMethodSwitches(), 4) << "the English address";
    form.Enter(u"CmbYWY"_s);
    TypeOver(u"陈刚"_s);
    form.SetBox(Coefficient, u"1.2"_s);
    AltKey(u'S');
    // The five remark lines are those of the customer seen before.
    EXPECT_EQ(
        form.Rows(u"select F1,F2,F301,F302,F5,F8,F9,P888,LJFK,F91,F92,F93,F94 from M03 where F1='K9'"_s),
        QStringList{u"K9|新客|新客|||陈刚|一|1|<null>|二|三|四|五"_s});
    EXPECT_EQ(form.Lines().last(), u" K9 |新客|新客|||||||陈刚|一|1.2||"_s)
        << "the line shows what was typed";
    EXPECT_EQ(form.Status(), u"客户资料列表：共 3 条记录 当前为第 3 条"_s);
    AltKey(u'R');
    form.Open(u"A5"_s, u"A03"_s);
    EXPECT_EQ(form.Lines().last(), u"K9|新客|新客|||||||陈刚|一|1||"_s);
}

TEST(A03, RefusalsLeaveTheCardAsItIs) {
    CustomerForm form;
    AltKey(u'A');
    form.RefusesToSave(u"客户编码不能为空!"_s);
    form.SetBox(Code, u"c2"_s);
    form.SetBox(ShortName, u"  "_s);
    form.RefusesToSave(u"客户简称不能为空!"_s);
    form.SetBox(ShortName, u"另一家"_s);
    form.RefusesToSave(u"[恒丰]已经使用了[c2[这个编码，请重新设置编码!"_s);
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(form.Box(ShortName), u"另一家"_s);
    AltKey(u'C');
    EXPECT_EQ(form.Box(ShortName), u"华兴"_s);

    AltKey(u'E');
    form.SetBox(Code, u"C2"_s);
    form.RefusesToSave(u"已经存在[C2]这个编号，请重新设置编号!"_s);
    AltKey(u'C');
    EXPECT_EQ(form.Rows(u"select F1,F2 from M03 order by F1"_s), (QStringList{u"C1|华兴"_s, u"C2|恒丰"_s}));
    EXPECT_EQ(form.Stored(u"C1"_s).size(), 2) << "a refusal deletes no quotes";
}

TEST(A03, ARecodedCustomerTakesItsQuotesAlong) {
    CustomerForm form;
    AltKey(u'E');
    form.SetBox(Code, u"C8"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F1,F2,P888,LJFK from M03 order by F1"_s),
              (QStringList{u"C2|恒丰|<null>|<null>"_s, u"C8|华兴|1|<null>"_s}));
    EXPECT_TRUE(form.Stored(u"C1"_s).isEmpty());
    EXPECT_EQ(form.Stored(u"C8"_s), QStringList{u"B01|30|10|40|15.5|12|7.25"_s})
        << "the one without zone is gone";
    EXPECT_EQ(form.Rows(u"select F7 from M031 where F0='C8'"_s), QStringList{u"0"_s})
        << "a null is stored as 0";
    EXPECT_EQ(form.Grid().TextMatrix(2, 0), u"C8"_s) << "the edited line is last";
    EXPECT_EQ(form.Zones(), u"B01"_s) << "the card shows the quotes afresh";
    AltKey(u'E');
    EXPECT_EQ(form.Box(Code), u"C8"_s) << "and is the current one";
    AltKey(u'C');
}

TEST(A03, ACustomerWithWaybillsKeepsItsCode) {
    CustomerForm form(CustomerMasters() + QStringList{u"insert into B01 (F1,F603) VALUES ('W1','C1')"_s});
    AltKey(u'E');
    Type(u"X"_s);
    EXPECT_EQ(form.Box(Code), u"C1"_s);
    form.SetBox(ShortName, u"华新"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F2 from M03 where F1='C1'"_s), QStringList{u"华新"_s});
    form.GoToRow(1);
    AltKey(u'A');
    Type(u"C9"_s);
    EXPECT_EQ(form.Box(Code), u"C9"_s) << "a new code is typed freely after a locked one";
    AltKey(u'C');
}

TEST(A03, DeletesACustomerWithItsQuotes) {
    CustomerForm form;
    form.Tabs().SelectItem(2);
    form.script.Question(u"真的要删除客户[华兴]的资料吗?"_s, Title, false);
    AltKey(u'D');
    EXPECT_EQ(form.Lines().size(), 2);
    form.script.Question(u"真的要删除客户[华兴]的资料吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(form.Rows(u"select F1 from M03"_s), QStringList{u"C2"_s});
    EXPECT_EQ(form.Rows(u"select F0 from M031"_s), QStringList{u"C2"_s});
    EXPECT_EQ(form.Tabs().SelectedItem(), 1);
    EXPECT_EQ(form.Status(), u"客户资料列表：共 1 条记录 当前为第 1 条"_s);
    form.script.Question(u"真的要删除客户[恒丰]的资料吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(form.Status(), u"无客户资料"_s);
    // An empty list: nothing to edit or delete; the first customer takes the blank line.
    form.script.Box(u"没有客户资料可修改!"_s, Title);
    AltKey(u'E');
    form.script.Box(u"无客户资料可删除!"_s, Title);
    AltKey(u'D');
    AltKey(u'A');
    Type(u"N1"_s);
    form.SetBox(ShortName, u"首家"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Lines().size(), 1);
    EXPECT_EQ(form.Status(), u"客户资料列表：共 1 条记录 当前为第 1 条"_s);
}

TEST(A03, TheAdministratorDeletesACustomerInUseWithItsWaybills) {
    CustomerForm form(CustomerMasters() +
                      QStringList{u"insert into B01 (F1,F603) VALUES ('W1','C1')"_s,
                                  u"insert into B01 (F1,F603) VALUES ('W2','C2')"_s,
                                  u"insert into TB1 (F1,F3,LB) VALUES ('YSW1','华兴',-9)"_s});
    const QString warning =
        u"[华兴]已经在系统中应用!\r如果删除将造成系统中其它记录的丢失!\r只有管理员才有权删除。真的要删除吗？"_s;
    form.script.Question(warning, Title, true);
    form.script.Question(warning, u"请再次确认"_s, true);
    AltKey(u'D');
    EXPECT_EQ(form.script.LastBox().defaultButton, sys::BoxAnswer::No);
    EXPECT_EQ(form.Rows(u"select F1 from B01"_s), QStringList{u"W2"_s});
    EXPECT_EQ(form.Rows(u"select F1 from M03"_s), QStringList{u"C2"_s});
    EXPECT_EQ(form.Rows(u"select F1 from TB1"_s), QStringList{u"YSW1"_s}) << "the journal keeps its entries";
}

TEST(A03, TheSalespersonIsChosenOrTyped) {
    {
        CustomerForm form;
        AltKey(u'E');
        auto& combo = form.At<controls::ComboBox>(u"CmbYWY"_s);
        EXPECT_EQ(combo.Text(), u"孙丽萍"_s);
        form.Enter(u"CmbYWY"_s);
        Press(Qt::Key_Down);
        EXPECT_EQ(combo.Text(), u"陈刚"_s) << "in the table's order";
        AltKey(u'S');
        EXPECT_EQ(form.Rows(u"select F8 from M03 where F1='C1'"_s), QStringList{u"陈刚"_s});
    }
    CustomerForm form(CustomerMasters() + QStringList{u"delete from M030"_s});
    AltKey(u'A');
    auto& combo = form.At<controls::ComboBox>(u"CmbYWY"_s);
    ASSERT_EQ(combo.ListCount(), 1);
    EXPECT_EQ(combo.List(0), u"请先建立业务员档案"_s);
    EXPECT_EQ(combo.Text(), u""_s);
    AltKey(u'C');
}

TEST(A03, ALoadThatFailsIsReported) {
    CustomerForm form;
    CustomerForm::LoseTable("M031");
    form.script.BoxContaining(u"M031"_s);
    form.Tabs().SelectItem(2);
    EXPECT_TRUE(form.script.Done());
    EXPECT_EQ(form.Box(ShortName), u"华兴"_s) << "the card is there without its quotes";
    AltKey(u'R');
    CustomerForm::LoseTable("M03");
    form.script.BoxContaining(u"M03"_s);
    form.Open(u"A5"_s, u"A03"_s);
    EXPECT_TRUE(form.script.Done());
    EXPECT_EQ(form.Lines().size(), 1) << "the form opens with an empty list";
}

TEST(A03, QuotesThatWereNotReadAreNotReplaced) {
    CustomerForm form;
    const QString stored = u"select * from M031 where F0='C1' order by F1"_s;
    const QStringList before = form.Rows(stored);
    ASSERT_FALSE(before.isEmpty());
    const QString standard = form.Rows(u"select F6 from MS1"_s)[0];
    form.Execute(u"update MS1 set F6=1e300"_s);
    form.script.BoxContaining(u"溢出"_s);
    form.ShowCard();
    AltKey(u'E');
    form.RefusesToSave(u"客户报价未能读出，不能保存!\r请先[取消]编辑，报价读出后再修改。"_s);
    EXPECT_EQ(form.Rows(stored), before);
    form.Execute(u"update MS1 set F6="_s + standard);
    AltKey(u'C');
    AltKey(u'E');
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(form.Stored(u"C1"_s), QStringList{u"B01|30|10|40|15.5|12|7.25"_s});
}

TEST(A03, AStandardThatCannotBeReadIsReported) {
    CustomerForm form;
    form.ShowCard();
    form.Tabs().SelectItem(1);
    const struct {
        std::function<void()> damage;
        QString reported;
    } cases[] = {
        {[&] { form.Execute(u"update MS1 set F6=1e300"_s); }, u"溢出"_s},  // for a single
        {[] { CustomerForm::LoseTable("MS1"); }, u"MS1"_s},
    };
    for (const auto& c : cases) {
        c.damage();
        form.script.BoxContaining(c.reported);
        form.Tabs().SelectItem(2);
        EXPECT_TRUE(form.script.Done());
        EXPECT_FALSE(sys::HasEnded());
        EXPECT_EQ(form.Box(ShortName), u"华兴"_s);
        EXPECT_EQ(form.Zones(), u""_s);
        EXPECT_EQ(form.Quotes().TextMatrix(0, 2), u"文件资料"_s);
        EXPECT_EQ(form.Quotes().TextMatrix(1, 6), u""_s) << "no caption of an older standard";
        form.Tabs().SelectItem(1);
    }
}

}  // namespace
}  // namespace tests
