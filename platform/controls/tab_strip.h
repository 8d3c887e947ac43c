// The strip of tabs over a form. Items count from 1.
#pragma once

#include "platform/controls/control_events.h"

#include <QTabBar>

namespace controls {

class TabStrip : public QTabBar, public FocusEvents {
    Q_OBJECT
  public:
    explicit TabStrip(const QStringList& captions, QWidget* parent = nullptr);
    int SelectedItem() const { return currentIndex() + 1; }
    /// Selects a tab; fires Click when it was not selected before.
    void SelectItem(int item);
    /// Whether this control is in the tab order. A click enters it in any case.
    void SetInTabOrder(bool stop) { setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus); }
    void SetFocus() { MoveFocus(this); }

    sys::Event<> Click;  ///< another tab was selected, by the operator or by SelectItem
    sys::Event<KeyPress&> KeyPressed;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace controls
