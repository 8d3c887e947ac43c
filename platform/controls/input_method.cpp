#include "platform/controls/input_method.h"

#include "platform/controls/input_order.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QInputMethod>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

/// Long enough for an input method that is busy, too short to be felt. In milliseconds.
constexpr int kLongestWait = 200;

/// False where it does not run.
bool ToggleFcitx() {
    const QString service = u"org.fcitx.Fcitx5"_s;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(service)) return false;
    // Waits for the answer, so that the next key finds the input method switched.
    bus.call(QDBusMessage::createMethodCall(service, u"/controller"_s, u"org.fcitx.Fcitx.Controller1"_s,
                                            u"Toggle"_s),
             QDBus::Block, kLongestWait);
    InputOrder::Get().InputMethodSwitched();
    return true;
}

}  // namespace

void SwitchInputMethod() {
    if (ToggleFcitx()) return;
    QInputMethod* method = QGuiApplication::inputMethod();
    method->isVisible() ? method->hide() : method->show();
}

}  // namespace controls
