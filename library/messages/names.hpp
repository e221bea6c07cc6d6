// What the two ends of the Messages bridge agree on.
#pragma once

#include "platform/ns_string.hpp"

namespace bridge {

inline NSString* replyName() { return "com.lumetra.brim.receivedcontacts"_ns; }
inline NSString* readName() { return "com.lumetra.brim.markAsRead"_ns; }
inline NSString* identifierKey() { return "identifier"_ns; }
inline NSString* bodyKey() { return "body"_ns; }
inline NSString* brimIdentifierKey() { return "brimIdentifier"_ns; }

// The values of "messagesAutoReadMode" that mark a conversation read; any other leaves it.
inline constexpr NSInteger readWhenExpanded = 1;
inline constexpr NSInteger readAfterReply = 2;

}  // namespace bridge
