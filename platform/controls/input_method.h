// Ctrl+Space of the address lines: switches the desktop's input method on or off.
#pragma once

namespace controls {

/// Toggles the input method of the text box that has the focus. On X11 this works with fcitx 5, which is
/// asked over the session bus; other input methods take Ctrl+Space from the keyboard only, and a virtual
/// keyboard is shown or hidden.
void SwitchInputMethod();

}  // namespace controls
