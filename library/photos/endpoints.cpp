#include "library/photos/endpoints.hpp"

#include "library/photos/download.hpp"
#include "library/photos/user_info.hpp"
#include "library/utilities/asset_bundle.hpp"
#include "library/utilities/file_reading.hpp"

namespace endpoints {

namespace {

NSString* endpoint(NSString* name, NSString* publicHost) {
  NSString* configured = textAt(readPropertyList(assetPath("endpoints.plist"_ns)), name);
  return webAddress(configured) == nullptr ? publicHost : configured;
}

}  // namespace

NSString* twitterPages() { return endpoint("twitterPages"_ns, "https://mobile.twitter.com"_ns); }
NSString* twitterImages() { return endpoint("twitterImages"_ns, "https://pbs.twimg.com"_ns); }
NSString* slackAvatars() { return endpoint("slackAvatars"_ns, "https://ca.slack-edge.com"_ns); }
NSString* discordAvatars() { return endpoint("discordAvatars"_ns, "https://cdn.discordapp.com"_ns); }
NSString* facebookGraph() { return endpoint("facebookGraph"_ns, "https://graph.facebook.com"_ns); }

}  // namespace endpoints
