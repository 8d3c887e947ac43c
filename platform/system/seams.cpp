#include "platform/system/seams.h"

#include "platform/errors.h"
#include "platform/system/files.h"
#include "platform/system/guard.h"

#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QSettings>
#include <QStorageInfo>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

/// The per-user settings store: application "Mirelsoft", section "Express".
QSettings UserSettings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"Mirelsoft"_s, u"Express"_s);
}

bool StartDetached(const QString& path) {
    return QProcess::startDetached(path, {}, QFileInfo(path).absolutePath());
}

[[noreturn]] void LeaveProcess(int status) {
    std::fflush(nullptr);
    ::_exit(status);
}

/// Ends the process after these steps, of which each may fail.
[[noreturn]] void Leave(int status, std::initializer_list<void (*)()> steps) {
    for (const auto step : steps) {
        try {
            step();
        } catch (const PlatformError& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
    }
    seams().leave(status);
    ::_exit(status);  // a seam that returned would break the promise
}

Seams Real() {
    Seams real;
    real.now = [] { return QDateTime::currentDateTime(); };
    real.localeName = [] { return QLocale::system().name(); };
    real.startProgram = StartDetached;
    real.openAddress = [](const QString&) {};
    real.switchInputMethod = [] {};
    real.readSetting = [](const QString& entry) { return UserSettings().value(entry).toString(); };
    real.writeSetting = [](const QString& entry, const QString& value) {
        UserSettings().setValue(entry, value);
    };
    real.copyFile = CopyWhole;
    real.freeBytes = [](const QString& folder) { return QStorageInfo(folder).bytesAvailable(); };
    real.leave = LeaveProcess;
    // Without a screen a message box is a line on the error output, and the safe answer is taken.
    real.showBox = [](const BoxRequest& request) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(request.text + u"\n"_s + request.detail));
        switch (request.buttons) {
            case BoxButtons::YesNo:
                return BoxAnswer::No;
            case BoxButtons::OkCancel:
                return BoxAnswer::Cancel;
            case BoxButtons::Ok:
                break;
        }
        return BoxAnswer::Ok;
    };
    real.askFile = [](const FileRequest&) { return QString(); };
    return real;
}

}  // namespace

Seams& seams() {
    static Seams inUse = Real();
    return inUse;
}

BoxAnswer MsgBox(const BoxRequest& request) {
    if (!request.keepsGroup) CloseCommand();
    const BoxAnswer answer = seams().showBox(request);
    ThrowIfEnded();
    return answer;
}

void Inform(const QString& text, const QString& title) {
    MsgBox({.text = text, .title = title});
}

void Warn(const QString& text, const QString& title) {
    MsgBox({.text = text, .title = title, .icon = BoxIcon::Warning});
}

bool Ask(const QString& text, const QString& title, BoxAnswer defaultButton) {
    return MsgBox({.text = text,
                   .title = title,
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo,
                   .defaultButton = defaultButton}) == BoxAnswer::Yes;
}

bool AskToDestroy(const QString& text, const QString& title, BoxAnswer defaultButton) {
    return MsgBox({.text = text,
                   .title = title,
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo,
                   .defaultButton = defaultButton,
                   .detail = {},
                   .destroys = true}) == BoxAnswer::Yes;
}

bool ConfirmLoss(const QString& text) {
    return MsgBox({.text = text, .buttons = BoxButtons::OkCancel, .destroys = true}) == BoxAnswer::Ok;
}

QString AskFile(const FileRequest& request) {
    CloseCommand();
    const QString path = seams().askFile(request);
    ThrowIfEnded();
    return path;
}

QDateTime Now() {
    return seams().now();
}

QDate Today() {
    return Now().date();
}

void EndProgram(int status) {
    // A command that cannot be kept is no reason to leave the file in pieces.
    Leave(status, {CloseCommand, RunProgramEndHooks});
}

void AbandonProgram(int status) {
    Leave(status, {RunAbandonHooks});
}

}  // namespace sys
