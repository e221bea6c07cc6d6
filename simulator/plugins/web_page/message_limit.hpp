// Limits the size of a WebSocket message that the other side sends in several frames. The limit of libsoup only applies
// to a single frame, and libsoup stores the frames of an unfinished message. Main thread.
#pragma once

#include <libsoup/soup.h>

namespace web_page {

// Returns a list for soup_websocket_connection_new(), which owns it afterwards. The connection closes with
// SOUP_WEBSOCKET_CLOSE_TOO_BIG when a message exceeds maxStoredBytes.
GList* extensionsWithMessageLimit();

}  // namespace web_page
