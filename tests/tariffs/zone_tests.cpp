// The selling zones' form, driven by keys: the card, its places, its prices, saving, deleting, refusing.
#include "tests/tariffs/zone_program.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString NoPlace = u"请输入该区域包含的具体地区名！"_s;
const QString Prices =
    u"P101,P102,P201,P202,P301,P302,P303,P304,P305,P306,P307,P308,P309,P310,P311,P312,"
    u"P313,P314,P315"_s;

/// Two zones with all their prices, a standard, and what refers to the first zone.
QStringList TwoZones() {
    QString ascending;
    for (int i = 1; i <= 19; ++i) ascending += u",%1"_s.arg(i * 10 + 0.5);
    return {u"insert into MS1 (F1,F2,F3,F4,F5,F6,F7) VALUES (10.5,0.5,1,null,21,46.5,71)"_s,
            u"insert into M02 (F1,F2,F3,F4,F6,F8,"_s + Prices +
                u") VALUES ('Z1','北美','国内','America',3,'注'"_s + ascending + u')',
            u"insert into M02 (F1,F2,F4,P101,P301) VALUES ('Z2','南美','South',7,8)"_s,
            u"insert into M021 (F0,F1,F2,F8) VALUES ('Z1','纽约','New York','快')"_s,
            u"insert into M021 (F0,F1) VALUES ('Z1','多伦多')"_s,
            u"insert into M031 (F0,F1,F2) VALUES ('C1','Z1',5)"_s,
            u"insert into B01 (F1,F203) VALUES ('W1','Z1')"_s};
}

class Zones : public ZoneProgram {
  public:
    explicit Zones(const QStringList& masters = TwoZones(), const QString& operatorCode = u"001"_s)
        : ZoneProgram(masters, operatorCode) {
        Open(u"A3"_s, u"A02"_s);
    }
    QString Range() { return At<controls::ComboBox>(u"cmbFw"_s).Text(); }
    QStringList Zone(const QString& code, const QString& fields) {
        return Rows(u"select "_s + fields + u" from M02 where F1='"_s + code + u'\'');
    }
    QStringList Codes() { return Rows(u"select F1 from M02 order by F1"_s); }
    QStringList Places() { return Rows(u"select F0,F1,F2,F8 from M021"_s); }
};

TEST(A02, ShowsTheCardWithTheBracketsOfTheStandard) {
    Zones form;
    form.ShowCard();
    EXPECT_EQ(form.Boxes(0, 4), u"Z1|北美|America|3|注");
    EXPECT_EQ(form.Boxes(9, 14), u"10.5|20.5|30.5|40.5|50.5|60.5");
    EXPECT_EQ(form.Range(), u"国内");
    QStringList captions;
    for (const int box : {9, 10, 11, 12, 13, 14, 15, 27}) captions += form.Caption(box);
    EXPECT_EQ(
        captions.join(u' '),
        u"文件首10.5Kg 文件续0.5Kg 小包裹首1.0Kg 小包裹续0.5Kg 21Kg~~45.5Kg 46.5Kg~~70Kg 71Kg~~-1Kg 0Kg以上");
    // Whole numbers of the first four prices show one decimal, the heavy ones as they come.
    AltKey(u'R');
    form.Open(u"A3"_s, u"A02"_s);
    form.ShowCard(2);
    EXPECT_EQ(form.Boxes(9, 13), u"7.0||||8");
    EXPECT_EQ(form.Range(), u"国外") << "anything but 国内, nothing too";
    EXPECT_EQ(form.AreaLines(), QStringList{u"||"_s});
    form.TextBoxAt(20).SetFocus();
    Settle();
    EXPECT_EQ(FocusName(), u"TabS") << "though the box is never locked";
}

TEST(A02, ProposesAsTheBoxesAreEntered) {
    Zones form;
    AltKey(u'A');
    EXPECT_EQ(FocusName(), u"Txt(0)");
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(1), u"") << "nothing is proposed without a code";
    form.SetBox(0, u"zz-1 中 "_s);
    EXPECT_EQ(form.Box(0), u"ZZ-1 中 ") << "upper case while it is typed";
    Type(u"345"_s);
    EXPECT_EQ(form.Box(0), u"ZZ-1 中 3") << "eight characters at most";
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(0), u"ZZ-1 中") << "trailing blanks go when it is left";
    form.SetBox(0, {});
    QGuiApplication::clipboard()->setText(u"zz-1 中"_s);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.Box(0), u"ZZ-1 中") << "upper case when it is pasted";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(1), u"区域ZZ-1 中");
    Type(u"新区"_s);
    EXPECT_EQ(form.Box(1), u"新区") << "ready to be typed over";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(2), u"Zone ZZ-1 中");
    Press(Qt::Key_Return);
    Type(u"5"_s);
    form.GoTo(u"Txt(6)"_s);
    EXPECT_EQ(form.Box(6), u"新区");
    EXPECT_EQ(form.Box(7), u"5") << "the days replace the English name";
    form.SetBox(7, u"City"_s);
    form.GoTo(u"Txt(8)"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"Cmd(0)");
    Press(Qt::Key_Return);
    EXPECT_EQ(form.AreaLines(), (QStringList{u"新区|City|"_s, u"||"_s})) << "a second Enter adds the place";
    EXPECT_EQ(FocusName(), u"Txt(6)");
    EXPECT_EQ(form.Box(7), u"City") << "the boxes keep their text";
    form.SetBox(7, u""_s);
    form.SetBox(6, u"别处"_s);
    EXPECT_EQ(form.Box(7), u"") << "with a place in the list nothing is proposed any more";
    AltKey(u'C');
}

TEST(A02, AddsAndDeletesPlaces) {
    Zones form;
    form.ShowCard();
    AltKey(u'E');
    const QStringList before = form.AreaLines();
    form.SetBox(6, u"  "_s);
    for (const auto& button : {u"Cmd(0)"_s, u"Cmd(1)"_s}) {
        form.Push(button);
        EXPECT_EQ(FocusName(), u"Txt(6)");
    }
    EXPECT_EQ(form.AreaLines(), before);
    form.SetBox(6, u" 多伦多 "_s);
    form.script.Box(u"已经录入了“ 多伦多 ”！"_s, Title);
    form.Push(u"Cmd(0)"_s);
    EXPECT_EQ(form.Areas().Row(), 2) << "the place that is there is shown";
    EXPECT_EQ(FocusName(), u"Txt(6)");
    // A click takes a row into the boxes; two places may share an English name.
    QTest::mouseClick(form.Areas().viewport(), Qt::LeftButton, {}, form.Areas().CellRect(1, 1).center());
    Settle();
    EXPECT_EQ(form.Boxes(6, 8), u"纽约|New York|快");
    form.AddPlace(u"纽约二"_s);
    EXPECT_EQ(form.AreaLines(),
              (QStringList{u"纽约|New York|快"_s, u"多伦多||"_s, u"纽约二|New York|快"_s, u"||"_s}));
    EXPECT_EQ(form.Areas().Row(), 3);
    form.SetBox(6, u"没有"_s);
    form.script.Box(u"不存在地区“没有”!"_s, Title);
    form.Push(u"Cmd(1)"_s);
    EXPECT_EQ(FocusName(), u"Txt(6)");
    form.SetBox(6, u"纽约 "_s);
    form.Push(u"Cmd(1)"_s);
    EXPECT_EQ(form.AreaLines(), (QStringList{u"多伦多||"_s, u"纽约二|New York|快"_s, u"||"_s}));
    EXPECT_EQ(FocusName(), u"Cmd(1)") << "no message, no move";
    AltKey(u'S');
    EXPECT_EQ(form.Places(), (QStringList{u"Z1|多伦多||"_s, u"Z1|纽约二|New York|快"_s}));
}

TEST(A02, RefusesInOrder) {
    Zones form;
    AltKey(u'A');
    form.RefusesToSave(u"区域编号不能为空!"_s);
    form.SetBox(0, u"z1"_s);
    form.RefusesToSave(u"区域概称(中文)不能为空!"_s);
    form.SetBox(1, u"重名"_s);
    form.RefusesToSave(NoPlace);
    form.AddPlace(u"某地"_s);
    for (const int box : {9, 12, 17}) {
        form.SetBox(box, u"-0.01"_s);
        form.RefusesToSave(u"价格不能为负值！"_s);
        form.SetBox(box, u""_s);
    }
    form.SetBox(18, u"-5"_s);
    form.RefusesToSave(u"[北美]已经使用了Z1这个编号，请重新设置编号!"_s);
    EXPECT_EQ(FocusName(), u"Txt(0)");
    EXPECT_TRUE(EditInProgress);
    EXPECT_EQ(form.Codes(), (QStringList{u"Z1"_s, u"Z2"_s}));
    form.SetBox(0, u"z3 "_s);
    AltKey(u'S');  // by its key, from within the box
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(form.Zone(u"Z3"_s, u"F2,F3,F4,F6,F8,P101,P305,P306,P307"_s),
              QStringList{u"重名|国内||0||0|0|-5|110.5"_s})
        << "blank prices are 0, a negative one behind the sixth bound is taken, those behind keep the old "
           "ones";
    EXPECT_EQ(form.Places().back(), u"Z3|某地||");
}

TEST(A02, ANewZoneBeginsWithHeavyPricesAndRangeOfTheOneBefore) {
    Zones form;
    form.ShowCard();
    AltKey(u'A');
    EXPECT_EQ(form.Boxes(18, 27), u"100.5|110.5|120.5|130.5|140.5|150.5|160.5|170.5|180.5|190.5");
    EXPECT_EQ(form.Range(), u"国内");
    form.GoTo(u"cmbFw"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(form.Range(), u"国外");
    Type(u"x"_s);
    EXPECT_EQ(form.Range(), u"国外") << "these two and no other";
    form.SetBox(0, u"n1"_s);
    form.SetBox(1, u"新"_s);
    form.SetBox(3, u"4天"_s);
    form.SetBox(9, u"12.50"_s);
    form.AddPlace(u"甲地"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Zone(u"N1"_s, u"F3,F6,P101,P315"_s), QStringList{u"国外|4|12.5|190.5"_s});
    EXPECT_EQ(form.Lines().back(),
              u"N1|新||4||12.50|||||||||100.5|110.5|120.5|130.5|140.5|150.5|160.5|170.5|180.5|"
              u"190.5|")
        << "the list carries the texts as typed until the next opening";
    EXPECT_EQ(form.Status(), u"共 3 条记录 当前为第 1 条") << "the highlight stays";
    AltKey(u'E');
    EXPECT_EQ(form.Box(0), u"N1") << "but the saved zone is the next command's";
    EXPECT_EQ(form.Box(9), u"12.50") << "the card is as it was saved";
    AltKey(u'C');
}

TEST(A02, AnEditReplacesAllAndFollowsNoReference) {
    Zones form;
    form.ShowCard();
    AltKey(u'E');
    EXPECT_EQ(FocusName(), u"Txt(0)");
    Type(u"y9"_s);
    form.SetBox(2, u"renamed"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Codes(), (QStringList{u"Y9"_s, u"Z2"_s}));
    EXPECT_EQ(
        form.Zone(u"Y9"_s, u"F2,F3,F4,F6,F8,"_s + Prices),
        QStringList{u"北美|国内|renamed|3|注|10.5|20.5|30.5|40.5|50.5|60.5|70.5|80.5|90.5|100.5|110.5|120.5|"
                    u"130.5|140.5|150.5|160.5|170.5|180.5|190.5"_s});
    EXPECT_EQ(form.Places(), (QStringList{u"Y9|纽约|New York|快"_s, u"Y9|多伦多||"_s}));
    EXPECT_EQ(form.Rows(u"select F1 from M031"_s) + form.Rows(u"select F203 from B01"_s),
              (QStringList{u"Z1"_s, u"Z1"_s}));
    EXPECT_TRUE(form.Lines().back().startsWith(u"Y9|")) << "last until the next opening";

    // To another's code: refused. Its own in another case counts as changed, and so as taken.
    AltKey(u'E');
    form.SetBox(0, u"z2"_s);
    form.RefusesToSave(u"[南美]已经使用了Z2这个编号，请重新设置编号!"_s);
    AltKey(u'C');
    EXPECT_EQ(form.Box(0), u"Y9");
    EXPECT_EQ(form.Codes().size(), 2);
}

TEST(A02, OnlyTheFirstPlaceIsLookedAtAndLeadingBlanksOfTheCodeStay) {
    Zones form(TwoZones() + QStringList{u"insert into M021 (F0,F1,F2) VALUES ('Z2','','x')"_s,
                                        u"insert into M021 (F0,F1,F2) VALUES ('Z2','利马','Lima')"_s});
    form.ShowCard(2);
    AltKey(u'E');
    form.RefusesToSave(NoPlace);
    AltKey(u'C');
    form.ShowCard();
    AltKey(u'E');
    form.SetBox(0, u" q"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Codes(), (QStringList{u"Q"_s, u"Z2"_s}));
    EXPECT_EQ(form.Rows(u"select F0 from M021 where F1='纽约'"_s), QStringList{u" Q"_s});
}

TEST(A02, DeletesWithThePlainQuestionWhateverRefersToIt) {
    Zones form(TwoZones() + QStringList{u"insert into TE1 (F1,F2,F60) VALUES ('002','小王',1)"_s}, u"002"_s);
    form.ShowCard();
    form.script.Question(u"真的要删除北美吗?"_s, Title, false);
    AltKey(u'D');
    EXPECT_EQ(form.Codes().size(), 2);
    form.script.Question(u"真的要删除北美吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(form.Codes(), QStringList{u"Z2"_s});
    EXPECT_TRUE(form.Places().isEmpty());
    EXPECT_EQ(form.Rows(u"select F1 from M031"_s) + form.Rows(u"select F203 from B01"_s),
              (QStringList{u"Z1"_s, u"Z1"_s}));
    EXPECT_EQ(form.Tabs().SelectedItem(), 1);
    EXPECT_EQ(form.Status(), u"共 1 条记录 当前为第 1 条");
    form.script.Question(u"真的要删除南美吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(form.Lines(), QStringList{QString(24, u'|')});
    EXPECT_EQ(form.Status(), u"共 0 条记录 当前为第 1 条") << "the blank line is a row of the grid";
}

}  // namespace
}  // namespace tests
