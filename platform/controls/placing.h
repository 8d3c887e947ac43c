// Where a dialog is placed when it is shown.
#pragma once

#include <QDialog>

namespace controls {

/// Centres a dialog that is about to be shown over a maximised window on the screen's free area, since a
/// window manager may still have to maximise that window. Over any other window the toolkit centres it
/// rightly.
void CentreOverParent(QDialog& dialog);

}  // namespace controls
