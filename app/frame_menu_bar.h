// A menu bar in the frame's stack of bars.
#pragma once

#include <QMenuBar>

/// The frame holds its own bar and those of all open forms, and each of them watches the frame's keys. A lone
/// Alt is for the one that is seen.
class FrameMenuBar : public QMenuBar {
  public:
    explicit FrameMenuBar(QWidget* parent = nullptr) : QMenuBar(parent) { setNativeMenuBar(false); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        return isVisible() && QMenuBar::eventFilter(watched, event);
    }
};
