// How the whole program looks: one style sheet, one font, one set of pictures for all forms.
#pragma once

#include <QApplication>
#include <QIcon>
#include <QString>

namespace controls {

/// Style, font, pictures, the toolkit's Chinese texts, the real windows behind the seams (boxes, file
/// dialogs, the input method). Once, before the first window.
void DressApplication(QApplication& app);

/// A picture of the look by its name ("app", "receive"), the file in look/icons/; empty for one that is not
/// there.
QIcon LookIcon(const QString& name);

}  // namespace controls
