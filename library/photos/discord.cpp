// A Discord notification contains the author's identifier and the name of the author's avatar. The web address of the
// avatar is built from both.
#include "library/photos/download.hpp"
#include "library/photos/endpoints.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"

namespace {

void contactPhoto(BrimDiscordContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  NSDictionary* author = dictionaryAt(dictionaryAt(userInfoOf(request), "message"_ns), "author"_ns);
  NSString* avatar = identifierAt(author, "avatar"_ns);
  NSString* identifier = identifierAt(author, "id"_ns);
  if (avatar == nullptr || identifier == nullptr) return;
  downloadPicture(endpoints::discordAvatars()
                      ->stringByAppendingString("/avatars/"_ns)
                      ->stringByAppendingString(identifier)
                      ->stringByAppendingString("/"_ns)
                      ->stringByAppendingString(avatar)
                      ->stringByAppendingString(".png?size=80"_ns),
                  view);
}

}  // namespace

bool registerDiscordProvider() { return defineProvider<BrimDiscordContactPhotoProvider, &contactPhoto>(); }
