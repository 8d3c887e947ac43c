// A list of lines, one of which may be selected.
//
// Always holds: filling selects nothing, and nothing is selected until the operator or SetListIndex does it;
// a key that moves selects the first line then, End the last. Lines keep their blanks and are never
// shortened.
#pragma once

#include "platform/controls/control_events.h"

#include <QListWidget>
#include <QStringList>

namespace controls {

class ListBox : public QListWidget, public FocusEvents {
    Q_OBJECT
  public:
    explicit ListBox(QWidget* parent = nullptr);
    int ListCount() const { return count(); }
    /// Lines count from 0; the index has to be one of them.
    QString List(int index) const { return item(index)->text(); }
    void SetLines(const QStringList& lines);
    /// The selected line, or -1.
    int ListIndex() const;
    void SetListIndex(int index);  ///< -1 selects none
    void SetFocus() { MoveFocus(this); }

    sys::Event<KeyPress&> KeyPressed;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace controls
