// Input of keys, text and focus, shared by the controls. Internal to the controls.
#pragma once

#include "platform/controls/control_events.h"

#include <QLineEdit>

#include <memory>
#include <optional>

namespace controls {

/// Raises KeyPressed, from a text box for numbers with the character narrowed. Returns the key event for the
/// control, with the text that the form left; null if the form took the key or emptied its text, the control
/// was deleted or the program has ended.
std::unique_ptr<QKeyEvent> OfferKey(QObject* control, const sys::Event<KeyPress&>& event,
                                    const QKeyEvent& key);

/// The same for a text that an input method commits, offered as key 0. Returns the text for the control,
/// empty if the form took it; nothing if the control was deleted or the program has ended.
std::optional<QString> OfferText(QObject* control, const sys::Event<KeyPress&>& event, const QString& text);

inline bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Whether focus for this reason selects the whole text: by Tab, shortcut or program. After a click the text
/// is selected only where the form does so.
bool SelectsAll(Qt::FocusReason reason);

/// Gives the control the focus and raises the outstanding focus events. True if it still has the focus, so
/// that pasted or dropped text may enter it; false if the form moved the focus elsewhere.
bool KeepsFocus(QWidget* control);

/// Replaces each unpaired surrogate by U+FFFD; otherwise the file would hold another text than the control
/// shows.
QString WholeCharacters(QString text);

/// Pasted text as one line: a line break or any other control character becomes a blank.
QString OneRow(const QString& text);

/// Reduces the edited text to one line without an unpaired surrogate, in a text box for numbers to what
/// EditedNumber makes of it; the cursor keeps its distance from the end. `before` is the text before the
/// edit.
void TidyLine(QLineEdit* line, const QString& before = {});

}  // namespace controls
