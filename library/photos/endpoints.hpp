// The web services that pictures come from: scheme and host, without a slash at the end. Named in a property list of
// the asset bundle, so that others can stand in for them; one that is missing there is the service's public host.
#pragma once

#include "platform/ns_string.hpp"

namespace endpoints {

NSString* twitterPages();
NSString* twitterImages();
NSString* slackAvatars();
NSString* discordAvatars();
NSString* facebookGraph();

}  // namespace endpoints
