#include "simulator/plugins/web_page/message_limit.hpp"

#include "simulator/plugins/web_page/page_messages.hpp"

namespace web_page {

namespace {

constexpr guint8 finalFrame = 0x80;
constexpr guint8 opcodeMask = 0x0F;
constexpr guint8 firstControlOpcode = 8;

// libsoup passes each received frame to the extensions of a connection. This extension has no part in the handshake.
struct MessageLimit {
  SoupWebsocketExtension base;
  gsize size;  // of the unfinished message
};
struct MessageLimitClass {
  SoupWebsocketExtensionClass base;
};
G_DEFINE_TYPE(MessageLimit, message_limit, SOUP_TYPE_WEBSOCKET_EXTENSION)

GBytes* processFrame(SoupWebsocketExtension* self, guint8* header, GBytes* payload, GError** error) {
  auto* const limit = reinterpret_cast<MessageLimit*>(self);
  if ((*header & opcodeMask) >= firstControlOpcode) return payload;
  limit->size += g_bytes_get_size(payload);
  if (limit->size > maxStoredBytes) {
    g_bytes_unref(payload);
    g_set_error_literal(error, SOUP_WEBSOCKET_ERROR, SOUP_WEBSOCKET_CLOSE_TOO_BIG, "the message is too large");
    return nullptr;
  }
  if ((*header & finalFrame) != 0) limit->size = 0;
  return payload;
}

void message_limit_init(MessageLimit* self) { self->size = 0; }

void message_limit_class_init(MessageLimitClass* type) { type->base.process_incoming_message = &processFrame; }

}  // namespace

GList* extensionsWithMessageLimit() { return g_list_prepend(nullptr, g_object_new(message_limit_get_type(), nullptr)); }

}  // namespace web_page
