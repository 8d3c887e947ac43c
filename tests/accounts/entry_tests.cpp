// Charges and payments are entered by keys alone, as an operator does, and the journal is compared after
// each command.
#include "platform/text/dates.h"
#include "tests/support/program.h"

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Taken = u"在系统中，已经采用了[%1]这个单据编号！"_s;
const QString Twice = u"您已经录入了一张凭证号为[%1]的记录！"_s;

QStringList Masters() {
    return {
        u"insert into M03 (F1,F2) VALUES ('C1','华兴')"_s,
        u"insert into M03 (F1,F2) VALUES ('C2','恒丰.南')"_s,
        u"insert into M01 (F1,F2) VALUES ('H1','环洋')"_s,
        u"insert into TE1 (F1,F2,F66,F67) VALUES ('002','周婷',0,1)"_s,
    };
}

class Entry : public testing::Test {
  protected:
    void Open(const QString& keys = u"D2"_s, const QString& form = u"zhLst"_s) { desk.Open(keys, form); }

    static void Enter(const QString& text) {
        if (!text.isNull()) TypeOver(text);
        Press(Qt::Key_Return);
    }

    /// The cells of a row as they are reached: key, date, counterparty, amount, handler, remark. A null text
    /// leaves the cell as it is.
    static void EnterRow(const QStringList& cells) {
        for (const QString& cell : cells) Enter(cell);
    }

    void ExpectBox(const QString& text) { desk.script.Box(text, {}); }

    QString Where() { return u"%1,%2"_s.arg(desk.Grid().Row()).arg(desk.Grid().Col()); }

    /// A row as the grid shows it, without what is hidden.
    QString Line(int row) {
        QStringList cells;
        for (const int col : {0, 1, 2, 5, 6, 7, 8}) cells += desk.Grid().TextMatrix(row, col);
        return cells.join(u'|');
    }

    /// What is said of the rows that are being typed.
    QString Progress() {
        for (const auto* label : desk.Frame().Front()->findChildren<QLabel*>())
            if (label->text().startsWith(u"本次录入"_s)) return label->text();
        return {};
    }

    QStringList Journal() {
        return desk.Rows(u"select SN,LB,S2,F1,F2,F3,YF,FK,QC,QM,S1,F5,F6,F10 from TB1 order by SN,F1"_s);
    }

    Program desk{Masters()};
};

TEST_F(Entry, RowsAreTypedByKeysAloneAndSaved) {
    Open();
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"增加应收款"_s);
    AltKey(u'A');
    EXPECT_TRUE(EditInProgress);
    EXPECT_FALSE(desk.Enabled(u"Menu_print"_s));
    EXPECT_EQ(desk.Grid().Editor()->selectedText(), u"YS240315100000"_s);
    Enter({});
    EXPECT_EQ(FocusName(), u"CmbEnter(1)"_s);
    Enter(u"2024/3/14"_s);
    EXPECT_EQ(FocusName(), u"CmbEnter(2)"_s);
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);  // the second of the two customers
    Enter({});
    EXPECT_EQ(Where(), u"1,5"_s) << "past the hidden columns";
    Enter(u"８６０。５元"_s);
    Enter(u"o'Neil"_s);
    EXPECT_EQ(Where(), u"1,8"_s) << "the operator's name fills itself in";
    Enter(u"仓租"_s);
    EXPECT_EQ(Where(), u"2,0"_s);
    EXPECT_EQ(Line(1), u"YS240315100000|2024/3/14|恒丰.南|860.5|o’Neil|管理员|仓租"_s);
    // Begun within the same second.
    ExpectBox(Twice.arg(u"YS240315100000"_s));
    Enter({});
    EXPECT_EQ(Where(), u"2,1"_s) << "the refusal does not hold the cursor";
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EnterRow({u"ys-2"_s, u"昨天"_s, u"华兴"_s, u"-12.5"_s, u""_s});
    EXPECT_EQ(Line(2), u"YS-2|2024-03-15|华兴|-12.5||管理员|"_s) << "no date is today";
    EXPECT_EQ(Journal(), QStringList()) << "nothing is written before the save";
    EXPECT_EQ(Progress(), u"本次录入 2 行，合计 848"_s);
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(Progress(), QString());
    EXPECT_EQ(desk.Grid().Rows(), 3) << "the blank row at the end is dropped";
    EXPECT_EQ(
        Journal(),
        (QStringList{
            u"131|-9|增加应收|YS240315100000|2024-03-14|恒丰.南|860.5|0|0|860.5|o’Neil|管理员|管理员|仓租"_s,
            u"162|-9|增加应收|YS-2|2024-03-15|华兴|-12.5|0|0|-12.5||管理员|管理员|"_s}));
    EXPECT_EQ(desk.Status(), u"共 2 条记录 当前为第 1 条"_s);
}

TEST_F(Entry, KeysMoveWithinTheBlockOnly) {
    desk.Execute(u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values (31,-9,'YS1','2024-03-01','华兴',5,'x')"_s);
    Open();
    AltKey(u'A');
    EnterRow({u"A"_s, u""_s, u"华兴"_s, u"1"_s, u"张"_s, u"一"_s});
    EnterRow({u"B"_s, u""_s, u"华兴"_s});
    EXPECT_EQ(Where(), u"3,5"_s);
    Type(u"7"_s);
    Press(Qt::Key_Up);
    EXPECT_EQ(Where(), u"2,5"_s);
    EXPECT_EQ(desk.Grid().TextMatrix(3, 5), u"7"_s) << "Down commits";
    Press(Qt::Key_Up);
    EXPECT_EQ(Where(), u"2,5"_s) << "not above the block";
    Type(u"99"_s);
    Press(Qt::Key_Escape);
    EXPECT_EQ(desk.Grid().TextMatrix(2, 5), u"1"_s);
    Type(u"4"_s);  // a character opens the editor again
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Where(), u"2,2"_s);
    EXPECT_EQ(desk.Grid().TextMatrix(2, 5), u"4"_s);
    for (int i = 0; i < 4; ++i) Press(Qt::Key_Tab);
    EXPECT_EQ(Where(), u"3,0"_s) << "Tab is Enter";
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Where(), u"2,8"_s);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_EQ(Where(), u"4,0"_s) << "a blank row begins with its key";
    EXPECT_EQ(desk.Grid().Editor()->text(), u"YS240315100000"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(Where(), u"5,0"_s);
    EXPECT_EQ(desk.Grid().Editor()->text(), u""_s) << "and not while the row above is not whole";
    Press(Qt::Key_Escape);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Where(), u"2,0"_s);
    TypeOver({});
    Press(Qt::Key_Return);
    EXPECT_EQ(Line(2), u"B||华兴|7|||"_s.replace(u"||华"_s, u"|2024-03-15|华"_s))
        << "a row without a key goes";
    EXPECT_EQ(Where(), u"2,1"_s);
}

TEST_F(Entry, TheCheckNamesTheRowOfTheGridAndWritesNothing) {
    desk.Execute(u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values (31,-9,'YS1','2024-03-01','华兴',5,'x')"_s);
    Open();
    AltKey(u'A');
    ExpectBox(Taken.arg(u"YS1"_s));
    Enter(u"ys1"_s);
    EXPECT_EQ(desk.Grid().TextMatrix(2, 0), u"YS240315100000"_s);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EnterRow({u"A"_s, u""_s, u""_s});
    for (const auto& [text, name, column] : {std::tuple{u"第2行[关系单位]不能为空！"_s, u""_s, 2},
                                             {u"第2行[欠款金额]不能为0！"_s, u"华兴"_s, 5}}) {
        ExpectBox(text);
        AltKey(u'S');
        EXPECT_TRUE(EditInProgress);
        if (column == 2) {
            desk.Grid().SetCol(2);
            Press(Qt::Key_F2);
            Enter(u"华兴"_s);
        }
    }
    EXPECT_EQ(Journal().size(), 1);
    desk.script.Question(u"确定不保存您新录入的资料吗？"_s, {}, false, sys::BoxIcon::Information);
    AltKey(u'C');
    EXPECT_TRUE(EditInProgress);
    EXPECT_TRUE(desk.Grid().Editing()) << "entering goes on";
    desk.script.Question(u"确定不保存您新录入的资料吗？"_s, {}, true, sys::BoxIcon::Information);
    AltKey(u'C');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(desk.Lines().size(), 1);
    // A key that is committed gets a row beneath it and is looked at; the last row is not.
    AltKey(u'A');
    ExpectBox(u"第2行[发生日期]不能为空！"_s);
    AltKey(u'S');
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_EQ(Where(), u"2,0"_s) << "the row has gone, and the next one begins";
    Press(Qt::Key_Escape);
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(Journal().size(), 1);
}

TEST_F(Entry, AnEditIsCheckedByNothingAndCutsTheCounterparty) {
    desk.Execute(
        u"insert into TB1 (SN,LB,S2,F1,F2,F3,FK,QC,QM,F5,F6) values "
        u"(31,-10,'收款','sk1','2024-03-01','华兴',5,0,-5,'甲','甲')"_s);
    desk.Execute(u"update SysInfo set Setval=31 where ID=100"_s);
    Open(u"D4"_s, u"PayLst"_s);
    EXPECT_EQ(desk.Grid().TextMatrix(0, 2), u"付款单位"_s);
    AltKey(u'E');
    EXPECT_EQ(Where(), u"1,0"_s);
    EnterRow({u"sk1"_s, u"2024-03-02"_s, u"恒丰.南"_s, u""_s, u"李"_s, u"改"_s});
    EXPECT_EQ(Where(), u"1,0"_s) << "the cursor stays in the row";
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(Journal(), QStringList{u"30|-10|收款|SK1|2024-03-02|恒丰|0|0|0|0|李|甲|甲|改"_s})
        << "the amount may be 0; who made it stays";
    // An edit can be given up without a question.
    AltKey(u'E');
    Enter(u"SK9"_s);
    AltKey(u'C');
    EXPECT_EQ(desk.Grid().TextMatrix(1, 0), u"SK1"_s);
}

TEST_F(Entry, AnEditWhoseKeyIsEmptiedTouchesNoOtherRecord) {
    for (const int row : {1, 2})
        desk.Execute(
            u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F5,F6) values (%1,-9,'YS%1','2024-03-01','华兴',5,0,5,'x','x')"_s
                .arg(row));
    Open();
    const QStringList journal = Journal();
    AltKey(u'E');
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Grid().TextMatrix(1, 0), u"YS2"_s) << "the row has gone from the grid";
    ExpectBox(u"请选择要修改的行！"_s);
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(desk.Lines().size(), 2);
    EXPECT_EQ(Journal(), journal);
    // The last row is only emptied; it is still the record that is written.
    Press(Qt::Key_Down);
    AltKey(u'E');
    EnterRow({u""_s, u"2024-03-01"_s, u"华兴"_s, u"7"_s, u""_s, u""_s});
    Press(Qt::Key_Escape);  // else the empty key would be committed once more
    AltKey(u'S');
    EXPECT_EQ(desk.Rows(u"select SN,F1,YF from TB1 order by SN"_s), (QStringList{u"1|YS1|5"_s, u"3||7"_s}));
}

TEST_F(Entry, AnEditBeginsWithTheRowAsItIsInTheFile) {
    desk.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values (31,-9,'YS1','2024-03-01','华兴',100,'x')"_s);
    Open();
    desk.Execute(u"update TB1 set YF=150,SN=33"_s);
    AltKey(u'E');
    EnterRow({{}, {}, {}, {}, {}, u"催"_s});
    Press(Qt::Key_Escape);
    AltKey(u'S');
    // The place that it leaves is the one in the file; behind no other row its new one is the first.
    EXPECT_EQ(desk.Rows(u"select F1,SN,YF,F10 from TB1"_s), QStringList{u"YS1|30|150|催"_s});
    desk.Execute(u"delete from TB1"_s);
    ExpectBox(u"记录已被删除。"_s);
    AltKey(u'E');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(desk.Lines(), QStringList{u"|||||||||"_s});
}

TEST_F(Entry, AnEditOfAReceiptKeepsTheAmountThatIsNotTyped) {
    desk.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3,FK,F6) values (31,-10,'SK1','2024-03-01','华兴',30,'x')"_s);
    Open(u"D4"_s, u"PayLst"_s);
    AltKey(u'E');
    EnterRow({{}, {}, {}, {}, {}, u"补"_s});
    Press(Qt::Key_Escape);
    AltKey(u'S');
    EXPECT_EQ(desk.Rows(u"select F1,YF,FK,F10 from TB1"_s), QStringList{u"SK1|0|30|补"_s});
    // It is searched by the amount that it shows.
    ModalScript modals;
    modals.Next(u"Query"_s, [](QWidget& query) {
        Find<controls::ComboBox>(query, u"CmbF"_s).SetListIndex(4);
        Find<controls::ComboBox>(query, u"CmbGX"_s).SetListIndex(2);
        Find<controls::LineBox>(query, u"Txt"_s).SetText(u"30"_s);
        Click(Find<controls::Button>(query, u"CmdAdd"_s));
        Click(Find<controls::Button>(query, u"CmdQuery"_s));
    });
    AltKey(u'Q');
    EXPECT_EQ(desk.Grid().TextMatrix(1, 0), u"SK1"_s);
}

TEST_F(Entry, AnAmountThatIsTooLargeIsRefused) {
    Open();
    AltKey(u'A');
    EnterRow({u"A"_s, u""_s, u"华兴"_s, u"7"_s});
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    ExpectBox(u"溢出"_s);
    Enter(u"12E4567"_s);
    EXPECT_EQ(Where(), u"1,6"_s) << "entering goes on";
    EXPECT_EQ(desk.Grid().TextMatrix(1, 5), u"7"_s);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    ExpectBox(u"溢出"_s);
    TypeOver(u"1e999"_s);
    AltKey(u'S');
    EXPECT_EQ(Where(), u"1,5"_s) << "and the save does not";
    EXPECT_TRUE(Journal().isEmpty());
}

TEST_F(Entry, PaymentsFollowTheChainAndKeepTheirOwnColumn) {
    desk.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values "
        u"(31,9,'YF1','2024-03-05','环洋',100,0,100,'x')"_s);
    desk.Execute(u"update SysInfo set Setval=31 where ID=100"_s);
    Open(u"D3"_s, u"PayLst"_s);
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"付款"_s);
    AltKey(u'A');
    EXPECT_EQ(desk.Grid().Editor()->text(), u"FK240315100000"_s);
    auto& parties = desk.At<controls::ComboBox>(u"CmbEnter(2)"_s);
    EXPECT_EQ(parties.ListCount(), 1);
    EXPECT_EQ(parties.List(0), u"环洋"_s) << "channels are paid";
    EnterRow({u"YS7"_s, u"2024-03-04"_s, u"环洋"_s, u"30"_s, u""_s, u""_s});
    Press(Qt::Key_Escape);  // else the key of the next row would be committed too
    AltKey(u'S');
    EXPECT_EQ(Journal(),
              (QStringList{u"7.75|10|付款|YS7|2024-03-04|环洋|0|30|0|-30||管理员|管理员|"_s,
                           u"31|9|<null>|YF1|2024-03-05|环洋|100|0|-30|70|<null>|<null>|x|<null>"_s}));
    desk.script.Question(u"真的要删除[YS7]吗？"_s, u"提示"_s, false);
    AltKey(u'D');
    EXPECT_EQ(Journal().size(), 2);
    desk.script.Question(u"真的要删除[YS7]吗？"_s, u"提示"_s, true);
    AltKey(u'D');
    EXPECT_EQ(Journal(),
              QStringList{u"31|9|<null>|YF1|2024-03-05|环洋|100|0|-30|70|<null>|<null>|x|<null>"_s})
        << "the rest keeps its balances";
    EXPECT_EQ(desk.Lines(), QStringList{u"|||||||||"_s});
    AltKey(u'D');
    ExpectBox(u"请选择要修改的行！"_s);
    AltKey(u'E');
}

TEST_F(Entry, WithoutTheRightRowsMayBeAddedAndNothingElse) {
    desk.Execute(u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values (31,9,'YF1','2024-03-05','环洋',100,'x')"_s);
    CanEditLedger = false;
    Open(u"D1"_s);
    for (const char16_t command : {u'E', u'D'}) {
        ExpectBox(u"对不起,您无此权限!"_s);
        AltKey(command);
        EXPECT_TRUE(desk.script.Done());
    }
    AltKey(u'A');
    EXPECT_TRUE(EditInProgress);
    // The kind does not change under an entry that is being typed.
    desk.script.Box(u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s, Title, sys::BoxIcon::Warning);
    desk.Frame().MenuItem(u"Menu_ys"_s)->trigger();
    EXPECT_EQ(desk.Frame().Front()->LB, 9);
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"增加应付款"_s);
    desk.script.Question(u"确定不保存您新录入的资料吗？"_s, {}, true, sys::BoxIcon::Information);
    AltKey(u'C');
    desk.Frame().MenuItem(u"Menu_ys"_s)->trigger();
    EXPECT_EQ(desk.Lines(), QStringList{u"|||||||||"_s}) << "loaded anew for the other kind";
}

TEST_F(Entry, ASearchKeepsTheKindAndFindsTheCounterpartyUnderTwoCaptions) {
    for (const auto& values :
         {u"(31,-9,'YS1','2024-03-05','华兴',100,'x')"_s, u"(32,-9,'YS2','2024-03-06','恒丰',7,'x')"_s,
          u"(33,9,'YF1','2024-03-06','华兴',8,'x')"_s})
        desk.Execute(u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values "_s + values);
    Open();
    EXPECT_EQ(desk.Lines().size(), 2);
    ModalScript modals;
    modals.Next(u"Query"_s, [](QWidget& query) {
        auto& fields = Find<controls::ComboBox>(query, u"CmbF"_s);
        QStringList items;
        for (int i = 0; i < fields.ListCount(); ++i) items += fields.List(i);
        EXPECT_EQ(items.join(u' '), u"单据编码 发生日期 关系单位 相关单据 欠款金额 经手人 制单人 备注"_s);
        fields.SetListIndex(3);
        Find<controls::LineBox>(query, u"Txt"_s).SetText(u"华兴"_s);
        Click(Find<controls::Button>(query, u"CmdAdd"_s));
        Click(Find<controls::Button>(query, u"CmdQuery"_s));
    });
    AltKey(u'Q');
    EXPECT_EQ(desk.Lines(), QStringList{u"YS1|2024-03-05|华兴|||100||||31"_s});
    // After a save and a cancel the same rows come again.
    AltKey(u'E');
    AltKey(u'C');
    EXPECT_EQ(desk.Lines().size(), 1);
}

/// The kind is joined to the last condition alone.
TEST_F(Entry, ASearchWithOrListsOtherKindsWhichAreEditedToo) {
    for (const auto& values :
         {u"(31,-9,'YS1','2024-03-05','华兴',100,'x')"_s, u"(33,9,'YF1','2024-03-06','环洋',8,'x')"_s})
        desk.Execute(u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values "_s + values);
    Open();
    ModalScript modals;
    modals.Next(u"Query"_s, [](QWidget& query) {
        Find<controls::ComboBox>(query, u"CmbF"_s).SetListIndex(2);
        auto& value = Find<controls::LineBox>(query, u"Txt"_s);
        for (const QString& party : {u"环洋"_s, u"华兴"_s}) {
            value.SetText(party);
            Click(Find<controls::Button>(query, u"CmdAdd"_s));
            Find<controls::ComboBox>(query, u"CmbLG"_s).SetListIndex(1);
        }
        Click(Find<controls::Button>(query, u"CmdQuery"_s));
    });
    AltKey(u'Q');
    ASSERT_EQ(desk.Lines().size(), 2);
    desk.Grid().SetRow(desk.Grid().RowOf(0, u"YF1"_s, 1));
    AltKey(u'E');
    EnterRow({{}, {}, {}, u"9"_s});
    AltKey(u'S');
    EXPECT_EQ(desk.Rows(u"select F1,LB,YF from TB1 order by F1"_s),
              (QStringList{u"YF1|9|9"_s, u"YS1|-9|100"_s}));
}

TEST_F(Entry, KeysOfOtherCommandsLeaveTheCellAndAnExportHasWhatIsTyped) {
    Open();
    AltKey(u'A');
    EnterRow({u"A"_s, u""_s, u"华兴"_s});
    TypeOver(u"12"_s);
    const std::pair<Qt::Key, Qt::KeyboardModifiers> others[] = {
        {Qt::Key_B, Qt::AltModifier},
        {Qt::Key_7, Qt::MetaModifier},
        {Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier}};
    for (const auto& [key, held] : others) QTest::keyClick(QApplication::focusWidget(), key, held);
    EXPECT_EQ(desk.Grid().Editor()->text(), u"12"_s);
    ModalScript modals;
    modals.Next(u"ToExcel"_s, [this](QWidget& form) {
        EXPECT_EQ(desk.Grid().TextMatrix(1, 5), u"12"_s);
        Click(Find<controls::Button>(form, u"Cmd(1)"_s));
    });
    AltKey(u'T');
    EXPECT_EQ(Where(), u"1,5"_s);
    EXPECT_TRUE(desk.Grid().Editing()) << "typing goes on";
}

TEST_F(Entry, TheEditorIsCommittedByScrollingAndByTheMouse) {
    for (int i = 1; i <= 60; ++i)
        desk.Execute(
            u"insert into TB1 (SN,LB,F1,F2,F3,YF,F6) values (%1,-9,'YS%1','2024-03-05','华兴',5,'x')"_s.arg(
                i));
    Open();
    AltKey(u'A');
    TypeOver(u"N1"_s);
    desk.Grid().SetTopRow(1);
    EXPECT_EQ(desk.Grid().TextMatrix(61, 0), u"N1"_s);
    Type(u"m"_s);
    Press(Qt::Key_Return);
    QTest::mouseClick(desk.Grid().viewport(), Qt::LeftButton, {}, desk.Grid().CellRect(61, 8).center());
    Settle();
    EXPECT_EQ(Where(), u"61,8"_s);
    EXPECT_TRUE(desk.Grid().Editing());
    EXPECT_EQ(desk.Grid().TextMatrix(61, 1), u"2024-03-15"_s);
    QTest::mouseClick(desk.Grid().viewport(), Qt::LeftButton, {}, desk.Grid().CellRect(50, 2).center());
    Settle();
    EXPECT_EQ(Where(), u"61,2"_s) << "not above the block";
}

}  // namespace
}  // namespace tests
