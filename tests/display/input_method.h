// fcitx 5 with pinyin on a session bus of its own, for a program that composes Chinese.
#pragma once

#include "tests/display/screen.h"

#include <QTemporaryDir>

namespace display {

class InputMethod {
  public:
    /// Throws std::runtime_error when it does not come up.
    InputMethod();

    /// What a program needs to find it.
    QProcessEnvironment Environment() const { return environment_; }

    /// Whether the next key is composed as pinyin, which is loaded at first use.
    bool IsOn() const;

  private:
    QByteArray Ask(const QString& program, const QStringList& arguments) const;

    QTemporaryDir settings_;
    QProcessEnvironment environment_;
    std::unique_ptr<ChildProcess> bus_;
    std::unique_ptr<ChildProcess> fcitx_;
};

}  // namespace display
