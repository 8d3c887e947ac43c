// What the boxes have in common when keys, texts and the focus come in. For the controls' own files.
#pragma once

#include "platform/controls/control_events.h"

#include <QLineEdit>

#include <memory>

namespace controls {

/// Fires KeyPressed. Gives what is left for the control: the key with the form's text, or nothing when the
/// form took it, the control has gone or the program has ended.
std::unique_ptr<QKeyEvent> OfferKey(QObject* control, const sys::Event<KeyPress&>& event,
                                    const QKeyEvent& key);

inline bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// A box that the keyboard or the program enters is ready to be typed over; one that is clicked
/// only where its form says so.
bool SelectsAll(Qt::FocusReason reason);

/// Whether text from outside may go into this control now: it keeps the focus when it gets it, so the form
/// did not send the operator away.
bool KeepsFocus(QWidget* control);

/// Half of a pair alone is no character: the file would keep something else than the box shows, so it becomes
/// U+FFFD at once.
QString WholeCharacters(QString text);

/// Pasted text as one row: a line break or any other control character becomes a blank.
QString OneRow(const QString& text);

/// Tidies what the operator put into a line: one row, no half of a character at its end.
void TidyLine(QLineEdit* line);

}  // namespace controls
