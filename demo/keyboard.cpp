#include "demo/keyboard.h"

#include "platform/controls/box.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

namespace keyboard {

QWidget* Target() {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->focusWidget() && popup->isAncestorOf(popup->focusWidget()) ? popup->focusWidget()
                                                                                 : popup;
    if (QWidget* focus = QApplication::focusWidget()) return focus;
    return QApplication::activeWindow();
}

void Press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&target, key, modifiers);
}

void Character(QWidget& target, QChar character) {
    if (character.unicode() < 0x80)
        QTest::keyClick(&target, character.toLatin1());
    else  // no key produces it, so it is sent as an input method sends it
        QTest::sendKeyEvent(QTest::Click, &target, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

void Alt(QWidget& target, char16_t letter) {
    const bool menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr;
    QTest::keyClick(&target, static_cast<char>(letter), menu ? Qt::NoModifier : Qt::AltModifier);
}

QString FocusName() {
    for (QWidget* w = QApplication::focusWidget(); w; w = w->parentWidget())
        if (dynamic_cast<controls::FocusEvents*>(w)) return w->objectName();
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

}  // namespace keyboard
