// The notice of a waybill that cannot be delivered, typed by keys.
#include "tests/reports/report_desk.h"

#include <QApplication>
#include <QWindow>

#include <gtest/gtest.h>

namespace tests {
namespace {

class ProblemNotice : public testing::Test {
  protected:
    ProblemNotice() { desk.Open(u"C5"_s, u"C05"_s); }
    ReportDesk desk{
        {u"insert into B01 (F1,F401,F402,F301,F701,F702) VALUES "
         u"('KV1',2,1.25,'S','收件人拒收','地址不详')"_s,
         u"insert into B01 (F1,F701) VALUES ('KV2','"_s + QString(40, u'长') + u"')"_s}};
};

TEST_F(ProblemNotice, LooksTheWaybillUpWhenItsNumberIsLeft) {
    EXPECT_EQ(FocusName(), u"Txt(0)"_s);
    Type(u"  "_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Boxes(0, 6), u"  ||||||"_s);
    desk.SetBox(0, u" kv1 "_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Boxes(0, 6), u" kv1 | 重量:1.25    件数:2   D/S: S|收件人拒收|地址不详|||"_s);
    EXPECT_EQ(FocusName(), u"Txt(1)"_s);
    desk.SetBox(0, u"KV9"_s);
    desk.script.Box(u"你输入的运单号不存在!"_s, MsgTitle);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(desk.script.Done());
    EXPECT_EQ(desk.Boxes(0, 3), u"KV9| 重量:1.25    件数:2   D/S: S|收件人拒收|地址不详"_s)
        << "what was found before stays";
    desk.SetBox(0, u"KV2"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Box(2).size(), 40);
    EXPECT_EQ(FocusName(), u"Txt(1)"_s) << "a looked up text moves nothing";
    desk.Execute(u"update B01 set F402=123456.789,F401=1000000 where F1='KV2'"_s);
    desk.SetBox(0, u"KV2"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Box(1).size(), 36);
    EXPECT_EQ(FocusName(), u"Txt(1)"_s);
    desk.SetBox(0, u"KV9"_s);
    AltKey(u'R');
    EXPECT_EQ(desk.Frame().Front(), nullptr) << "leaving the form looks nothing up";
}

TEST_F(ProblemNotice, MovesOnWhenALineIsFull) {
    desk.Enter(u"Txt(2)"_s);
    for (const QChar letter : QString(74, u'a') + u"bc"_s) {
        // Real keys come without a pause; the due Tab goes before the next one.
        QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter);
        QApplication::sendEvent(desk.Frame().windowHandle(), &press);
    }
    Settle();
    EXPECT_EQ(desk.Boxes(2, 5), QString(36, u'a') + u'|' + QString(36, u'a') + u"|aabc|"_s);
    EXPECT_EQ(FocusName(), u"Txt(4)"_s);
    desk.Enter(u"Txt(2)"_s);
    Press(Qt::Key_End);
    Type(u"d"_s);
    EXPECT_EQ(FocusName(), u"Txt(2)"_s) << "it was full before";
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(FocusName(), u"Txt(2)"_s);
    Type(u"e"_s);
    EXPECT_EQ(FocusName(), u"Txt(3)"_s);
}

TEST_F(ProblemNotice, IsPrintedWhenNumberFactsAndAReasonAreThere) {
    const auto refuses = [&](const QString& message) {
        desk.script.Box(message, MsgTitle);
        AltKey(u'P');
        EXPECT_TRUE(desk.script.Done()) << message.toStdString();
    };
    refuses(u"请输入运单号!"_s);
    Type(u"KV1"_s);
    refuses(u"请输入运单信息!"_s);
    Press(Qt::Key_Return);
    for (int box = 2; box < 7; ++box) desk.SetBox(box, box == 4 ? u" "_s : u""_s);
    refuses(u"请输入问题原因!"_s);
    desk.Execute(u"insert into PRNTC05 (F1) values ('旧')"_s);
    desk.SetBox(6, u" 电话无人接听 "_s);
    AltKey(u'P');
    EXPECT_EQ(desk.Rows(u"select * from PRNTC05"_s),
              QStringList{u"KV1|重量:1.25    件数:2   D/S: S|||||电话无人接听"_s});
    EXPECT_EQ(desk.Layout(), u"prntc05.rpt"_s);
    const QStringList lines = desk.PdfLines();
    for (const auto& text : {u"KV1"_s, u"重量:1.25"_s, u"电话无人接听"_s})
        EXPECT_TRUE(desk.Contains(lines, text));
    AltKey(u'R');
    desk.SetBox(5, u"it's"_s);
    desk.EndsWith(u"it's"_s);
    AltKey(u'P');
}

}  // namespace
}  // namespace tests
