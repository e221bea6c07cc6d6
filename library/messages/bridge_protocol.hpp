// The distributed notifications from the home screen to the Messages app: their names and the keys of their values. The
// names are fixed by the interface. Any thread.
#pragma once

#include "platform/ns_string.hpp"

namespace bridge {

// Sends a reply.
inline NSString* replyName() { return "com.lumetra.brim.receivedcontacts"_ns; }
// Marks a conversation as read.
inline NSString* readName() { return "com.lumetra.brim.markAsRead"_ns; }
// Keys: a part of the chat's guid, the reply's text, and the identifier of the banner.
inline NSString* identifierKey() { return "identifier"_ns; }
inline NSString* bodyKey() { return "body"_ns; }
inline NSString* brimIdentifierKey() { return "brimIdentifier"_ns; }

}  // namespace bridge
