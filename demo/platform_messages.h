// What a display without a screen says at every window.
#pragma once

#include <QString>

namespace demo {

/// Drops its words about what it can't do, and that nobody is logged in there.
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
