// The distributed notifications that the home screen sends to the Messages app: their names and the keys of their
// userInfo. The names and the keys are part of the library's public interface; do not change them. Any thread.
#pragma once

#include "platform/ns_string.hpp"

namespace bridge {

// The name of the request to send a reply.
inline NSString* replyName() { return "com.lumetra.brim.receivedcontacts"_ns; }
// The name of the request to mark a conversation as read.
inline NSString* readName() { return "com.lumetra.brim.markAsRead"_ns; }
// The keys of userInfo. Their values are strings: a part of the chat's guid, the text of the reply, and the identifier
// of the banner.
inline NSString* identifierKey() { return "identifier"_ns; }
inline NSString* bodyKey() { return "body"_ns; }
inline NSString* brimIdentifierKey() { return "brimIdentifier"_ns; }

}  // namespace bridge
