// The main window: what its keys open, one instance of each form, the tool bar's refusals, its closing.
#include "app/main_menu.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "tests/app/frame_run.h"
#include "tests/support/files.h"

#include <QApplication>
#include <QDir>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString kRefusal = u"对不起,您没有此权限!"_s;
const QString kEditing = u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s;

TEST(Frame, TheSameItemTwiceKeepsOneInstance) {
    FrameRun run;
    run.Open();
    run.Frame().MenuItem(u"Menu_A04"_s)->trigger();
    const ChildForm* first = run.Frame().Front();
    run.Frame().MenuItem(u"Menu_A04"_s)->trigger();
    EXPECT_EQ(run.Frame().Front(), first);
    EXPECT_EQ(run.TakeLog(), (QStringList{u"load A04"_s, u"front A04 A04"_s}));

    AltKey(u'r');
    run.Frame().MenuItem(u"Menu_A04"_s)->trigger();
    EXPECT_EQ(run.TakeLog(), (QStringList{u"load A04"_s, u"front A04 A04"_s})) << "closed, it loads again";
    run.Frame().ShowChild(u"B01"_s);
    run.TakeLog();
    run.Frame().ShowChild(u"A04"_s);
    EXPECT_EQ(run.TakeLog(), QStringList{u"front A04 A04"_s}) << "from behind another it comes to the front";
}

TEST(Frame, AChildsBarTakesTheKeysOfTheFramesBar) {
    FrameRun run;
    run.Open();
    run.Frame().MenuItem(u"Menu_A04"_s)->trigger();
    Settle();
    run.TakeLog();
    EXPECT_EQ(run.BarInFront(), u"A04.bar");
    EXPECT_EQ(FocusName(), u"A04.Txt");
    AltKey(u'a');
    EXPECT_EQ(run.TakeLog(), QStringList{u"A04 add"_s});
    AltKey(u's');
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the frame's menus are out of reach";
    Press(Qt::Key_Alt);
    EXPECT_EQ(FocusName(), u"A04.bar") << "a lone Alt is for the bar that is seen";
    Press(Qt::Key_Escape);
    EXPECT_EQ(FocusName(), u"A04.Txt");
    AltKey(u'r');
    Press(Qt::Key_Alt);
    Press(Qt::Key_Return);
    EXPECT_NE(QApplication::activePopupWidget(), nullptr) << "the frame's bar takes its turn";
    Press(Qt::Key_Escape);
}

TEST(Frame, ClosingOneOfTwoShowsTheToolBar) {
    for (const bool front : {true, false}) {
        FrameRun run;
        run.Open();
        run.Frame().ShowChild(u"A04"_s);
        run.Frame().ShowChild(u"B01"_s);
        run.Frame().SetPanel(4, u"共 3 条记录"_s);
        run.TakeLog();
        EXPECT_FALSE(run.Frame().ToolBarShown());
        const QString stays = front ? u"A04"_s : u"B01"_s;
        if (front)
            AltKey(u'r');
        else
            run.Frame().Child(u"A04"_s)->Unload();
        Settle();
        EXPECT_TRUE(run.Frame().ToolBarShown());
        EXPECT_EQ(run.Frame().Panel(4), u"2024-03-15");
        EXPECT_EQ(run.Frame().Front(), run.Frame().Child(stays));
        EXPECT_EQ(run.BarInFront(), stays + u".bar"_s);
        EXPECT_EQ(FocusName(), stays + u".Txt"_s);
        EXPECT_EQ(run.TakeLog(), front ? QStringList{u"front A04 A04"_s} : QStringList());
    }
}

TEST(Frame, AFormThatRefusesStaysAndOneThatReopensItselfIsNew) {
    FrameRun run;
    run.Open();
    run.Frame().ShowChild(u"A04"_s);
    run.Form(u"A04"_s).refuses = true;
    AltKey(u'r');
    EXPECT_NE(run.Frame().Child(u"A04"_s), nullptr);
    EXPECT_FALSE(run.Frame().ToolBarShown());

    run.Form(u"A04"_s).refuses = false;
    run.TakeLog();
    run.Frame().Child(u"A04"_s)->Unload();
    run.Frame().ShowChild(u"A04"_s);  // before the old one is gone from memory
    Settle();
    EXPECT_EQ(run.TakeLog(), (QStringList{u"load A04"_s, u"front A04 A04"_s}));
    AltKey(u'a');
    EXPECT_EQ(run.TakeLog(), QStringList{u"A04 add"_s});
}

TEST(Frame, ALoadThatFailsOrClosesItsOwnFormLeavesNoneBehind) {
    for (const bool fails : {true, false}) {
        FrameRun run(false);
        run.registry.children[u"B01"_s] = [&] {
            auto form = std::make_unique<LogForm>(u"B01"_s, run.log, true);
            form->whenLoading = [fails, form = form.get()] {
                if (fails) throw RuntimeError(u"溢出"_s);
                form->Unload();
            };
            return form;
        };
        run.Open();
        if (fails) run.script.BoxContaining(u"溢出"_s);
        if (fails) run.script.End(1);
        AltKey(u'b');
        EXPECT_TRUE(run.script.Done());
        EXPECT_EQ(run.Frame().Child(u"B01"_s), nullptr);
        EXPECT_EQ(run.TakeLog(), QStringList{u"load B01"_s});
        EXPECT_TRUE(fails || run.Frame().ToolBarShown());
    }
}

TEST(ToolBar, AsksTheRightsAndRefusesOneButtonToEveryone) {
    FrameRun run(true, false);
    run.AddOperator(u"002"_s, u"张敏"_s, u""_s);
    run.Open();
    const struct {
        QStringView key;
        QStringView opens;
    } buttons[] = {{u"d1", u"A03"}, {u"d2", u"B01"},    {u"d3", {}},
                   {u"d4", u"C01"}, {u"fk", u"PayLst"}, {u"sk", u"PayLst"}};
    for (const bool allowed : {true, false}) {
        run.BecomeOperator(allowed ? u"001"_s : u"002"_s);
        for (const auto& button : buttons) {
            const bool opens = allowed && !button.opens.isEmpty();
            if (!opens) run.script.Box(kRefusal, QString());
            run.PressTool(button.key.toString());
            EXPECT_TRUE(run.script.Done()) << button.key.toUtf8().constData();
            const ChildForm* front = run.Frame().Front();
            EXPECT_EQ(front ? front->objectName() : QString(), opens ? button.opens.toString() : QString());
            if (front) run.Frame().Front()->Unload();
        }
    }
    run.PressTool(u"quit"_s);
    EXPECT_FALSE(run.Frame().isVisible());
}

TEST(ToolBar, TraditionalChineseShowsPicturesOnly) {
    FrameRun run;
    LangFlag = 2;
    run.Open();
    for (const ToolRow& row : ToolRows()) {
        auto& button = Find<QAction>(run.Frame(), row.key.toString());
        auto* widget =
            qobject_cast<QToolButton*>(Find<QToolBar>(run.Frame(), u"TB"_s).widgetForAction(&button));
        EXPECT_TRUE(button.text().isEmpty() && widget->text().isEmpty()) << row.key.toUtf8().constData();
        EXPECT_FALSE(button.icon().isNull());
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << "a reader of the screen needs the word";
    }
    EXPECT_EQ(Find<QStatusBar>(run.Frame(), u"StB"_s).font().family(), u"Times New Romen");
}

TEST(Frame, APictureThatCannotBeReadLeavesTheBackgroundEmpty) {
    for (const QByteArray& content :
         {QByteArray(), QByteArray("\x89PNG\r\n\x1a\n broken"), QByteArray("no picture")}) {
        FrameRun run;
        if (!content.isEmpty()) Write(run.company.Folder() + u"syspic.dat"_s, content);
        run.Open();  // a message would be an unexpected box
        EXPECT_EQ(run.Frame().Panel(4), u"2024-03-15");
    }
}

TEST(FrameClosing, IsRefusedWhileAnyFormIsEditing) {
    FrameRun run;
    run.Open();
    run.Frame().ShowChild(u"A04"_s);
    EditInProgress = true;
    for (int way = 0; way < 3; ++way) {
        run.script.Box(kEditing, u"提示"_s, sys::BoxIcon::Warning);
        if (way == 0) run.Frame().close();
        if (way == 1) run.Frame().MenuItem(u"Quit"_s)->trigger();
        if (way == 2) run.PressTool(u"quit"_s);
        EXPECT_TRUE(run.script.Done()) << way;
        EXPECT_TRUE(run.Frame().isVisible());
        EXPECT_TRUE(Db);
        EXPECT_NE(run.Frame().Child(u"A04"_s), nullptr);
    }
}

TEST(FrameClosing, ClosesTheDataAndThenThePagesWithoutAskingThem) {
    FrameRun run;
    run.Open();
    run.Frame().ShowChild(u"A04"_s);
    run.Form(u"A04"_s).refuses = true;  // only the frame's own question counts
    run.company.Run(u"insert into M04 (F1,F2) VALUES ('何立伟','')"_s);
    run.Frame().close();
    EXPECT_FALSE(run.Frame().isVisible());
    EXPECT_FALSE(Db);
    EXPECT_EQ(run.Frame().Front(), nullptr);
    EXPECT_EQ(QDir(run.company.Folder()).entryList(QDir::Files), QStringList{u"tessik.dat"_s})
        << "one single file that can be copied";
}

}  // namespace
}  // namespace tests
