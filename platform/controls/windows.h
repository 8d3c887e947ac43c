// The real windows of the toolkit, which the seams call: message boxes, file dialogs, the operator's browser
// and mail program, the input method. DressApplication installs them.
#pragma once

#include "platform/system/seams.h"

namespace controls {

/// Connects the seams to the real windows.
void InstallWindows();

/// A message box over the active window; waits for the answer. Esc answers No, or OK if there is no No
/// button.
sys::BoxAnswer ShowMessageBox(const sys::BoxRequest& request);
/// The toolkit's own file dialog; "" if the operator cancels. Does not ask about an existing file.
QString ShowFileDialog(const sys::FileRequest& request);

}  // namespace controls
