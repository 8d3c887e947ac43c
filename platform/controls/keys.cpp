#include "platform/controls/keys.h"

#include "platform/system/guard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcutEvent>

using namespace Qt::StringLiterals;

namespace controls {

void SendKeys(const QString& keys) {
    if (keys != u"{TAB}") return;
    const QPointer<QWidget> window = QApplication::activeWindow();
    QMetaObject::invokeMethod(
        qApp,
        [window] {
            // A box that has come up since then is not meant.
            QWidget* target = window ? window->focusWidget() : nullptr;
            if (!target || sys::HasEnded()) return;
            const QPointer<QWidget> alive(target);
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
            QCoreApplication::sendEvent(target, &press);
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
            if (alive) QCoreApplication::sendEvent(target, &release);
        },
        Qt::QueuedConnection);
}

namespace {

void Hang(QAction* action, const QString& name, std::function<void()> handler) {
    action->setObjectName(name);
    QObject::connect(action, &QAction::triggered, action, [handler = std::move(handler)] {
        sys::Guarded([&] {
            if (handler) handler();
        });
    });
}

}  // namespace

QAction* AddCommand(QMenuBar* bar, const QString& name, const QString& caption,
                    std::function<void()> handler) {
    QAction* action = bar->addAction(caption);
    Hang(action, name, std::move(handler));
    return action;
}

QAction* AddCommand(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler) {
    QAction* action = menu->addAction(caption);
    Hang(action, name, std::move(handler));
    return action;
}

QMenu* AddMenu(QMenuBar* bar, const QString& name, const QString& caption) {
    QMenu* menu = bar->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

}  // namespace controls
