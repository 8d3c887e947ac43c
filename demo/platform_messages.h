// Messages that a display without a screen prints for every window.
#pragma once

#include <QString>

namespace demo {

/// Installs a message handler that drops the messages about unsupported functions and about XDG_RUNTIME_DIR,
/// which is not set where nobody is logged in.
inline void SilencePlatform() {
    using namespace Qt::StringLiterals;
    static QtMessageHandler others = nullptr;
    others = qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext& at, const QString& text) {
        for (const auto& known : {u"This plugin does not support"_s, u"QStandardPaths: XDG_RUNTIME_DIR"_s})
            if (text.startsWith(known)) return;
        others(kind, at, text);
    });
}

}  // namespace demo
