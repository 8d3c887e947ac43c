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
    check->setEnabled(false);  // its twin is alone then
    tests::AltKey(u'C');
    EXPECT_EQ(Run(), "C.取消");
    check->setEnabled(true);
    cancel->setVisible(false);
    tests::AltKey(u'C');
    EXPECT_EQ(Run(), "C.出货");
    check->setEnabled(false);
    cancel->setVisible(true);
    cancel->setEnabled(false);
    tests::AltKey(u'C');
    EXPECT_EQ(Run(), "");
    EXPECT_EQ(tests::FocusName(), u"box"_s);
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(Commands, AMenuOpensAtItsFirstItem) {
    QMenu* alone = AddMenu(bar, u"Menu_price"_s, u"&M.价格显示"_s);
    Item(alone, u"&3.显示"_s);
    tests::Settle();
    tests::AltKey(u'M');
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "3.显示");
    tests::Find<QMenu>(form, u"Menu_edit"_s).menuAction()->setEnabled(false);
    tests::AltKey(u'S');  // its twin is alone then
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "1.按号码");
}

TEST_F(Commands, AKeyGivenTwiceWalksAndEnterTakesOne) {
    tests::AltKey(u'C');
    EXPECT_EQ(bar->activeAction(), check);
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "C.出货");
    EXPECT_EQ(tests::FocusName(), u"box"_s);
    tests::AltKey(u'C');
    tests::AltKey(u'C');
    EXPECT_EQ(bar->activeAction(), cancel);
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "C.取消");
    tests::AltKey(u'C');
    tests::Press(Qt::Key_C);
    tests::Press(Qt::Key_C);
    EXPECT_EQ(bar->activeAction(), check) << "round again, also without Alt";
    tests::Press(Qt::Key_Escape);
    EXPECT_EQ(Run(), "");
    EXPECT_EQ(tests::FocusName(), u"box"_s);
    tests::Type(u"x"_s);
    EXPECT_EQ(box.Text(), u"x"_s);
}

TEST_F(Commands, MenusWithTheSameKeyOpenAtEnter) {
    tests::AltKey(u'S');
    tests::AltKey(u'S');
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "walking opens nothing";
    tests::Press(Qt::Key_Return);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    tests::AltKey(u'1');
    EXPECT_EQ(Run(), "1.按号码");
    EXPECT_EQ(tests::FocusName(), u"box"_s);
    tests::AltKey(u'S');
    tests::Press(Qt::Key_Return);
    tests::AltKey(u'1');
    EXPECT_EQ(Run(), "1.增加");
}

TEST_F(Commands, AKeyGivenTwiceInAMenu) {
    auto open = [&] {
        tests::AltKey(u'S');
        tests::Press(Qt::Key_Return);
    };
    open();
    tests::AltKey(u'2');
    EXPECT_EQ(Run(), "");
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "2.修改");
    open();
    tests::AltKey(u'2');
    tests::AltKey(u'2');
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(Run(), "2.删除");
    tests::Find<QAction>(form, u"Menu_&2.修改"_s).setEnabled(false);
    open();
    tests::AltKey(u'2');
    EXPECT_EQ(Run(), "2.删除") << "alone among those that can be used";
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
