// The four small master forms side by side: what each of them asks of the file, word for word, and refuses.
#include "tests/support/program.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString CourierTaken = u"系统中已经有其它外务员使用了这个姓名，请重新设置!"_s;

struct Member {
    QString keys, form, table;
    int keyLimit;
    bool noteRequired;
    QString user;   ///< the waybill that holds 乙 in the column by which the form asks for use
    QString taken;  ///< the message for the key 甲
};

const Member& Of(const QString& form) {
    static const Member members[] = {{u"A4"_s, u"A030"_s, u"M030"_s, 20, false, u"W2"_s, CourierTaken},
                                     {u"A6"_s, u"A04"_s, u"M04"_s, 4, false, u"W2"_s, CourierTaken},
                                     {u"A7"_s, u"A05"_s, u"M05"_s, 4, true, u"W1"_s, u"甲已经存在!"_s},
                                     {u"A8"_s, u"A06"_s, u"M06"_s, 50, true, u"W1"_s, u"甲已经存在!"_s}};
    for (const Member& member : members)
        if (member.form == form) return member;
    throw std::runtime_error("no such form");
}

/// Two records, 甲 used nowhere and 乙; one waybill each whose origin or courier is 乙.
class SmallMasters : public testing::TestWithParam<const char*> {
  protected:
    const Member& member = Of(QString::fromLatin1(GetParam()));

    QStringList Company() const {
        return {u"insert into %1 (F1,F2) VALUES ('甲','一')"_s.arg(member.table),
                u"insert into %1 (F1,F2) VALUES ('乙','二')"_s.arg(member.table),
                u"insert into B01 (F1,F201) VALUES ('W1','乙')"_s,
                u"insert into B01 (F1,F602) VALUES ('W2','乙')"_s,
                u"insert into B01 (F1,F702,F601) VALUES ('W3','甲','甲')"_s,
                u"insert into TE1 (F1,F2,F60) VALUES ('002','小王',1)"_s};
    }
    void Start(const QString& operatorCode = u"001"_s, bool filled = true) {
        program = std::make_unique<Program>(filled ? Company() : QStringList(), operatorCode);
        program->Open(member.keys, member.form);
    }
    QStringList Table() { return program->Rows(u"select F1,F2 from %1 order by F1"_s.arg(member.table)); }
    QStringList Waybills() { return program->Rows(u"select F1 from B01 order by F1"_s); }
    /// Selects the record in the list, whichever way the engine sorts the two.
    void GoTo(const QString& key) { program->GoToRow(program->Grid().TextMatrix(1, 0) == key ? 1 : 2); }

    std::unique_ptr<Program> program;
};

INSTANTIATE_TEST_SUITE_P(All, SmallMasters, testing::Values("A030", "A04", "A05", "A06"),
                         [](const auto& row) { return row.param; });

TEST_P(SmallMasters, AsksForWhatIsRequiredAndCutsWhatIsTooLong) {
    Start(u"001"_s, false);
    AltKey(u'A');
    program->RefusesToSave(program->Caption(0) + u"不能为空!"_s);
    Type(u"  "_s);
    program->RefusesToSave(program->Caption(0) + u"不能为空!"_s);
    program->SetBox(0, u"字"_s.repeated(51));
    EXPECT_EQ(program->Box(0).size(), member.keyLimit);
    if (member.noteRequired) program->RefusesToSave(program->Caption(1) + u"不能为空!"_s);
    program->SetBox(1, u"注"_s.repeated(50));
    EXPECT_EQ(program->Box(1).size(), 49);
    program->SetBox(1, member.noteRequired ? u" 注 "_s : u""_s);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Table().isEmpty()) << "Enter in the last box saves nothing";
    AltKey(u'S');
    const QString note = member.noteRequired ? u"注"_s : u""_s;
    EXPECT_EQ(Table(), QStringList{u"字"_s.repeated(member.keyLimit) + u'|' + note});
    EXPECT_EQ(program->Lines(), Table()) << "the blank line has gone";
}

TEST_P(SmallMasters, AnEditOfTheBlankLineStoresTheFirstRecord) {
    Start(u"001"_s, false);
    AltKey(u'E');
    program->SetBox(0, u"甲"_s);
    program->SetBox(1, u"一"_s);
    AltKey(u'S');
    EXPECT_EQ(Table(), QStringList{u"甲|一"_s});
    program->Tabs().SelectItem(1);
    EXPECT_EQ(program->Status(), u"共 0 条记录 当前为第 1 条"_s) << "an edit counts nothing";
    program->script.Question(u"真的要删除一吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_FALSE(sys::HasEnded());
    EXPECT_TRUE(Table().isEmpty());
    EXPECT_EQ(program->Lines(), QStringList{u"|"_s});
}

TEST_P(SmallMasters, ARecordWithAnEmptyKeyLeadsNoDeleteOutOfTheList) {
    // From another tool. Its line goes like the blank one of an empty list as soon as a record is added.
    program = std::make_unique<Program>(
        QStringList{u"insert into %1 (F1,F2) VALUES ('','零')"_s.arg(member.table),
                    u"insert into %1 (F1,F2) VALUES ('甲','一')"_s.arg(member.table)});
    program->Open(member.keys, member.form);
    AltKey(u'A');
    program->SetBox(0, u"丙"_s);
    program->SetBox(1, u"三"_s);
    AltKey(u'S');
    program->script.Question(u"真的要删除三吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_FALSE(sys::HasEnded());
    EXPECT_EQ(program->Lines(), QStringList{u"甲|一"_s});
}

TEST_P(SmallMasters, RefusesAKeyThatIsThere) {
    Start();
    AltKey(u'A');
    Type(u"甲"_s);
    program->SetBox(1, u"三"_s);
    program->RefusesToSave(member.taken);
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    EXPECT_EQ(Table().size(), 2);
    AltKey(u'C');
    // A row without a second field is there for those that ask for the key, and not for those that ask for
    // it.
    program->Execute(u"update %1 set F2='' where F1='甲'"_s.arg(member.table));
    AltKey(u'A');
    Type(u"甲"_s);
    program->SetBox(1, u"三"_s);
    if (!member.noteRequired) program->script.Box(member.taken, Title);
    AltKey(u'S');
    EXPECT_EQ(Table().size(), member.noteRequired ? 3 : 2);
    if (EditInProgress) AltKey(u'C');
}

TEST_P(SmallMasters, LooksForUseInItsColumn) {
    Start(u"002"_s);
    const QStringList waybills = Waybills();
    GoTo(u"乙"_s);
    program->script.Box(u"[二]已经在系统中应用，不能删除!"_s, Title);
    AltKey(u'D');
    AltKey(u'E');
    Type(u"丙"_s);
    EXPECT_EQ(program->Box(0), u"乙"_s) << "locked";
    AltKey(u'C');
    // What is in any other column of the waybills is no use.
    GoTo(u"甲"_s);
    program->script.Question(u"真的要删除一吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(Table(), QStringList{u"乙|二"_s});
    EXPECT_EQ(Waybills(), waybills);
}

TEST_P(SmallMasters, AdministratorTakesTheWaybillsOfItsColumnAlong) {
    Start();
    QStringList left = Waybills();
    GoTo(u"乙"_s);
    const QString question =
        u"[二]已经在系统中应用!\r如果删除将造成系统中其它记录的丢失!\r只有管理员才有权删除。真的要删除吗？"_s;
    for (const int yes : {0, 1, 2}) {  // answers before a No, if there is one
        EXPECT_EQ(Table().size(), 2);
        EXPECT_EQ(Waybills(), left);
        program->script.Question(question, Title, yes > 0);
        if (yes > 0) program->script.Question(question, u"请再次确认"_s, yes > 1);
        AltKey(u'D');
    }
    EXPECT_EQ(Table(), QStringList{u"甲|一"_s});
    left.removeAll(member.user);
    EXPECT_EQ(Waybills(), left);
}

TEST_P(SmallMasters, AnEditDeletesFirst) {
    Start();
    GoTo(u"甲"_s);
    AltKey(u'E');
    program->SetBox(0, u"丙"_s);
    program->SetBox(1, u"it's"_s);
    program->EndsWith(u"insert into %1 (F1,F2) VALUES ('丙','it's')"_s.arg(member.table));
    AltKey(u'S');
    EXPECT_EQ(Table(), QStringList{u"乙|二"_s});
}

}  // namespace
}  // namespace tests
