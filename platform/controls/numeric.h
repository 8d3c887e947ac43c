// Text boxes and cell editors for numbers: what the operator types, commits, pastes or drops is written in
// the characters that text::Val reads, so that the number on the screen is the number in the file.
//
// Always holds: a text that the program sets stays as it is.
#pragma once

#include <QLineEdit>

namespace controls {

/// Marks a LineBox or a grid's cell editor as one for numbers. The form's key events bring the characters as
/// text::NarrowNumber leaves them.
void SetNumeric(QLineEdit& line, bool numeric = true);
bool IsNumeric(const QObject& control);

/// The edited text of a text box for numbers, with all in it narrowed; several characters that came in at
/// once lose the commas between groups of three digits. `before` is the text before the edit, `cursor` the
/// position behind what came in.
QString EditedNumber(const QString& text, const QString& before, qsizetype cursor);

}  // namespace controls
