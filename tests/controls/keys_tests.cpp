// Commands on menu bars and in menus by their keys.
#include "platform/controls/box.h"
#include "platform/controls/keys.h"
#include "platform/controls/windows.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace controls;

namespace {

/// A bar as the ledgers and the waybills have them: commands and menus, two keys given twice.
class Commands : public testing::Test {
  protected:
    Commands() {
        auto* layout = new QVBoxLayout(&form);
        box.setObjectName(u"box"_s);
        layout->addWidget(&box);
        layout->addWidget(&next);
        next.setObjectName(u"next"_s);
        layout->setMenuBar(bar);
        add = Command(u"&A.增加"_s);
        check = Command(u"&C.出货"_s);
        cancel = Command(u"&C.取消"_s);
        QMenu* edit = AddMenu(bar, u"Menu_edit"_s, u"&S.维护"_s);
        QMenu* sort = AddMenu(bar, u"Menu_sort"_s, u"&S.排序"_s);
        for (const auto& caption : {u"&1.增加"_s, u"&2.修改"_s, u"&2.删除"_s}) Item(edit, caption);
        Item(sort, u"&1.按号码"_s);
        tests::Show(form);
        box.SetFocus();
        tests::Settle();
    }

    QAction* Command(const QString& caption) {
        return AddCommand(bar, u"Menu_"_s + caption, caption, [this, caption] { run << caption.mid(1); });
    }
    QAction* Item(QMenu* menu, const QString& caption) {
        return AddCommand(menu, u"Menu_"_s + caption, caption, [this, caption] { run << caption.mid(1); });
    }
    std::string Run() { return std::exchange(run, {}).join(u' ').toStdString(); }

    tests::Script script;
    QWidget form;
    QMenuBar* bar = new QMenuBar(&form);
    LineBox box, next;
    QAction *add, *check, *cancel;
    QStringList run;
};

TEST_F(Commands, AltAndTheLetterRunWhatCanBeUsed) {
    tests::AltKey(u'A');
    EXPECT_EQ(Run(), "A.增加");
    add->setEnabled(false);
    tests::AltKey(u'A');
    EXPECT_EQ(Run(), "");
    add->setEnabled(true);
    // Of two commands with one key the one that can be used is alone.
    const struct {
        bool checkEnabled, cancelEnabled, cancelVisible;
        const char* run;
    } rows[] = {{false, true, true, "C.取消"}, {true, true, false, "C.出货"}, {false, false, true, ""}};
    for (const auto& row : rows) {
        check->setEnabled(row.checkEnabled);
        cancel->setEnabled(row.cancelEnabled);
        cancel->setVisible(row.cancelVisible);
        tests::AltKey(u'A');  // else two quick presses in two states
        EXPECT_EQ(Run(), "A.增加");
        tests::AltKey(u'C');
        EXPECT_EQ(Run(), row.run);
    }
    EXPECT_EQ(tests::FocusName(), u"box"_s);
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(Commands, AKeyGivenTwiceMovesAndEnterRunsOne) {
    Item(AddMenu(bar, u"Menu_price"_s, u"&M.价格显示"_s), u"&3.显示"_s);
    tests::Settle();
    const struct {
        const char* keys;  // letters with Alt, "-" for Enter
        const char* run;
        const char* why;
    } rows[] = {
        {"C-", "C.出货", "the first of two commands"},
        {"CC-", "C.取消", "the second"},
        {"CCC-", "C.出货", "round again"},
        {"M-", "3.显示", "a menu opens at its first item"},
        {"S-1", "1.增加", "the first of two menus opens at Enter"},
        {"SS-1", "1.按号码", "the second"},
        {"S-2-", "2.修改", "the first of two items"},
        {"S-22-", "2.删除", "the second"},
    };
    for (const auto& row : rows) {
        for (const char* key = row.keys; *key != '\0'; ++key) {
            EXPECT_EQ(Run(), "") << "moving runs nothing: " << row.keys;
            if (*key == '-')
                tests::Press(Qt::Key_Return);
            else
                tests::AltKey(static_cast<char16_t>(*key));
        }
        EXPECT_EQ(Run(), row.run) << row.why;
        EXPECT_EQ(tests::FocusName(), u"box"_s);
    }
    tests::AltKey(u'S');
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "moving opens nothing";
    tests::Press(Qt::Key_Escape);
    tests::AltKey(u'C');
    tests::Press(Qt::Key_C);
    EXPECT_EQ(bar->activeAction(), cancel) << "also without Alt";
    tests::Press(Qt::Key_Escape);
    EXPECT_EQ(Run(), "");
    tests::Type(u"x"_s);
    EXPECT_EQ(box.Text(), u"x"_s);

    // Alone among those that can be used, a key runs or opens its own at once.
    tests::Find<QAction>(form, u"Menu_&2.修改"_s).setEnabled(false);
    tests::AltKey(u'S');
    tests::Press(Qt::Key_Return);
    tests::AltKey(u'2');
    EXPECT_EQ(Run(), "2.删除");
    tests::Find<QMenu>(form, u"Menu_edit"_s).menuAction()->setEnabled(false);
    tests::AltKey(u'S');
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "1.按号码");
}

TEST_F(Commands, ADoubleClickRunsACommandOnce) {
    const QPoint place = bar->actionGeometry(add).center();
    QTest::mouseClick(bar, Qt::LeftButton, {}, place);
    QTest::mouseDClick(bar, Qt::LeftButton, {}, place);
    tests::Settle();
    EXPECT_EQ(Run(), "A.增加");
    for (const auto& [caption, presses] : {std::pair{u"增加报价"_s, 1}, {u"6"_s, 2}}) {
        Button button(caption, &form);
        button.Click = [&] { run << caption; };
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseDClick(&button, Qt::LeftButton);
        QTest::mouseRelease(&button, Qt::LeftButton);
        EXPECT_EQ(std::exchange(run, {}).size(), presses) << caption.toStdString();
    }
}

TEST_F(Commands, AQuickSecondPressMeetsNoOtherCommand) {
    check->setEnabled(false);
    // As a cancel does, which leaves the edit.
    QObject::connect(cancel, &QAction::triggered, &form, [this] {
        cancel->setEnabled(false);
        check->setEnabled(true);
    });
    tests::AltKey(u'C');
    tests::AltKey(u'C');
    EXPECT_EQ(Run(), "C.取消");
    QTest::qWait(450);
    for (int press = 0; press < 2; ++press) tests::AltKey(u'C');
    EXPECT_EQ(Run(), "C.出货 C.出货");
    check->setEnabled(false);
    cancel->setEnabled(true);
    tests::AltKey(u'A');
    tests::AltKey(u'C');
    EXPECT_EQ(Run(), "A.增加 C.取消") << "another command between";
}

/// The display sends what is typed to the menu's window until it learns that the menu is closed.
TEST_F(Commands, KeysThatAreTypedBeforeAMenuClosesReachTheForm) {
    QMenu* menu = AddMenu(bar, u"Menu_price"_s, u"&M.价格显示"_s);
    Item(menu, u"&3.显示"_s);
    tests::Settle();
    for (const auto& [key, ran] : {std::pair{Qt::Key_3, "3.显示"}, std::pair{Qt::Key_Escape, ""}}) {
        tests::AltKey(u'M');
        ASSERT_EQ(QApplication::activePopupWidget(), menu);
        const QPointer<QWindow> window = menu->windowHandle();
        QTest::keyClick(window, key);
        ASSERT_FALSE(menu->isVisible());
        EXPECT_EQ(Run(), ran);
        if (!ran[0]) tests::Press(Qt::Key_Escape);  // leaves the bar
        ASSERT_TRUE(window && window->handle()) << "a window that is destroyed receives nothing";
        box.SetText({});
        QApplication::setActiveWindow(menu);  // as a display does that is late
        QTest::keyClick(window, 'x');
        QTest::keyClick(window, Qt::Key_A, Qt::AltModifier);
        QTest::keyClick(window, 'y');
        EXPECT_EQ(box.Text(), u"xy"_s);
        EXPECT_EQ(Run(), "A.增加");
    }
}

TEST_F(Commands, AFailingCommandIsReportedAndEndsTheProgram) {
    AddCommand(bar, u"Menu_x"_s, u"&X.错"_s, [] { throw std::runtime_error("broken"); });
    tests::Settle();
    script.BoxContaining(u"broken"_s);
    script.End(1);
    tests::AltKey(u'X');
    tests::AltKey(u'A');
    EXPECT_EQ(Run(), "") << "nothing runs after the end";
}

TEST_F(Commands, TabIsSentAfterTheHandlerAndNotToABox) {
    box.KeyPressed = [&](KeyPress& key) {
        if (key.key != Qt::Key_Return) return;
        SendKeys(u"{TAB}"_s);
        EXPECT_EQ(tests::FocusName(), u"box"_s);
    };
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(tests::FocusName(), u"next"_s);
    box.SetFocus();
    tests::Settle();
    box.KeyPressed = [&](KeyPress&) {
        SendKeys(u"{TAB}"_s);
        QTimer::singleShot(0, qApp, [] {
            tests::Settle();
            auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(shown, nullptr);
            EXPECT_TRUE(shown->button(QMessageBox::Yes)->hasFocus());
            QTest::keyClick(shown, Qt::Key_Return);
        });
        ShowMessageBox(
            {.text = u"?"_s, .buttons = sys::BoxButtons::YesNo, .defaultButton = sys::BoxAnswer::Yes});
    };
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(tests::FocusName(), u"next"_s) << "the form beneath moves on";
}

}  // namespace
