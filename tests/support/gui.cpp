#include "tests/support/gui.h"

#include "demo/keyboard.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/modal_form.h"
#include "platform/system/guard.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

#include <deque>
#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

QWidget* NeedTarget() {
    Settle();
    QWidget* target = keyboard::Target();
    if (!target) ADD_FAILURE() << "no window is active, so nothing takes the key";
    return target;
}

/// Without a window manager nobody makes a window active again when a menu over it has been destroyed.
void KeepActive() {
    static QPointer<QWidget> last;
    if (QWidget* active = QApplication::activeWindow()) last = active;
    if (QApplication::activeWindow() || QApplication::activePopupWidget()) return;
    if (last && last->isVisible()) last->activateWindow();
}

}  // namespace

void Settle() {
    // What is posted may post again; a handful of rounds is far more than any chain in the program.
    for (int round = 0; round < 6; ++round) {
        QCoreApplication::processEvents();
        KeepActive();
        controls::FocusTracker::Get().Settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void Show(QWidget& window) {
    window.show();
    window.activateWindow();
    Settle();
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWidget* target = NeedTarget()) keyboard::Press(*target, key, modifiers);
    Settle();
}

void Type(const QString& text) {
    for (const QChar c : text) {
        QWidget* target = NeedTarget();
        if (!target) return;
        keyboard::Character(*target, c);
        Settle();
    }
}

void TypeOver(const QString& text) {
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Type(text);
}

void AltKey(char16_t letter) {
    if (QWidget* target = NeedTarget()) keyboard::Alt(*target, letter);
    Settle();
}

QString FocusName() {
    return keyboard::FocusName();
}

void Click(QWidget& control) {
    ClickAt(control, control.rect().center());
}

void ClickAt(QWidget& control, QPoint place) {
    QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, place);
    Settle();
}

struct ModalScript::State {
    struct Step {
        QString form;
        std::function<void(QWidget&)> drive;
    };
    std::deque<Step> steps;
    std::function<void(controls::ModalForm&)> before;

    void Take(controls::ModalForm& form) {
        if (steps.empty() || steps.front().form != form.objectName()) {
            ADD_FAILURE() << "unexpected modal form: " << form.objectName().toStdString();
            return;
        }
        const Step step = std::move(steps.front());
        steps.pop_front();
        Settle();
        try {
            step.drive(form);
        } catch (const std::exception& error) {  // must not travel through the waiting loop
            ADD_FAILURE() << step.form.toStdString() << ": " << error.what();
        }
        if (form.isVisible() && !sys::HasEnded()) ADD_FAILURE() << "left open: " << step.form.toStdString();
    }
};

ModalScript::ModalScript() : state_(std::make_unique<State>()) {
    state_->before = controls::ModalForm::Driver();
    controls::ModalForm::Driver() = [this](controls::ModalForm& form) { state_->Take(form); };
}

ModalScript::~ModalScript() {
    for (const auto& step : state_->steps) ADD_FAILURE() << "never came: " << step.form.toStdString();
    controls::ModalForm::Driver() = std::move(state_->before);
}

void ModalScript::Next(const QString& formName, std::function<void(QWidget& form)> drive) {
    state_->steps.push_back({formName, std::move(drive)});
}

}  // namespace tests
