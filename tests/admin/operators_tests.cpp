// The operators' form: what is refused, what is stored, and what the ticks show.
#include "tests/support/program.h"

#include <QCoreApplication>
#include <QInputMethodEvent>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Stored = u"select F1,F2,F3,F60,F61,F62,F63,F64,F65,F66,F67 from TE1 order by F1"_s;
const QString Administrator = u"001|管理员||-1|-1|-1|-1|-1|-1|-1|0"_s;

class Operators : public Program {
  public:
    explicit Operators(const QStringList& rows = {}, const QString& operatorCode = u"001"_s)
        : Program(rows, operatorCode) {
        Open(u"S2"_s, u"S02"_s);
    }
    /// The ticks, "1" and "0" in their order.
    QString Ticks() {
        QString ticks;
        for (int i = 0; i < 8; ++i) ticks += QString::number(Right(i).Value());
        return ticks;
    }
    controls::CheckBox& Right(int i) { return At<controls::CheckBox>(u"Chk(%1)"_s.arg(i)); }
    void Tick(int i) {
        Enter(u"Chk(%1)"_s.arg(i));
        Press(Qt::Key_Space);
    }
    void Fill(const QStringList& texts) {
        for (int i = 0; i < texts.size(); ++i) SetBox(i, texts[i]);
    }
    QStringList Table() { return Rows(Stored); }
};

QString Inserted(const QString& values) {
    return u"insert into TE1 (F1,F2,F3,F60,F61,F62,F63,F64,F65,F66,F67) VALUES (%1)"_s.arg(values);
}

TEST(OperatorsForm, ShowsPasswordsInClearAndTheTicksOfTheStoredRow) {
    Operators form({Inserted(u"'002','张敏','abC',0,1,0,1,0,1,0,7"_s),
                    Inserted(u"'003','李四',null,null,null,null,null,null,null,null,null"_s),
                    Inserted(u"'004','王五','',0,0,0,0,0,0,0,-1"_s)});
    EXPECT_EQ(form.Lines(),
              (QStringList{u"001|管理员|"_s, u"002|张敏|abC"_s, u"003|李四|"_s, u"004|王五|"_s}));
    EXPECT_EQ(form.Status(), u"共 4 条记录 当前为第 1 条"_s);
    const QString ticks[] = {u"11111110"_s, u"01010101"_s, u"00000000"_s, u"00000001"_s};
    for (int row = 1; row <= 4; ++row) {
        form.ShowCard(row);
        EXPECT_EQ(form.Ticks(), ticks[row - 1]) << row;
        EXPECT_FALSE(form.Right(0).isEnabled());
    }
    form.ShowCard(2);
    EXPECT_EQ(form.Boxes(0, 2), u"002|张敏|abC"_s);
    EXPECT_EQ(form.At<controls::LineBox>(u"Txt(2)"_s).echoMode(), QLineEdit::Normal);
}

TEST(OperatorsForm, StoresComposedLettersInUpperCase) {
    Operators form;
    AltKey(u'A');
    form.Fill({u"ab"_s, {}, {}});
    for (const auto& [box, text] : {std::pair(u"Txt(1)"_s, u"王a"_s), std::pair(u"Txt(2)"_s, u"geheim"_s)}) {
        form.Enter(box);
        QInputMethodEvent committed;
        committed.setCommitString(text);
        QCoreApplication::sendEvent(&form.At<QWidget>(box), &committed);
    }
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F1,F2,F3 from TE1 where F1='AB'"_s), QStringList{u"AB|王A|GEHEIM"_s});
}

TEST(OperatorsForm, AddsInUpperCaseWithTheTicksOfTheOneSeenBefore) {
    Operators form({Inserted(u"'002','张敏','abC',0,1,0,1,0,1,0,7"_s)});
    form.ShowCard(2);
    AltKey(u'A');
    EXPECT_EQ(form.Boxes(0, 2), u"||"_s);
    EXPECT_EQ(FocusName(), u"Txt(0)");
    EXPECT_EQ(form.Ticks(), u"01010101"_s);
    Type(u"a1b2c"_s);
    Press(Qt::Key_Return);
    Type(u" wang 敏 "_s);
    Press(Qt::Key_Return);
    Type(u"geheim"_s);
    form.Tick(0);
    form.Tick(1);
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(form.Table().last(), u"A1B2|WANG 敏|GEHEIM|-1|0|0|-1|0|-1|0|1"_s);
    EXPECT_EQ(form.Lines().last(), u"A1B2|WANG 敏|GEHEIM"_s);
    EXPECT_FALSE(form.Right(0).isEnabled());
    form.script.Question(u"真的要删除WANG 敏的资料吗?"_s, Title, false);
    AltKey(u'D');  // the saved record is the next command's
}

TEST(OperatorsForm, RefusesAndStaysAsItWas) {
    Operators form(
        {Inserted(u"'002','张敏','x',0,0,0,0,0,0,0,0"_s), Inserted(u"'003','','y',0,0,0,0,0,0,0,0"_s)});
    const QStringList before = form.Table();
    const struct {
        bool edits;  ///< the second row
        QStringList texts;
        QString refusal;
    } rows[] = {
        {false, {u" "_s, u""_s, u"P"_s}, u"操作员帐号不能为空!"_s},
        {false, {u"005"_s, u" "_s, u"P"_s}, u"操作员姓名不能为空!"_s},
        {false, {u"001 "_s, u"乙"_s, u""_s}, u"[001 ]已经使用了这个编号，请重新设置编号!"_s},
        {true, {u"001"_s, u"张敏"_s, u"X"_s}, u"[001]已经使用了这个编号，请重新设置编号!"_s},
    };
    for (const auto& row : rows) {
        form.GoToRow(2);
        AltKey(row.edits ? u'E' : u'A');
        form.Fill(row.texts);
        form.RefusesToSave(row.refusal);
        EXPECT_EQ(form.Boxes(0, 2), row.texts.join(u'|'));
        AltKey(u'C');
        EXPECT_EQ(form.Table(), before);
    }
    // A stored operator without a name is no duplicate.
    AltKey(u'A');
    form.Fill({u"003"_s, u"丁"_s, u""_s});
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F2 from TE1 where F1='003' order by F2"_s), (QStringList{u""_s, u"丁"_s}));
}

TEST(OperatorsForm, EditsAnyCodeTheAdministratorsTooAndTheSessionKeepsItsRights) {
    Operators form({Inserted(u"'002','张敏','x',0,0,0,1,0,0,0,7"_s)}, u"002"_s);
    form.GoToRow(1);
    AltKey(u'E');
    EXPECT_EQ(FocusName(), u"Txt(0)");
    form.SetBox(0, u"009"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Table(),
              (QStringList{u"002|张敏|x|0|0|0|-1|0|0|0|7"_s, u"009|管理员||-1|-1|-1|-1|-1|-1|-1|0"_s}));
    EXPECT_EQ(form.Lines(), (QStringList{u"002|张敏|x"_s, u"009|管理员|"_s})) << "the edited one is the last";

    form.GoToRow(1);
    AltKey(u'E');
    form.Tick(3);
    form.Tick(4);
    AltKey(u'S');
    // What the accounts menu is granted by is stored as the box shows it: the place of the last origin is
    // lost.
    EXPECT_EQ(form.Table().first(), u"002|张敏|x|0|0|0|0|-1|0|0|1"_s);
    EXPECT_TRUE(form.Frame().MenuVisible(u"Menu_S"_s));
    EXPECT_FALSE(CanEditReleased);
}

TEST(OperatorsForm, DeletesAllButTheAdministrator) {
    Operators form({Inserted(u"'002','张敏','x',0,0,0,1,0,0,0,7"_s)}, u"002"_s);
    form.GoToRow(1);
    form.script.Box(u"001是管理员帐号，不能删除!"_s, Title);
    AltKey(u'D');
    form.GoToRow(2);
    form.script.Question(u"真的要删除张敏的资料吗?"_s, Title, false);
    AltKey(u'D');
    EXPECT_EQ(form.Table().size(), 2);
    form.script.Question(u"真的要删除张敏的资料吗?"_s, Title, true);
    AltKey(u'D');  // himself: he goes on working
    EXPECT_EQ(form.Table(), QStringList{Administrator});
    EXPECT_EQ(form.Lines(), QStringList{u"001|管理员|"_s});
    EXPECT_EQ(form.Status(), u"共 1 条记录 当前为第 1 条"_s);

    AltKey(u'E');
    form.SetBox(0, u"002"_s);
    AltKey(u'S');
    form.script.Question(u"真的要删除管理员的资料吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(form.Table(), QStringList());
    AltKey(u'D');  // nothing is left to be asked about
    form.Tabs().SelectItem(2);
    EXPECT_EQ(form.Boxes(0, 2) + form.Ticks(), u"||00000000"_s);
}

TEST(OperatorsForm, AnApostropheFailsTheStatementAndNeverBecomesPartOfIt) {
    const struct {
        QStringList texts;
        QString shown;  ///< of the failing statement
    } rows[] = {
        {{u"7"_s, u"O'K"_s, u"P"_s}, u"VALUES ('7','O'K','******',"_s},
        {{u"7"_s, u"X"_s, u"A',1,1,1,1,1,1,1,1)"_s}, u"VALUES ('7','X','******',"_s},
        {{u"7"_s, u"X"_s, u"A''B"_s}, u"VALUES ('7','X','******',"_s},
    };
    for (const bool edits : {false, true}) {
        for (const auto& row : rows) {
            Operators form({Inserted(u"'002','张敏','x',0,0,0,1,0,0,0,7"_s)});
            form.GoToRow(2);
            AltKey(edits ? u'E' : u'A');
            form.Fill(row.texts);
            form.EndsWith(u"单引号"_s);
            AltKey(u'S');
            EXPECT_TRUE(form.script.Done());
            EXPECT_TRUE(form.script.LastBox().detail.contains(row.shown))
                << form.script.LastBox().detail.toStdString();
            // An edit has deleted the old row by then.
            EXPECT_EQ(form.Rows(u"select F1 from TE1 order by F1"_s).join(u' '),
                      edits ? u"001"_s : u"001 002"_s);
        }
    }
}

}  // namespace
}  // namespace tests
