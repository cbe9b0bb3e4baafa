#pragma once

struct xcb_connection_t;

namespace quenara {

/// The X server that shows the program's windows, as Qt is connected to it. Null on other
/// platforms.
[[nodiscard]] xcb_connection_t *xServer();

/// Has the X server neither blank its screens nor turn them off by itself, or lets it again. Each
/// call with true takes one with false; the server forgets them all when the program ends, however
/// it does. Nothing happens on other platforms, nor without the server's screen saver extension.
void keepXScreensOn(bool on);

} // namespace quenara
