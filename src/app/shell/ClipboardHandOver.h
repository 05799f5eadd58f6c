#pragma once

namespace korvane {

/// Lets the desktop keep what this program has put on the clipboard, as far as there is a clipboard
/// manager that does so. To be called when the windows are closed and the application still runs;
/// ends after a second without a word of the manager, and after 20 s in any case. Other platforms
/// than X11 do it by themselves.
void handOverClipboard();

} // namespace korvane
