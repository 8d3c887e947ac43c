// The channels' form, driven by keys: brackets that are counted, shown, corrected and stored.
#include "tests/support/program.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

constexpr int SegmentCount = 7;
constexpr int FirstBound = 8;
constexpr int LastBound = 17;

QStringList OneChannel() {
    return {
        u"insert into M01 (F1,F2,F3,D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9) VALUES "
        u"('H1','环洋','空运',0.5,0.5,1,1,3,21,46,71,0,0,0,0,0,0,0)"_s};
}

class Channels : public Program {
  public:
    explicit Channels(const QStringList& masters = OneChannel()) : Program(masters) {
        Open(u"A1"_s, u"A01"_s);
    }
    /// The bounds that are seen, each with the caption behind it.
    QStringList Bounds() {
        QStringList seen;
        for (int i = FirstBound; i <= LastBound; ++i)
            if (TextBoxAt(i).Widget()->isVisible()) seen += Box(i) + Caption(i);
        return seen;
    }
    QStringList Stored() {
        return Rows(u"select F1,F2,F3,D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9 from M01"_s);
    }
    /// Fills a text box and leaves it by Enter.
    void EnterBox(int box, const QString& text) {
        SetBox(box, text);
        Press(Qt::Key_Return);
    }
};

TEST(A01, TheCardShowsTheBoundsOfTheTable) {
    const struct {
        QString change;
        QStringList bounds;
    } rows[] = {
        {u"update M01 set F3=F3"_s, {u"21Kg-45Kg"_s, u"46Kg-70Kg"_s, u"71Kg以上"_s}},
        {u"update M01 set JFD=1"_s,
         {u"21Kg-45Kg"_s, u"46Kg-70Kg"_s, u"71Kg以上"_s}},  // the bounds count, not JFD
        {u"update M01 set JFD=0"_s, {}},
        {u"update M01 set JFD=3,J1=0"_s, {u"21Kg以上"_s, u"71Kg以上"_s}},  // a hole hides one box
        {u"update M01 set J1=46.5,J2=null"_s, {u"21Kg-45.5Kg"_s, u"46.5Kg以上"_s}},
    };
    Channels form;
    for (const auto& row : rows) {
        form.Execute(row.change);
        form.ShowCard();
        EXPECT_EQ(form.Bounds(), row.bounds) << row.change.toStdString();
    }
    EXPECT_EQ(form.Box(3), u"0.5"_s);
    EXPECT_EQ(form.Box(5), u"1.0"_s);
    EXPECT_EQ(form.Status(), u"共 1 条记录 当前为第 1 条"_s);
}

TEST(A01, TheCountIsCorrectedAndShowsItsBounds) {
    const struct {
        QString typed, taken;
        int bounds;
    } rows[] = {{u"12"_s, u"10"_s, 10}, {u"3.7"_s, u"3"_s, 3},     {u"-1"_s, u"0"_s, 0},
                {u"段"_s, u"0"_s, 0},   {u"1e300"_s, u"10"_s, 10}, {u"2段"_s, u"2"_s, 2}};
    Channels form;
    AltKey(u'A');
    EXPECT_TRUE(form.Bounds().isEmpty());
    EXPECT_EQ(form.Box(3), u""_s) << "the defaults of the design are not offered";
    for (const auto& row : rows) {
        form.EnterBox(SegmentCount, row.typed);
        EXPECT_EQ(form.Box(SegmentCount), row.taken) << row.typed.toStdString();
        EXPECT_EQ(form.Bounds().size(), row.bounds);
        if (row.bounds == 0) continue;
        EXPECT_EQ(FocusName(), u"Txt(8)"_s);
    }
    AltKey(u'C');
}

TEST(A01, ANewChannelIsEnteredByKeys) {
    Channels form(QStringList{});
    AltKey(u'A');
    form.RefusesToSave(u"渠道序号不能为空!"_s);
    for (const auto& text : {u"H2"_s, u"捷航"_s, u"特惠"_s, u"0.5"_s, u"0.5"_s, u"1kg"_s, u""_s, u"3"_s}) {
        Type(text);
        Press(Qt::Key_Return);
    }
    EXPECT_EQ(FocusName(), u"Txt(8)"_s);
    Type(u"21"_s);
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);  // an empty bound is raised to the one before and two
    EXPECT_EQ(form.Box(9), u"23"_s);
    Type(u"23"_s);  // equal counts as out of order
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Bounds(), (QStringList{u"21Kg-22Kg"_s, u"23Kg-24Kg"_s, u"25Kg以上"_s}));
    form.SetBox(9, u"0"_s);
    form.RefusesToSave(u"请输入第2个计费段数值!"_s);
    form.EnterBox(9, u"46"_s);
    form.EnterBox(10, u"71"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Stored(), QStringList{u"H2|捷航|特惠|0.5|0.5|1|0|3|21|46|71|0|0|0|0|0|0|0"_s});
    EXPECT_EQ(form.Lines(), QStringList{u"H2|捷航|特惠"_s});
}

TEST(A01, HiddenBoundsAreStoredAsTheyStand) {
    Channels form;
    AltKey(u'E');
    auto& name = form.At<QLineEdit>(u"Txt(1)"_s);
    ClickAt(name, QPoint(4, 4));
    EXPECT_EQ(name.selectedText(), u"环洋"_s) << "a box is ready to be typed over however it is entered";
    form.SetBox(SegmentCount, u"45"_s);
    form.RefusesToSave(u"请输入第4个计费段数值!"_s);
    EXPECT_EQ(form.Box(SegmentCount), u"10"_s) << "saved from within, the box is corrected all the same";
    // The menu bar takes the keyboard from the box, which is not left by that.
    form.SetBox(SegmentCount, u"99"_s);
    form.Frame().Front()->MenuBar()->setFocus(Qt::MenuBarFocusReason);
    form.RefusesToSave(u"请输入第4个计费段数值!"_s);
    EXPECT_EQ(form.Box(SegmentCount), u"10"_s);
    form.EnterBox(SegmentCount, u"1"_s);
    EXPECT_EQ(form.Bounds().size(), 1);
    AltKey(u'S');
    EXPECT_EQ(form.Stored(), QStringList{u"H1|环洋|空运|0.5|0.5|1|1|1|21|46|71|0|0|0|0|0|0|0"_s});
    AltKey(u'E');
    AltKey(u'C');
    EXPECT_EQ(form.Bounds().size(), 3) << "read again, the card looks at the bounds";
}

TEST(A01, ANumberInUseIsRefusedAndLocked) {
    Channels form(OneChannel() + QStringList{u"insert into M01 (F1,F2) VALUES ('H2','捷航')"_s,
                                             u"insert into B01 (F1,F202) VALUES ('W1','H1')"_s});
    AltKey(u'A');
    Type(u"h2"_s);
    Press(Qt::Key_Return);
    Type(u"另一个"_s);
    form.RefusesToSave(u"[捷航]已经使用了h2这个序号，请重新设置序号!"_s);
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    AltKey(u'C');
    AltKey(u'E');
    EXPECT_TRUE(form.TextBoxAt(0).Locked()) << "a waybill goes by it";
    form.SetBox(1, u"环洋快件"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Lines(), (QStringList{u"H2|捷航|"_s, u"H1|环洋快件|空运"_s}));
}

TEST(A01, DeletingTakesWhatTheFourStatementsName) {
    const QString warning =
        u"[环洋]已经在系统中应用!\r如果删除将造成系统中其它记录的丢失!\r只有管理员才有权删除。真的要删除吗？"_s;
    const QStringList used = {u"insert into M01 (F1,F2) VALUES ('国内','环洋')"_s,
                              u"insert into M02 (F1,F2,F3) VALUES ('Z1','华东','国内')"_s,
                              u"insert into M02 (F1,F2,F3) VALUES ('Z2','北美','国外')"_s,
                              u"insert into M021 (F0,F1) VALUES ('Z1','上海')"_s,
                              u"insert into M031 (F0,F1) VALUES ('C1','Z1')"_s,
                              u"insert into M031 (F0,F1) VALUES ('C1','Z2')"_s,
                              u"insert into M011 (F1,F3) VALUES ('K1','国内')"_s,
                              u"insert into B01 (F1,F202) VALUES ('W1','国内')"_s,
                              u"insert into TB1 (F1,SN) VALUES ('YSW1',1)"_s};
    Channels form(used);
    form.script.Question(warning, Title, true);
    form.script.Question(warning, u"请再次确认"_s, true);
    AltKey(u'D');
    const struct {
        QString table;
        QStringList left;
    } rows[] = {{u"M01"_s, {}},         {u"M02"_s, {u"Z2"_s}}, {u"M021"_s, {}},        {u"M031"_s, {u"Z2"_s}},
                {u"M011"_s, {u"K1"_s}}, {u"B01"_s, {}},        {u"TB1"_s, {u"YSW1"_s}}};
    for (const auto& row : rows)
        EXPECT_EQ(form.Rows(u"select F1 from "_s + row.table), row.left) << row.table.toStdString();
    EXPECT_EQ(form.Lines(), QStringList{u"||"_s});
    AltKey(u'D');  // nothing left, nothing asked

    Channels unused;
    unused.script.Question(u"真的要删除环洋吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_TRUE(unused.Stored().isEmpty());
}

}  // namespace
}  // namespace tests
