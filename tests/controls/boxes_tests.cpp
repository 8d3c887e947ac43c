// The boxes as the operator meets them: typing, pasting, choosing, and what the form hears of it.
#include "platform/controls/box.h"
#include "platform/controls/keys.h"
#include "platform/controls/numeric.h"
#include "platform/errors.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <array>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace controls;

namespace {

class Boxes : public testing::Test {
  protected:
    Boxes() {
        new QVBoxLayout(&form);
        Add(line, u"line"_s);
        Add(rows, u"rows"_s);
        Add(combo, u"combo"_s);
        Add(date, u"date"_s);
        Add(check, u"check"_s);
        Add(button, u"button"_s);
        line.Change = [this] { reported << u"line"_s; };
        rows.Change = [this] { reported << u"rows"_s; };
        combo.Change = [this] { reported << u"typed"_s; };
        combo.Click = [this] { reported << u"chosen:"_s + combo.Text(); };
        date.Change = [this] { reported << date.Value().toString(Qt::ISODate); };
        check.Click = [this] { reported << u"check:%1"_s.arg(check.Value()); };
        button.Click = [this] { reported << u"pressed"_s; };
        tests::Show(form);
    }

    void Add(QWidget& control, const QString& name) {
        control.setObjectName(name);
        form.layout()->addWidget(&control);
    }

    template <class Control>
    void Enter(Control& control) {
        control.SetFocus();
        tests::Settle();
    }

    /// Alt+Down and F4, which open the list of a combo and the calendar of a date.
    void EachOpeningKey(const std::function<void()>& look) {
        for (const auto& [key, modifiers] :
             {std::pair{Qt::Key_Down, Qt::AltModifier}, {Qt::Key_F4, Qt::NoModifier}}) {
            tests::Press(key, modifiers);
            ASSERT_NE(QApplication::activePopupWidget(), nullptr);
            look();
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        }
    }

    static void Paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        tests::Press(Qt::Key_V, Qt::ControlModifier);
    }

    /// The widget of a text box that receives mouse events.
    static QWidget* Surface(TextBox& box) {
        auto* area = qobject_cast<QAbstractScrollArea*>(box.Widget());
        return area ? area->viewport() : box.Widget();
    }

    static void Drop(TextBox& box, const QString& text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Surface(box), &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Surface(box), &drop);
        tests::Settle();
    }

    static bool OpensMenu(TextBox& box) {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5),
                               box.Widget()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(Surface(box), &menu);
        QWidget* opened = QApplication::activePopupWidget();
        if (opened) opened->close();
        return opened != nullptr;
    }

    /// As from the operator's mouse: the toolkit gives the focus for it.
    static void Wheel(QWidget& target) {
        QWheelEvent wheel(QPointF(5, 5), target.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        qApp->notify(&target, &wheel);
    }

    std::string Emitted() { return std::exchange(reported, {}).join(u' ').toStdString(); }

    tests::Script script;
    QWidget form;
    LineBox line;
    RowsBox rows{3};
    const std::array<TextBox*, 2> texts{&line, &rows};
    ComboBox combo;
    DTPicker date;
    CheckBox check{u"已出货"_s};
    Button button{u"确  定"_s};
    QStringList reported;
};

TEST_F(Boxes, AKeyReachesTheFormFirst) {
    auto onKey = [](KeyPress& key) {
        if (key.key == Qt::Key_Return) SendKeys(u"{TAB}"_s);
        if (key.text == u"x") key.taken = true;
        if (key.text == u"y") key.text.clear();
        key.text = key.text.toUpper();
    };
    line.KeyPressed = onKey;
    rows.KeyPressed = onKey;
    combo.KeyPressed = onKey;
    date.KeyPressed = onKey;
    check.KeyPressed = onKey;
    Enter(line);
    tests::Type(u"kxvy1"_s);
    EXPECT_EQ(line.Text(), u"KV1"_s);
    tests::Press(Qt::Key_Return);
    tests::Type(u"abx"_s);
    EXPECT_EQ(rows.Text(), u"AB"_s);
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(rows.Text(), u"AB"_s) << "Enter inserts nothing";
    tests::Type(u"hy"_s);
    EXPECT_EQ(combo.Text(), u"H"_s);
    for (const auto& next : {u"date"_s, u"check"_s, u"button"_s}) {
        tests::Press(Qt::Key_Return);
        EXPECT_EQ(tests::FocusName(), next);
    }
}

TEST_F(Boxes, CommittedTextReachesTheFormFirst) {
    line.KeyPressed = [&](KeyPress& key) {
        EXPECT_EQ(key.key, 0);
        if (key.text == u"x") key.taken = true;
        key.text = key.text.toUpper();
    };
    Enter(line);
    const auto send = [&](const QString& preedit, const QString& committed, int from = 0, int length = 0) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(committed, from, length);
        QCoreApplication::sendEvent(&line, &event);
        EXPECT_TRUE(event.isAccepted());
    };
    send(u"ni"_s, {});
    send({}, u"你b"_s);
    EXPECT_EQ(line.Text(), u"你B"_s);
    send({}, u"好c"_s, -1, 1);
    EXPECT_EQ(line.Text(), u"你好C"_s) << "in place of what it replaces";
    send(u"x"_s, {});
    send({}, u"x"_s);
    EXPECT_EQ(line.Text(), u"你好C"_s) << "the form has taken it";
}

TEST_F(Boxes, ANumberArrivesInTheCharactersThatAreRead) {
    const auto commit = [this](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(&line, &event);
    };
    const std::function<void(const QString&)> ways[] = {[](const QString& text) { tests::Type(text); },
                                                        commit, [](const QString& text) { Paste(text); },
                                                        [this](const QString& text) { Drop(line, text); }};
    enum Way { Typed, Committed, Pasted, Dropped };
    const struct {
        QString text;
        std::array<QString, 4> shown;
    } cases[] = {
        {u"－１０．５"_s, {u"-10.5"_s, u"-10.5"_s, u"-10.5"_s, u"-10.5"_s}},
        {u"12。5"_s, {u"12.5"_s, u"12.5"_s, u"12.5"_s, u"12.5"_s}},
        {u"1,234.50"_s, {u"1,234.50"_s, u"1234.50"_s, u"1234.50"_s, u"1234.50"_s}},
        {u"１，２３４，５６７"_s, {u"1,234,567"_s, u"1234567"_s, u"1234567"_s, u"1234567"_s}},
        {u"1,23"_s, {u"1,23"_s, u"1,23"_s, u"1,23"_s, u"1,23"_s}},
        {u"十元"_s, {u"十元"_s, u"十元"_s, u"十元"_s, u"十元"_s}},
    };
    QString offered;
    line.KeyPressed = [&](KeyPress& key) { offered += key.text; };
    SetNumeric(line);
    for (const auto& c : cases)
        for (std::size_t way = Typed; way <= Dropped; ++way) {
            for (const auto& before : {QString(), u"７"_s, u"1,2"_s}) {
                line.SetText(before);
                EXPECT_EQ(line.Text(), before) << "by program";
                Enter(line);
                line.selectAll();
                if (way == Dropped) line.clear();  // a drop does not replace what is selected
                offered.clear();
                ways[way](c.text);
                EXPECT_EQ(line.Text(), c.shown[way]) << way << c.text.toStdString();
                if (way == Typed) {
                    EXPECT_EQ(offered, c.shown[way]);
                }
            }
        }
    line.SetText(u"5"_s);
    Enter(line);
    line.home(false);
    Paste(u"1,234\n"_s);
    EXPECT_EQ(line.Text(), u"1234 5"_s) << "only what came in";
    EXPECT_EQ(line.cursorPosition(), 5);
    SetNumeric(line, false);
    line.clear();
    Paste(u"１,234"_s);
    EXPECT_EQ(line.Text(), u"１,234"_s);
}

TEST_F(Boxes, AHandlerMayTakeTheBoxAway) {
    const QPointer<LineBox> passing = new LineBox;
    Add(*passing, u"passing"_s);
    passing->KeyPressed = [&](KeyPress&) { delete passing; };
    tests::Settle();
    Enter(*passing);
    tests::Type(u"a"_s);
    EXPECT_FALSE(passing);
}

TEST_F(Boxes, LengthLimitsCountCharacters) {
    const struct {
        QString typed, kept;
    } cases[] = {{u"一二三四五"_s, u"一二三四"_s},
                 {u"abcde"_s, u"abcd"_s},
                 {u"👍👍👍"_s, u"👍👍"_s},
                 {u"abc👍"_s, u"abc"_s}};  // never half a character
    for (TextBox* box : texts) {
        box->SetMaxLength(4);
        for (const auto& c : cases) {
            box->SetText(QString());
            Enter(*box);
            Paste(c.typed);
            EXPECT_EQ(box->Text(), c.kept);
            box->SetText(c.typed);
            EXPECT_EQ(box->Text(), c.kept) << "by program too";
        }
        box->SetText(QString());
        tests::Type(u"一二三四五六"_s);
        EXPECT_EQ(box->Text(), u"一二三四"_s);
    }
}

TEST_F(Boxes, WhatIsPastedIsTidied) {
    Enter(line);
    Paste(u"一\t二\r\n三\n四"_s);
    EXPECT_EQ(line.Text(), u"一 二 三 四"_s);
    tests::Press(Qt::Key_Home);
    tests::Press(Qt::Key_Right);
    Paste(u"\t"_s);
    tests::Type(u"x"_s);
    EXPECT_EQ(line.Text(), u"一 x 二 三 四"_s) << "the cursor stays behind what was pasted";
    Enter(combo);
    Paste(u"HY01\t环洋"_s);
    EXPECT_EQ(combo.Text(), u"HY01 环洋"_s);
    Enter(rows);
    Paste(u"一\t二\n三"_s);
    EXPECT_EQ(rows.Text(), u"一 二\n三"_s) << "rows keep their line breaks";
}

TEST_F(Boxes, ChangeIsEmittedOncePerChange) {
    line.SetText(u"张三"_s);
    line.SetText(u"张三"_s);
    rows.SetText(u"早班"_s);
    rows.SetText(u"早班"_s);
    EXPECT_EQ(Emitted(), "line rows");
    Enter(line);
    Paste(u"a\tb"_s);
    EXPECT_EQ(Emitted(), "line") << "the tidying is no change of its own";
    combo.SetText(u"x"_s);
    date.SetValue(QDate(2024, 3, 15));
    check.SetValue(1);
    EXPECT_EQ(Emitted(), "") << "these emit the operator's changes only";
}

TEST_F(Boxes, ALockedBoxTakesNothingButTheFocus) {
    for (TextBox* box : texts) {
        box->SetText(u"旧"_s);
        box->SetLocked(true);
        Enter(*box);
        EXPECT_TRUE(box->Widget()->hasFocus());
        tests::Type(u"x"_s);
        Paste(u"新"_s);
        Drop(*box, u"新"_s);
        EXPECT_FALSE(OpensMenu(*box));
        EXPECT_EQ(box->Text(), u"旧"_s);
        box->SetLocked(false);
        Drop(*box, u"新"_s);
        EXPECT_TRUE(box->Text().contains(u"新"_s));
        EXPECT_TRUE(OpensMenu(*box));
    }
}

TEST_F(Boxes, ABoxThatSendsTheOperatorAwayTakesNothing) {
    Enter(button);
    for (TextBox* box : texts) {
        box->SetText(u"旧"_s);
        box->GotFocus = [this] { button.SetFocus(); };
        Drop(*box, u"新"_s);
        EXPECT_TRUE(button.hasFocus());
        QTest::mouseClick(Surface(*box), Qt::RightButton);
        EXPECT_FALSE(OpensMenu(*box));
        tests::Settle();
        EXPECT_EQ(box->Text(), u"旧"_s);
        EXPECT_TRUE(button.hasFocus());
    }
}

TEST_F(Boxes, AComboIsEnteredByWhatTheMouseBringsIntoIt) {
    combo.SetText(u"旧"_s);
    combo.GotFocus = [this] { reported << u"entered"_s; };
    combo.LostFocus = [this] { reported << u"left"_s; };
    Enter(button);
    const auto drop = [this] {
        QMimeData data;
        data.setText(u"新"_s);
        QDragEnterEvent enter(QPoint(2, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(combo.lineEdit(), &enter);
        QDropEvent event(QPointF(2, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(combo.lineEdit(), &event);
        tests::Settle();
    };
    drop();
    EXPECT_TRUE(combo.hasFocus());
    EXPECT_EQ(combo.Text(), u"新旧"_s);
    Enter(button);
    EXPECT_EQ(Emitted(), "entered typed left");
    combo.GotFocus = [this] { button.SetFocus(); };
    drop();
    QTest::mouseRelease(combo.lineEdit(), Qt::MiddleButton);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), combo.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(combo.lineEdit(), &menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(combo.Text(), u"新旧"_s);
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(Boxes, AMaskedBoxShowsAndGivesAwayNothing) {
    for (TextBox* box : texts) {
        Enter(button);
        box->SetMasked(true);
        box->SetText(u"1086.5"_s);
        const QImage shown = box->Widget()->grab().toImage();
        box->SetText(u"9999.9"_s);
        EXPECT_EQ(box->Widget()->grab().toImage(), shown) << "as many characters look the same";
        QGuiApplication::clipboard()->setText(u"旧"_s);
        controls::MoveFocus(box->Widget());
        tests::Settle();
        tests::Press(Qt::Key_A, Qt::ControlModifier);
        tests::Press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_FALSE(QGuiApplication::clipboard()->text().contains(u"9999"_s));
    }
}

TEST_F(Boxes, AProposedValueIsReadyToBeTypedOver) {
    line.SetText(u"旧"_s);
    Enter(line);
    line.SetText(u"1086.5"_s);  // as a computation on entering does
    tests::Type(u"9"_s);
    EXPECT_EQ(line.Text(), u"9"_s);
    line.SetText(u"9.50"_s);  // while he types
    tests::Type(u"7"_s);
    EXPECT_EQ(line.Text(), u"97.50"_s);
    rows.SetText(u"早班"_s);
    tests::Press(Qt::Key_Tab);
    tests::Type(u"x"_s);
    EXPECT_EQ(rows.Text(), u"早班x"_s) << "a note is not";
}

TEST_F(Boxes, AComboIsFilledWithoutChoosing) {
    for (const auto& item : {u"A"_s, u"b"_s, u"A"_s, u"C"_s}) combo.AddItem(item);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(Emitted(), "");
    combo.SetListIndex(2);
    EXPECT_EQ(combo.ListIndex(), 0) << "the first item equal to the text";
    combo.SetListIndex(2);
    combo.SetListIndex(-1);
    EXPECT_EQ(Emitted(), "chosen:A chosen:A chosen:");
    combo.SetText(u"a"_s);
    EXPECT_EQ(combo.ListIndex(), -1) << "case counts";
    EXPECT_THROW(combo.SetListIndex(4), RuntimeError);
    EXPECT_THROW(combo.SetListIndex(-2), RuntimeError);
    combo.SetText(u"C"_s);
    combo.Clear();
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ListCount(), 0);
    combo.SetText(u"纽约"_s);
    combo.AddItem(u"伦敦"_s);
    EXPECT_EQ(combo.Text(), u"纽约"_s) << "what was typed survives a new list";
}

TEST_F(Boxes, AComboKeepsWhatIsTyped) {
    combo.AddItem(u"HY01.环洋"_s);
    Enter(combo);
    tests::Type(u"hy"_s);
    EXPECT_EQ(combo.Text(), u"hy"_s) << "nothing is completed";
    combo.SetText(u"hy01.环洋"_s);
    tests::Press(Qt::Key_Return);
    tests::Press(Qt::Key_Tab);
    EXPECT_EQ(combo.Text(), u"hy01.环洋"_s) << "nor replaced by an item of another case";
    EXPECT_EQ(combo.ListCount(), 1);
    Wheel(combo);
    EXPECT_EQ(combo.Text(), u"hy01.环洋"_s);
    EXPECT_EQ(Emitted(), "typed typed");
}

TEST_F(Boxes, ComboItemsAreChosenByKeys) {
    for (const auto& item : {u"一"_s, u"二"_s, u"二"_s, u"三"_s}) combo.AddItem(item);
    Enter(combo);
    for (int i = 0; i < 5; ++i) tests::Press(Qt::Key_Down);  // the fifth is at the end already
    tests::Press(Qt::Key_Up);
    EXPECT_EQ(Emitted(), "chosen:一 chosen:二 chosen:二 chosen:三 chosen:二");
    combo.AddItem(u"HY01.环洋"_s);
    combo.AddItem(u"HY02.海源"_s);
    combo.SetText(u"hy"_s);
    tests::Press(Qt::Key_Down);
    tests::Press(Qt::Key_Down);
    EXPECT_EQ(Emitted(), "chosen:HY01.环洋 chosen:HY02.海源") << "from a typed piece to what begins with it";
    combo.SetText(u"一"_s);
    tests::Press(Qt::Key_Up, Qt::AltModifier);
    tests::Press(Qt::Key_PageDown);
    EXPECT_EQ(Emitted(), "chosen:二") << "a page is an item too, counted from what the text says";
    combo.SetText(u"三"_s);
    EachOpeningKey([&] {
        EXPECT_EQ(Emitted(), "") << "opening chooses nothing";
        tests::Press(Qt::Key_Return);
        EXPECT_EQ(Emitted(), "chosen:三") << "the list opens at the text, and the same item counts as chosen";
    });
    combo.SetText(u"无此项"_s);
    combo.showPopup();
    tests::Press(Qt::Key_Escape);
    EXPECT_EQ(combo.Text(), u"无此项"_s);
    EXPECT_EQ(Emitted(), "");
}

TEST_F(Boxes, DatesAreTypedDigitByDigit) {
    date.SetValue(QDate(2024, 11, 24));
    Enter(date);
    tests::Type(u"20250307"_s);
    EXPECT_EQ(date.Value(), QDate(2025, 3, 7));
    tests::Press(Qt::Key_Up);
    EXPECT_EQ(date.Value(), QDate(2025, 3, 8));
    EXPECT_EQ(date.text(), u"2025-03-08"_s);
    Emitted();
    Wheel(date);
    Enter(line);
    for (QWidget* turned : std::array<QWidget*, 2>{&date, &combo}) {
        Wheel(*turned);
        EXPECT_EQ(QApplication::focusWidget(), &line) << "the wheel takes no focus";
    }
    Enter(date);
    Emitted();
    date.SetValue(QDate());
    EXPECT_EQ(date.Value(), QDate(2025, 3, 8));
    EXPECT_EQ(Emitted(), "");
    EachOpeningKey([&] {
        EXPECT_EQ(date.calendarWidget()->selectedDate(), QDate(2025, 3, 8));
        tests::Press(Qt::Key_Escape);
    });
}

TEST_F(Boxes, ADateIsTypedWithItsSeparators) {
    const struct {
        QDate before;
        QString typed;
        QDate after;
    } cases[] = {
        {{2024, 11, 24}, u"2025-10-03"_s, {2025, 10, 3}}, {{2024, 11, 24}, u"2025.10.03"_s, {2025, 10, 3}},
        {{2024, 11, 24}, u"2025/10/3"_s, {2025, 10, 3}},  {{2024, 11, 24}, u"2025-1-3"_s, {2025, 1, 3}},
        {{2024, 11, 24}, u"2025-1-31"_s, {2025, 1, 31}},  {{2024, 2, 29}, u"2025-10-31"_s, {2025, 10, 31}},
        {{2024, 1, 31}, u"2025-02-28"_s, {2025, 2, 28}},  {{2025, 2, 28}, u"2024-2-29"_s, {2024, 2, 29}},
        {{2025, 12, 31}, u"2026-1-1"_s, {2026, 1, 1}},    {{2024, 11, 24}, u"-10-03"_s, {2024, 10, 3}}};
    for (const auto& c : cases) {
        date.SetValue(c.before);
        Enter(button);
        Enter(date);
        tests::Type(c.typed);
        EXPECT_EQ(tests::FocusName(), u"date"_s) << c.typed.toStdString();
        EXPECT_EQ(date.Value().toString(Qt::ISODate).toStdString(),
                  c.after.toString(Qt::ISODate).toStdString())
            << c.typed.toStdString();
    }
}

TEST_F(Boxes, AClickedSectionIsTypedOver) {
    date.SetValue(QDate(2026, 11, 26));
    Enter(date);
    tests::Press(Qt::Key_Home);
    tests::Type(u"2025-10-03"_s);
    EXPECT_EQ(date.Value(), QDate(2025, 10, 3));
    auto* text = date.findChild<QLineEdit*>();
    tests::ClickAt(*text, QPoint(text->fontMetrics().horizontalAdvance(u"2025-"_s) + 4, text->height() / 2));
    tests::Type(u"12"_s);
    EXPECT_EQ(date.Value(), QDate(2025, 12, 3));
    tests::Press(Qt::Key_Backspace);
    tests::Type(u"7"_s);
    EXPECT_EQ(date.Value().year(), 2025);
}

TEST_F(Boxes, APastedDateReplacesTheWholeDate) {
    const QDateTimeEdit::Section sections[] = {QDateTimeEdit::YearSection, QDateTimeEdit::MonthSection,
                                               QDateTimeEdit::DaySection};
    Enter(date);
    for (const auto section : sections) {
        for (const auto& pasted : {u"2025-01-05"_s, u" 2025-1-5\n"_s, u"2025/01/05"_s, u"2025.1.5"_s}) {
            date.SetValue(QDate(2024, 11, 28));
            date.setSelectedSection(section);
            Paste(pasted);
            EXPECT_EQ(Emitted(), "2025-01-05") << pasted.toStdString();
            EXPECT_EQ(tests::FocusName(), u"date"_s);
        }
        for (const auto& none : {u"2025-13-01"_s, u"5"_s, u"明天"_s}) Paste(none);
        EXPECT_EQ(Emitted(), "") << "what is no date changes nothing";
        EXPECT_EQ(date.text(), u"2025-01-05"_s);
    }
}

TEST_F(Boxes, AHalfTypedDateIsFinishedBeforeTheFormReadsIt) {
    date.SetValue(QDate(2024, 11, 24));
    QDate seen;
    date.KeyPressed = [&](KeyPress& key) {
        if (key.key == Qt::Key_Return) seen = date.Value();
    };
    Enter(date);
    tests::Type(u"2025"_s);
    tests::Type(u"3"_s);
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(seen, QDate(2025, 3, 24));
    EXPECT_EQ(date.text(), u"2025-03-24"_s);
}

TEST_F(Boxes, AComboOfItemsOnlyOpensAtAClickOnItsText) {
    for (const auto& item : {u"甲"_s, u"乙"_s}) combo.AddItem(item);
    combo.SetListIndex(0);
    reported.clear();
    tests::Click(*combo.lineEdit());
    EXPECT_FALSE(combo.view()->isVisible()) << "a text that can be changed is clicked to change it";
    combo.SetItemsOnly();
    tests::Click(*combo.lineEdit());
    ASSERT_TRUE(combo.view()->isVisible());
    EXPECT_TRUE(reported.isEmpty()) << "the click itself chooses nothing";
    tests::Press(Qt::Key_Down);
    tests::Press(Qt::Key_Return);
    EXPECT_EQ(reported, QStringList{u"chosen:乙"_s});
    tests::Type(u"x"_s);
    EXPECT_EQ(combo.Text(), u"乙"_s);
}

}  // namespace
