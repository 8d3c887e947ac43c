// The look of all forms: one style sheet, one font, one set of pictures.
#pragma once

#include <QApplication>
#include <QIcon>
#include <QString>

namespace controls {

/// Sets the style, the font, the pictures, the toolkit's Chinese texts and the real windows that the seams
/// call (message boxes, file dialogs, the input method). Call once, before the first window.
void DressApplication(QApplication& app);

/// The picture of this name ("app", "receive"), a file in look/icons/; draws nothing if there is no such
/// file.
QIcon LookIcon(const QString& name);

}  // namespace controls
