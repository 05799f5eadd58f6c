#pragma once

namespace korvane {

/// Has the clipboard manager of an X11 desktop, if there is one, save what this program has put on
/// the clipboard. Call it when the windows are closed and the application still runs. It waits
/// until the manager answers or is silent for a second, and for 20 s at most. Does nothing on other
/// platforms.
void handOverClipboard();

} // namespace korvane
