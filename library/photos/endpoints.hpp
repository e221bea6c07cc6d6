// The web services that photos come from. Each address is a scheme and a host, without a trailing slash.
// endpoints.plist in the asset bundle can replace an address. An address that is missing or invalid there is the
// service's public host. Main thread.
#pragma once

#include "platform/ns_string.hpp"

namespace endpoints {

NSString* twitterPages();
NSString* twitterImages();
NSString* slackAvatars();
NSString* discordAvatars();
NSString* facebookGraph();

}  // namespace endpoints
