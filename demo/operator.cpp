#include "demo/operator.h"

#include "app/main_window.h"
#include "app/session.h"
#include "demo/keyboard.h"
#include "demo/rows.h"
#include "platform/controls/box.h"
#include "platform/errors.h"
#include "platform/system/guard.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

/// What is posted may post again before everything has settled.
constexpr int kTurnsToSettle = 3;
/// More controls than any form has.
constexpr int kLongestWay = 80;

/// What a step that must not go on throws; caught before it reaches the toolkit.
struct Mismatch {
    QString why;
};

QWidget& Control(const QString& name) {
    QWidget* window = QApplication::activeWindow();
    auto* control = window ? window->findChild<QWidget*>(name) : nullptr;
    if (!control) throw Mismatch{u"没有控件 "_s + name};
    return *control;
}

QString TextOf(QWidget& control) {
    if (auto* box = dynamic_cast<controls::TextBox*>(&control)) return box->Text();
    if (auto* combo = dynamic_cast<controls::ComboBox*>(&control)) return combo->Text();
    if (auto* picker = dynamic_cast<controls::DTPicker*>(&control)) return picker->text();
    if (auto* check = qobject_cast<QCheckBox*>(&control)) return check->isChecked() ? u"1"_s : u"0"_s;
    throw Mismatch{u"控件没有文字："_s + control.objectName()};
}

/// False when the box shows less than its text.
bool ShowsAll(const QMessageBox& box) {
    const auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    if (!label) return false;
    return label->wordWrap() ? label->height() >= label->heightForWidth(label->width())
                             : label->width() >= label->sizeHint().width();
}

QMessageBox* ActiveBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

/// A desktop does this by itself; a display without one forgets the window beneath the second of two boxes.
void WakeModalWindow() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && !QApplication::activeWindow()) modal->activateWindow();
}

/// Not any more once the context is gone.
void AfterTurns(int turns, QObject* context, const std::function<void()>& act) {
    if (turns == 0) return act();
    QTimer::singleShot(0, context, [turns, context, act] { AfterTurns(turns - 1, context, act); });
}

}  // namespace

Operator::Operator(Screen& screen, int pause) : screen_(screen), pause_(pause) {
}

// ------------------------------------------------------------------------------------------------- the
// script

void Operator::Add(const QString& what, std::function<void()> play, bool answersBox) {
    steps_.push_back({what,
                      [play = std::move(play)] {
                          play();
                          return true;
                      },
                      answersBox});
}

void Operator::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Add(u"按键 "_s + QKeySequence(QKeyCombination(modifiers, key)).toString(),
        [this, key, modifiers] { keyboard::Press(KeyTarget(), key, modifiers); });
}

void Operator::Type(const QString& text) {
    Add(u"输入 "_s + text, [this, text] {
        for (const QChar character : text) keyboard::Character(KeyTarget(), character);
    });
}

void Operator::TypeOver(const QString& text) {
    Press(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        Press(Qt::Key_Delete);
    else
        Type(text);
}

void Operator::Command(const QString& letters) {
    for (const QChar letter : letters)
        Add(u"菜单 "_s + letters, [this, letter] { keyboard::Alt(KeyTarget(), letter.unicode()); });
}

void Operator::MoveTo(const QString& control, Qt::Key key) {
    steps_.push_back({u"走到 "_s + control, [this, control, key] {
                          if (keyboard::FocusName() == control) {
                              moves_ = 0;
                              return true;
                          }
                          if (++moves_ > kLongestWay) throw Mismatch{u"走不到 "_s + control};
                          keyboard::Press(KeyTarget(), key);
                          return false;
                      }});
}

void Operator::Do(const QString& what, std::function<void()> act) {
    Add(what, std::move(act));
}

void Operator::ExpectWindow(const QString& name) {
    Add(u"当前窗口"_s, [this, name] {
        const QWidget* active = QApplication::activeWindow();
        Compare(active ? active->objectName() : QString(), name);
    });
}

void Operator::ExpectFocus(const QString& control) {
    Add(u"焦点"_s, [this, control] { Compare(keyboard::FocusName(), control); });
}

void Operator::ExpectText(const QString& control, const QString& text) {
    Add(control + u" 的文字"_s, [this, control, text] { Compare(TextOf(Control(control)), text); });
}

void Operator::ExpectStatus(const QString& text) {
    Add(u"状态栏"_s, [this, text] { Compare(TheFrame().Panel(MForm::PositionPanel), text); });
}

void Operator::ExpectRows(const QString& select, const QStringList& rows) {
    Add(select, [this, select, rows] {
        if (Db->InGroup()) throw Mismatch{u"命令结束后还有未提交的内容"_s};
        Compare(Rows(*Db, select).join(u'\n'), rows.join(u'\n'));
    });
}

void Operator::Expect(const QString& what, std::function<bool()> holds) {
    Add(what, [holds = std::move(holds)] {
        if (!holds()) throw Mismatch{u"不成立"_s};
    });
}

void Operator::WaitForBox() {
    steps_.push_back({u"等待消息框"_s, [] { return ActiveBox() != nullptr; }, true});
}

void Operator::ExpectBox(const QString& text, const QString& title, const QString& picture, Qt::Key answer) {
    const auto add = [&](const QString& what, std::function<void(QMessageBox&)> act) {
        Add(
            u"消息框 "_s + what,
            [act = std::move(act)] {
                QMessageBox* box = ActiveBox();
                if (!box) throw Mismatch{u"没有出现消息框"_s};
                act(*box);
            },
            true);
    };
    add(text, [this, text, title](QMessageBox& box) {
        Compare(box.windowTitle(), title);
        Compare(box.text(), QString(text).replace(u'\r', u'\n'));
        if (!ShowsAll(box)) throw Mismatch{u"消息框的文字没有全部显示"_s};
    });
    if (!picture.isEmpty())
        add(text, [this, picture, text](QMessageBox&) { screen_.Keep(picture, u"消息框："_s + text); });
    add(text, [this, answer](QMessageBox&) { keyboard::Press(KeyTarget(), answer); });
    Add(u"窗口重新激活"_s, WakeModalWindow, true);
}

void Operator::ExpectEnd() {
    const int number = ++endsTold_;
    const auto startedAgain = [this, number] { return ends_ >= number && !sys::HasEnded(); };
    steps_.push_back({u"程序结束，重新启动"_s, startedAgain, true});
}

void Operator::NoteEnd() {
    if (++ends_ > endsTold_) Fail(u"程序提前结束"_s);
}

void Operator::Chapter(const QString& title, const QString& words) {
    Add(title, [=, this] { screen_.Begin(title, words); });
}

void Operator::Picture(const QString& name, const QString& caption) {
    Add(u"图片 "_s + name, [this, name, caption] { screen_.Keep(name, caption); });
}

void Operator::Pictures(const QString& name, const QString& caption,
                        std::function<std::vector<QImage>()> make) {
    Add(u"图片 "_s + name, [this, name, caption, make] {
        const std::vector<QImage> images = make();
        for (std::size_t i = 0; i < images.size(); ++i)
            screen_.Keep(name, u"%1，第 %2 页，共 %3 页"_s.arg(caption).arg(i + 1).arg(images.size()),
                         images[i]);
    });
}

// ------------------------------------------------------------------------------------------------- playing

void Operator::Compare(const QString& found, const QString& expected) {
    if (found != expected) throw Mismatch{u"\n应为：\n"_s + expected + u"\n实为：\n"_s + found};
}

QWidget& Operator::KeyTarget() {
    QWidget* target = keyboard::Target();
    if (!target) throw Mismatch{u"没有窗口接受按键"_s};
    return *target;
}

void Operator::Start() {
    Next();
}

void Operator::Next() {
    QTimer::singleShot(pause_, &context_,
                       [this] { AfterTurns(kTurnsToSettle, &context_, [this] { Play(); }); });
}

/// The next step is on its way before this one is played, since a key may open a message box or a form that
/// waits in a loop of its own.
void Operator::Play() {
    if (steps_.empty()) Fail(u"最后一步之后主窗口仍未关闭"_s);
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    ++played_;
    current_ = step.what;
    try {
        const QMessageBox* box = ActiveBox();
        if (box && !step.answersBox) throw Mismatch{u"意外的消息框："_s + box->text()};
        Next();
        if (!step.play()) steps_.push_front(step);
    } catch (const Mismatch& mismatch) {
        Fail(mismatch.why);
    } catch (const PlatformError& error) {
        Fail(error.Text());
    } catch (const std::exception& error) {
        Fail(QString::fromUtf8(error.what()));
    }
}

void Operator::Fail(const QString& why) {
    std::fprintf(stderr, "演示在第 %d 步停下（%s）：%s\n", played_, qUtf8Printable(current_),
                 qUtf8Printable(why));
    try {
        screen_.Keep(u"failed"_s, current_);
    } catch (const PlatformError& error) {
        std::fprintf(stderr, "没有留下图片：%s\n", qUtf8Printable(error.Text()));
    }
    std::fflush(nullptr);
    std::_Exit(1);
}

}  // namespace demo
