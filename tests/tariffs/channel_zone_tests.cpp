// The carriers' cost zones, driven by keys: what a channel shows of them, what is stored, what is
// refused.
#include "platform/errors.h"
#include "tests/tariffs/zone_program.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Stored =
    u"select F1,F2,F3,F4,F6,F8,P101,P102,P201,P202,P300,P301,P302,P303,P304,P305,P306,P307,P308,P309,P3,A30,"_s +
    u"A31,A32,A33,A34,A35,A36,A37,A38,A39 from M011 order by F1"_s;

/// Two channels; a zone saved when its channel had two segments, and one whose channel is gone.
QStringList TwoChannels() {
    return {
        u"insert into M01 (F1,F2,D0,D1,S0,S1,JFD,J0,J1,J2) VALUES ('H1','环洋',0.5,0.45,1,1,3,21,46.5,71)"_s,
        u"insert into M01 (F1,F2,D0,D1,S0,S1,JFD,J0,J2) VALUES ('K2','捷航',0,0.5,null,0,3,10,30)"_s,
        u"insert into M011 (F1,F2,F3,F4,F6,F8,P101,P102,P201,P202,P300,P301,P302,P309,P3,A30,A31,A39) VALUES "
        u"('H11','美东','H1','East',4,'注',20,8.25,30,12,9,7,5,-1,2,False,True,True)"_s,
        u"insert into M011 (F1,F2,F3) VALUES ('X1','旧区','X')"_s,
        u"insert into M0111 (F0,F1,F2,F8) VALUES ('H11','纽约','New York','快')"_s,
        u"insert into M031 (F0,F1) VALUES ('C1','H11')"_s,
        u"insert into B01 (F1,F203,F2021) VALUES ('W1','H11','H11')"_s};
}
const QString StoredX1 = u"X1|旧区|X"_s + u"|<null>"_s.repeated(28);

class ChannelZones : public ZoneProgram {
  public:
    explicit ChannelZones(const QStringList& masters = TwoChannels()) : ZoneProgram(masters) {
        Open(u"A2"_s, u"A011"_s);
    }
    controls::ComboBox& Channel() { return At<controls::ComboBox>(u"CmbLB"_s); }
    /// The operator's way through the list of channels.
    void Choose(int index) {
        Enter(u"CmbLB"_s);
        while (Channel().ListIndex() < index) Press(Qt::Key_Down);
        while (Channel().ListIndex() > index) Press(Qt::Key_Up);
    }
    controls::CheckBox& Tick(int box) { return At<controls::CheckBox>(u"Chk(%1)"_s.arg(box)); }
    bool LooksLocked(int box) { return Tick(box).property("state") == u"locked"_s; }
    QString Ticks() {
        QString marks;
        for (int box = 13; box <= 22; ++box) marks += Tick(box).Value() == 1 ? u'1' : u'0';
        return marks;
    }
    /// The captions of the prices that are seen; box, caption and tick always go together.
    QString Prices() {
        QStringList seen;
        for (int box = 9; box <= 22; ++box) {
            const bool shown = TextBoxAt(box).Widget()->isVisible();
            EXPECT_EQ(Shown(u"Lab(%1)"_s.arg(box)), shown) << box;
            EXPECT_EQ(box >= 13 ? Tick(box).isVisible() : shown, shown) << box;
            if (shown) seen += Caption(box);
        }
        return seen.join(u' ');
    }
    QString Segments() { return At<controls::LineBox>(u"TxtD"_s).Text(); }
};

TEST(A011, AListReadAnewKeepsItsZoneAmongThoseOfOneChannel) {
    ChannelZones form(TwoChannels() +
                      QStringList{u"insert into M011 (F1,F2,F3) VALUES ('H12','美西','H1')"_s,
                                  u"insert into M011 (F1,F2,F3) VALUES ('H13','中部','H1')"_s});
    ASSERT_EQ(form.Lines().size(), 3);
    form.Grid().SetRow(2);
    form.ShowCard();
    form.Execute(u"delete from M011 where F1='H11'"_s);
    StoredDataChanged();
    EXPECT_EQ(form.Grid().TextMatrix(form.Grid().Row(), 1), u"H12"_s);
    EXPECT_EQ(form.Boxes(0, 1), u"H12|美西"_s);
}

TEST(A011, ListsTheZonesOfLivingChannelsAndShowsTheirCard) {
    ChannelZones form;
    EXPECT_EQ(form.Lines(), QStringList{u"环洋|H11|美东|4|注|H1|East|20|8.25|30|12|9|7|5|||||||-1|2"_s});
    form.ShowCard();
    EXPECT_EQ(form.Boxes(0, 5) + u' ' + form.Boxes(9, 22),
              u"H11|美东|H1.环洋|East|4|注 20|8.25|30|12|9|7|5|||||||-1");
    EXPECT_EQ(form.Prices(), u"文件首 0.5Kg 文件续 0.5Kg 小包裹首1.0Kg 小包裹续1.0Kg 21Kg-45.5Kg 46.5Kg-70Kg")
        << "as many segments as it was saved with, whatever the channel has now";
    EXPECT_EQ(form.Ticks(), u"0100000001");
    EXPECT_EQ(form.AreaLines().front(), u"纽约|New York|快");
    Click(form.Tick(13));
    EXPECT_EQ(form.Ticks(), u"0100000001") << "browsing, the ticks are only looked at";
    EXPECT_EQ(FocusName(), u"TabS");
}

TEST(A011, AChosenChannelDrawsThePricesAnew) {
    const QString plain = u"文件首 0.5Kg 文件续 0.5Kg 小包裹首1.0Kg 小包裹续1.0Kg"_s;
    // Without segments the first four stay as the channel before had them.
    const QString before = u"文件续 0.5Kg 小包裹续1.0Kg"_s;
    const struct {
        QString change, prices, segments;
    } rows[] = {
        {u"F3=F3"_s, plain + u" 21Kg-45.5Kg 46.5Kg-70Kg 71Kg以上"_s, u"3"_s},
        {u"JFD=0"_s, before, u"0"_s},
        {u"JFD=-1"_s, before, u"-1"_s},
        {u"JFD=null"_s, before, u"0"_s},
        {u"JFD=1.7"_s, plain + u" 21Kg-45.5Kg 46.5Kg-70Kg"_s, u"2"_s},
        {u"JFD=12"_s, plain + u" 21Kg-45.5Kg 46.5Kg-70Kg 71Kg以上"_s + u" 0Kg以上"_s.repeated(7), u"12"_s},
        // a hole among the bounds opens the segment before it
        {u"JFD=4,J1=0"_s, plain + u" 21Kg以上 0Kg-70Kg 71Kg以上 0Kg以上"_s, u"4"_s},
        // no first weight, no such price; that of the parcels' continuation comes back with the segments
        {u"JFD=1,D0=0,D1=-1,S0=null,S1=0,J1=46"_s, u"小包裹续1.0Kg 21Kg-45Kg"_s, u"1"_s},
    };
    ChannelZones form;
    for (const auto& row : rows) {
        form.ShowCard();
        AltKey(u'E');
        form.Choose(1);
        form.Execute(u"update M01 set D0=0.5,D1=0.45,S0=1,S1=1,JFD=3,J0=21,J1=46.5,J2=71 where F1='H1'"_s);
        form.Execute(u"update M01 set "_s + row.change + u" where F1='H1'"_s);
        form.Choose(0);
        EXPECT_EQ(form.Prices(), row.prices) << row.change.toStdString();
        EXPECT_EQ(form.Segments(), row.segments);
        EXPECT_EQ(form.Boxes(9, 15), u"20|8.25|30|12|9|7|5") << "prices and ticks keep their places";
        EXPECT_EQ(form.Ticks(), u"0100000001");
        AltKey(u'C');
    }
    EXPECT_THROW(form.Execute(u"update M01 set JFD='段'"_s), DatabaseError);
}

TEST(A011, ANewZoneIsEnteredByKeys) {
    ChannelZones form;
    form.ShowCard();
    AltKey(u'A');
    EXPECT_EQ(FocusName(), u"CmbLB");
    EXPECT_EQ(form.Channel().Text(), u"H1.环洋");
    EXPECT_EQ(form.Segments(), u"3");
    EXPECT_TRUE(form.Prices().endsWith(u" 1 2 3")) << "plain numbers until a channel is chosen";
    Press(Qt::Key_Down);
    Press(Qt::Key_Up);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(0), u"H") << "the start of a code";
    Type(u"h12 "_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(0) + form.Box(1), u"H12区域H12");
    Press(Qt::Key_Return);
    EXPECT_EQ(form.Box(3), u"Zone H12");
    Press(Qt::Key_Return);
    EXPECT_EQ(form.script.InputMethodSwitches(), 1) << "leaving the English name";
    EXPECT_EQ(FocusName(), u"Txt(4)");
    Type(u"5天"_s);
    form.GoTo(u"Txt(7)"_s);
    EXPECT_EQ(form.Boxes(6, 7), u"区域H12|Zone H12") << "the English name, here";
    Press(Qt::Key_Return);
    EXPECT_EQ(form.script.InputMethodSwitches(), 2);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"Cmd(0)");
    Press(Qt::Key_Return);
    form.SetBox(12, u"12.50"_s);
    Press(Qt::Key_Return);
    Type(u"9元"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"Chk(13)");
    EXPECT_FALSE(form.LooksLocked(13));
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), u"Txt(14)");
    form.TextBoxAt(21).SetText(u"-3"_s);  // out of sight and not looked at
    AltKey(u'S');
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(form.Rows(Stored)[1],
              u"H12|区域H12|H1|Zone H12|5||0|0|0|12.5|9|0|0|0|0|0|0|0|-3|0|3|-1|-1|0|0|0|0|0|0|0|-1")
        << "the ticks of the zone before remain until they are removed";
    EXPECT_TRUE(form.LooksLocked(13));
    EXPECT_EQ(form.Rows(u"select F0,F1,F2,F8 from M0111"_s).back(), u"H12|区域H12|Zone H12|");
    EXPECT_EQ(form.Lines().back(), u"环洋|H12|区域H12|5||H1|Zone H12||||12.50|9元||||||||-3||3");
}

TEST(A011, RefusesInOrder) {
    ChannelZones form;
    AltKey(u'A');
    form.Channel().SetText(u" "_s);
    form.RefusesToSave(u"区域编号不能为空!"_s);
    form.SetBox(0, u"h11"_s);
    form.SetBox(1, u""_s);
    form.RefusesToSave(u"区域概称(中文)不能为空!"_s);
    form.SetBox(1, u"重名"_s);
    form.RefusesToSave(u"所属出货渠道不能为空!"_s);
    for (const auto& channel : {u"X.旧渠道"_s, u"K.2.捷航"_s, u".环洋"_s, u"无"_s}) {
        form.Channel().SetText(channel);
        form.RefusesToSave(u"所属出货渠道编号输入错误!"_s);
    }
    form.Channel().SetText(u" h1 "_s);  // typed, without its name
    form.RefusesToSave(u"请输入该区域包含的具体地区名！"_s);
    EXPECT_EQ(form.Box(2), u"h1.环洋");
    form.AddPlace(u"某地"_s);
    for (const int box : {9, 17}) {
        form.TextBoxAt(box).SetText(u"-0.01"_s);
        form.RefusesToSave(u"出货成本不能为负值！"_s);
        form.TextBoxAt(box).SetText({});
    }
    form.TextBoxAt(18).SetText(u"-5"_s);
    form.RefusesToSave(u"[美东]已经使用了H11这个编号，请重新设置编号!"_s);
    EXPECT_EQ(FocusName(), u"Txt(0)");
    form.SetBox(0, u"n1"_s);
    AltKey(u'S');
    EXPECT_EQ(form.Rows(u"select F3,P305,P3 from M011 where F1='N1'"_s), QStringList{u"h1|-5|3"_s});
}

TEST(A011, AnEditKeepsWhatIsOutOfSightAndTheCountItWasSavedWith) {
    ChannelZones form;
    form.ShowCard();
    AltKey(u'E');
    EXPECT_EQ(FocusName(), u"Txt(0)");
    Type(u"h19"_s);
    AltKey(u'S');
    EXPECT_EQ(
        form.Rows(Stored),
        (QStringList{u"H19|美东|H1|East|4|注|20|8.25|30|12|9|7|5|0|0|0|0|0|0|-1|2|0|-1|0|0|0|0|0|0|0|-1"_s,
                     StoredX1}));
    EXPECT_EQ(form.Rows(u"select F0,F1 from M0111"_s), QStringList{u"H19|纽约"_s});
    EXPECT_EQ(form.Rows(u"select F203 from B01"_s) + form.Rows(u"select F1 from M031"_s),
              (QStringList{u"H11"_s, u"H11"_s}));
    // The channel goes while its zone is being changed.
    AltKey(u'E');
    form.Execute(u"delete from M01 where F1='H1'"_s);
    form.script.Box(u"所属出货渠道编号输入错误!"_s, Title);
    AltKey(u'S');
    AltKey(u'C');
    AltKey(u'R');
    form.Open(u"A2"_s, u"A011"_s);
    EXPECT_EQ(form.Lines(), QStringList{QString(21, u'|')});
    form.ShowCard();
    EXPECT_EQ(form.Prices().count(u"Kg"), 4) << "no zone, no segments";
    AltKey(u'D');  // nothing to delete, nothing asked
    EXPECT_EQ(form.Rows(u"select F1 from M011 order by F1"_s), (QStringList{u"H19"_s, u"X1"_s}));
}

TEST(A011, DeletesTheZoneAndItsPlacesOnly) {
    ChannelZones form;
    form.script.Question(u"真的要删除美东吗?"_s, Title, true);
    AltKey(u'D');
    EXPECT_EQ(form.Rows(Stored), QStringList{StoredX1});
    EXPECT_TRUE(form.Rows(u"select F0 from M0111"_s).isEmpty());
    EXPECT_EQ(form.Rows(u"select F1 from B01"_s) + form.Rows(u"select F1 from M031"_s),
              (QStringList{u"W1"_s, u"H11"_s}));
}

}  // namespace
}  // namespace tests
