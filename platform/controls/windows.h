// The toolkit's real windows behind the seams: message boxes, file dialogs, the operator's browser and mail
// program, the input method. DressApplication installs them.
#pragma once

#include "platform/system/seams.h"

namespace controls {

/// Puts the real windows behind the seams.
void InstallWindows();

/// A message box over the active window; waits for the answer. Esc is No, or OK where there is no No.
sys::BoxAnswer ShowMessageBox(const sys::BoxRequest& request);
/// The toolkit's own file dialog; "" if the operator gave up. Asks nothing about a file that is there.
QString ShowFileDialog(const sys::FileRequest& request);

}  // namespace controls
