// A list of lines, one of which may be selected.
//
// Always holds: SetLines selects nothing; only the operator or SetListIndex selects. Without a selection, End
// selects the last line and every other movement key the first. Lines keep their blanks and are never elided.
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
    /// The index counts from 0 and must be below ListCount().
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
