#include "tests/display/screen.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr unsigned long kPollMilliseconds = 10;

/// What the surroundings of the test must not decide.
QProcessEnvironment CleanEnvironment(const QString& home) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : environment.keys())
        if (name.startsWith(u"QT_"_s) || name.startsWith(u"XDG_"_s) || name.startsWith(u"LC_"_s))
            environment.remove(name);
    for (const auto& name : {u"WAYLAND_DISPLAY"_s, u"XMODIFIERS"_s, u"GTK_IM_MODULE"_s, u"LANGUAGE"_s,
                             u"DBUS_SESSION_BUS_ADDRESS"_s})
        environment.remove(name);
    environment.insert(u"HOME"_s, home);
    environment.insert(u"XDG_RUNTIME_DIR"_s, home);
    environment.insert(u"LANG"_s, u"C.UTF-8"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    return environment;
}

}  // namespace

bool WaitUntil(const std::function<bool()>& holds, int patience) {
    QElapsedTimer waited;
    waited.start();
    while (!holds()) {
        if (waited.elapsed() > patience) return false;
        QThread::msleep(kPollMilliseconds);
    }
    return true;
}

Screen& Screen::Get() {
    static Screen screen;
    return screen;
}

Screen::Screen() : environment_(CleanEnvironment(home_.path())) {
    server_ = std::make_unique<ChildProcess>(u"Xvfb"_s,
                                             QStringList{u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s,
                                                         u"1366x768x24"_s, u"-nolisten"_s, u"tcp"_s},
                                             environment_);
    const QString number = server_->FirstLine();
    if (number.isEmpty()) throw std::runtime_error("Xvfb gives no display number");
    environment_.insert(u"DISPLAY"_s, u':' + number);
    client_ = std::make_unique<XClient>(u':' + number);
    windowManager_ = std::make_unique<ChildProcess>(u"openbox"_s, QStringList(), environment_);
    if (!WaitUntil([this] { return client_->HasWindowManager(); }))
        throw std::runtime_error("openbox does not come up");
}

QString Screen::SavePicture(const QString& name) {
    const QString folder = QStringLiteral(FAILURE_PICTURES);
    QDir().mkpath(folder);
    const QString path = folder + u'/' + name + u".png"_s;
    return client_->Picture().save(path) ? path : u"no picture: "_s + path;
}

}  // namespace display
