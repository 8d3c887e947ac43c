#include "tests/display/input_method.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace display {
namespace {

/// Latin letters first, pinyin behind Ctrl+Space.
const QByteArray kProfile =
    "[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=pinyin\n"
    "[Groups/0/Items/0]\nName=keyboard-us\nLayout=\n"
    "[Groups/0/Items/1]\nName=pinyin\nLayout=\n"
    "[GroupOrder]\n0=Default\n";

}  // namespace

InputMethod::InputMethod() : environment_(Screen::Get().Environment()) {
    QDir(settings_.path()).mkpath(u"fcitx5"_s);
    QFile profile(settings_.filePath(u"fcitx5/profile"_s));
    if (!profile.open(QIODevice::WriteOnly) || profile.write(kProfile) != kProfile.size())
        throw std::runtime_error("no settings for the input method");
    profile.close();
    environment_.insert(u"XDG_CONFIG_HOME"_s, settings_.path());
    environment_.insert(u"XDG_DATA_HOME"_s, settings_.path());
    bus_ = std::make_unique<ChildProcess>(
        u"dbus-daemon"_s, QStringList{u"--session"_s, u"--nofork"_s, u"--print-address=1"_s}, environment_);
    environment_.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus_->FirstLine());
    fcitx_ = std::make_unique<ChildProcess>(u"fcitx5"_s,
                                            QStringList{u"--verbose"_s, u"*=0"_s, u"--disable"_s,
                                                        u"notificationitem,notifications,cloudpinyin"_s},
                                            environment_);
    const QStringList isThere{u"--print-reply=literal"_s, u"--dest=org.freedesktop.DBus"_s, u"/"_s,
                              u"org.freedesktop.DBus.NameHasOwner"_s, u"string:org.fcitx.Fcitx5"_s};
    if (!WaitUntil([&] { return Ask(u"dbus-send"_s, isThere).contains("true"); }))
        throw std::runtime_error("fcitx5 does not come up");
    environment_.insert(u"QT_IM_MODULE"_s, u"fcitx"_s);
}

bool InputMethod::IsOn() const {
    return Ask(u"fcitx5-remote"_s, {u"-n"_s}).trimmed() == "pinyin";
}

QByteArray InputMethod::Ask(const QString& program, const QStringList& arguments) const {
    QProcess ask;
    ask.setProcessEnvironment(environment_);
    ask.start(program, arguments);
    return ask.waitForFinished() ? ask.readAllStandardOutput() : QByteArray();
}

}  // namespace display
