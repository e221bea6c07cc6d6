// The addresses of the web services from which photos are loaded. Each address is a scheme and a host, without a
// trailing slash. Each call reads the addresses from the file endpoints.plist in the asset bundle. If an address is
// missing or invalid in this file, the function returns the address of the service's public host. Main thread.
#pragma once

#include "platform/ns_string.hpp"

namespace endpoints {

NSString* twitterPages();
NSString* twitterImages();
NSString* slackAvatars();
NSString* discordAvatars();
NSString* facebookGraph();

}  // namespace endpoints
