// Which focus events the forms get: what counts as leaving a control and entering another.
#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/keys.h"
#include "platform/controls/modal_form.h"
#include "platform/controls/wait.h"
#include "platform/controls/windows.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace controls;

namespace {

/// A form with a line, a combo, a picker and a second line, and a log of its events.
class Focus : public testing::Test {
  protected:
    Focus() {
        auto* layout = new QVBoxLayout(&form);
        Add(*layout, a, u"a"_s);
        Add(*layout, combo, u"combo"_s);
        Add(*layout, date, u"date"_s);
        Add(*layout, b, u"b"_s);
        combo.AddItem(u"一"_s);
        combo.AddItem(u"二"_s);
        tests::Show(form);
        Go(a);
    }

    template <class Control>
    void Add(QVBoxLayout& layout, Control& control, const QString& name) {
        control.setObjectName(name);
        layout.addWidget(&control);
        control.GotFocus = [this, name] { reported << u'+' + name; };
        control.LostFocus = [this, name] { reported << u'-' + name; };
    }

    /// Lets everything happen and returns the events since the last call.
    std::string Emitted() {
        tests::Settle();
        return std::exchange(reported, {}).join(u' ').toStdString();
    }

    /// Brings the focus there and drops the events of it.
    template <class Control>
    void Go(Control& control) {
        control.SetFocus();
        Emitted();
    }

    /// A message box of the toolkit's, answered by Enter.
    static void EmitAll() {
        QTimer::singleShot(0, qApp, [] {
            tests::Settle();
            if (QWidget* box = QApplication::activeModalWidget()) QTest::keyClick(box, Qt::Key_Return);
        });
        ShowMessageBox({.text = u"单据号不能为空!"_s});
    }

    tests::Script script;
    QWidget form;
    LineBox a, b;
    ComboBox combo;
    DTPicker date;
    QStringList reported;
};

TEST_F(Focus, EmitsTheLossBeforeTheGainOnceItHasSettled) {
    b.SetFocus();
    EXPECT_TRUE(reported.isEmpty()) << "not in the midst of the move";
    combo.SetFocus();
    a.SetFocus();
    b.SetFocus();
    EXPECT_EQ(Emitted(), "-a +b") << "where the focus only passed through is not reported";
    b.SetFocus();
    a.SetFocus();
    b.SetFocus();
    EXPECT_EQ(Emitted(), "");
    EXPECT_EQ(FocusTracker::Get().Current(), &b);
}

TEST_F(Focus, AClickIsEmittedAfterTheLossAndTheGain) {
    Button ok(u"确定"_s, &form);
    CheckBox mark(u"已出货"_s, &form);
    form.layout()->addWidget(&ok);
    form.layout()->addWidget(&mark);
    tests::Settle();
    ok.Click = [this] { reported << u"ok"_s; };
    mark.Click = [this] { reported << u"mark"_s; };
    // Press and release without a look at what is posted between them.
    QTest::mouseClick(&ok, Qt::LeftButton);
    EXPECT_EQ(Emitted(), "-a ok");
    a.SetFocus();
    EXPECT_EQ(Emitted(), "+a");
    QTest::mouseClick(&mark, Qt::LeftButton, Qt::NoModifier, QPoint(6, mark.height() / 2));
    EXPECT_EQ(Emitted(), "-a mark");
}

TEST_F(Focus, PopupsMenusAndActivationAreNoChange) {
    auto* bar = new QMenuBar(&form);
    form.layout()->setMenuBar(bar);
    int run = 0;
    AddCommand(bar, u"Menu_save"_s, u"&S.保存"_s, [&] { ++run; });
    AddCommand(AddMenu(bar, u"Menu_sort"_s, u"&M.排序"_s), u"Menu_one"_s, u"&1.一"_s, [&] { ++run; });
    QMenu menu;
    menu.addAction(u"无"_s);
    QWidget other;
    const struct {
        const char* what;
        QWidget& in;
        std::function<void()> come, go;
    } rows[] = {
        {"the list of a combo", combo, [&] { combo.showPopup(); }, [] { tests::Press(Qt::Key_Return); }},
        {"a calendar", date, [&] { date.OpenCalendar(); },
         [] { QApplication::activePopupWidget()->close(); }},
        {"a menu", date, [&] { menu.popup(form.pos()); }, [] { tests::Press(Qt::Key_Escape); }},
        {"a menu of the bar", a, [] { tests::AltKey(u'M'); }, [] { tests::AltKey(u'1'); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        controls::MoveFocus(&row.in);
        Emitted();
        row.come();
        tests::Settle();
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        row.go();
        EXPECT_EQ(Emitted(), "");
        EXPECT_EQ(tests::FocusName(), row.in.objectName());
    }
    tests::AltKey(u'S');
    EXPECT_EQ(run, 2);
    tests::Show(other);
    EXPECT_EQ(Emitted(), "");
    form.activateWindow();
    EXPECT_EQ(Emitted(), "");
    EXPECT_EQ(FocusTracker::Get().Current(), &a);
}

TEST_F(Focus, BoxesAndModalFormsAreNoChange) {
    EmitAll();
    EXPECT_EQ(Emitted(), "");
    EXPECT_EQ(tests::FocusName(), u"a"_s) << "the window beneath is active again";

    ModalForm modal(u"Query"_s, u"查找"_s, &form);
    QVBoxLayout layout(&modal);
    LineBox inner, second;
    Add(layout, inner, u"inner"_s);
    Add(layout, second, u"second"_s);
    tests::ModalScript operators;
    operators.Next(u"Query"_s, [&](QWidget&) {
        EXPECT_EQ(Emitted(), "+inner");
        tests::Press(Qt::Key_Tab);
        EXPECT_EQ(Emitted(), "-inner +second");
        modal.Unload();
    });
    modal.ShowModal();
    EXPECT_EQ(Emitted(), "");
    EXPECT_EQ(tests::FocusName(), u"a"_s);
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(Emitted(), "-a +combo");
}

TEST_F(Focus, WhatHappensUnderAModalFormIsEmittedWhenItHasGone) {
    for (const bool hides : {false, true}) {
        ModalForm modal(u"Query"_s, u"查找"_s, &form);
        tests::ModalScript operators;
        operators.Next(u"Query"_s, [&](QWidget&) {
            if (hides) b.hide();
            (hides ? a : b).SetFocus();
            EXPECT_EQ(Emitted(), "");
            modal.Unload();
        });
        modal.ShowModal();
        EXPECT_EQ(Emitted(), hides ? "+a" : "-a +b") << "a control that was hidden meanwhile is not left";
    }
}

TEST_F(Focus, HidingOrDisablingTheFocusedControlIsNoEvent) {
    a.hide();
    EXPECT_EQ(Emitted(), "");
    EXPECT_EQ(tests::FocusName(), u"combo"_s) << "the toolkit has moved on by itself";
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(Emitted(), "+date")
        << "a control that was never reported to be entered is not reported to be left";
    date.setEnabled(false);
    EXPECT_EQ(Emitted(), "");
    form.activateWindow();
    EXPECT_EQ(Emitted(), "");
}

TEST_F(Focus, WhatAHandlerAsksForAfterHidingIsEmitted) {
    Go(combo);
    combo.hide();
    b.SetFocus();
    EXPECT_EQ(Emitted(), "+b") << "hidden in the midst of a command, the combo is not left";
    combo.show();
    Go(a);
    a.setEnabled(false);  // the toolkit goes to the combo, which is where the form wants to be too
    combo.SetFocus();
    EXPECT_EQ(Emitted(), "+combo");
    a.setEnabled(true);
    a.SetFocus();
    combo.hide();  // after the operator has really left it
    EXPECT_EQ(Emitted(), "-combo +a");
    a.hide();
    Emitted();
    a.show();
    a.SetFocus();
    EXPECT_EQ(Emitted(), "+a") << "it went away meanwhile, so it is entered anew";
}

TEST_F(Focus, TheGainWaitsForALossThatShowsItsProgress) {
    a.LostFocus = [&] {
        reported << u"-a"_s;
        ShowProgress();
        FocusTracker::Get().Settle();
        reported << u"."_s;
    };
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(Emitted(), "-a . +combo");
}

TEST_F(Focus, AControlThatGoesAwayIsForgotten) {
    auto* passing = new LineBox;
    Add(*static_cast<QVBoxLayout*>(form.layout()), *passing, u"passing"_s);
    tests::Settle();
    passing->SetFocus();
    EXPECT_EQ(Emitted(), "-a +passing");
    delete passing;
    EXPECT_EQ(Emitted(), "");
    b.SetFocus();
    EXPECT_EQ(Emitted(), "+b");
}

TEST_F(Focus, ASetFocusInAHandlerWins) {
    b.GotFocus = [&] {
        reported << u"+b"_s;
        a.SetFocus();
    };
    b.SetFocus();
    EXPECT_EQ(Emitted(), "-a +b -b +a") << "the box hands the focus on";
    a.LostFocus = [&] {
        reported << u"-a"_s;
        a.SetFocus();
    };
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(Emitted(), "-a +a") << "the box keeps the operator; the next one never had the focus";
    EXPECT_EQ(tests::FocusName(), u"a"_s);
}

TEST_F(Focus, AMessageFromALossIsShownOnce) {
    int shown = 0;
    a.LostFocus = [&] {
        reported << u"-a"_s;
        ++shown;
        EmitAll();
        reported << u"."_s;
    };
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(Emitted(), "-a . +combo") << "the gain waits for the loss to be done with";
    EXPECT_EQ(shown, 1);
    a.LostFocus = [&] {
        ++shown;
        EmitAll();
        a.SetFocus();
    };
    Go(a);
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(Emitted(), "+a");
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(tests::FocusName(), u"a"_s);
}

TEST_F(Focus, NothingIsEmittedOnceTheProgramHasEnded) {
    a.LostFocus = [&] { sys::EndProgram(0); };
    script.End(0);
    b.SetFocus();
    EXPECT_EQ(Emitted(), "");
}

}  // namespace
