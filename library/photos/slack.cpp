// Slack's database has the avatars of a workspace's members. The notification's text contains the sender's name.
#include "library/photos/download.hpp"
#include "library/photos/folder_finder.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/slack_database.hpp"
#include "library/photos/user_info.hpp"

namespace {

// A direct message reads "NAME: text", a message in a channel "#CHANNEL NAME: text". nil if there is no name.
NSString* senderName(NSString* body, NSString* thread) {
  if (thread->hasPrefix("D"_ns))
    return static_cast<NSString*>(body->componentsSeparatedByString(":"_ns)->firstObject());
  if (!thread->hasPrefix("C"_ns)) return nullptr;
  NSArray* words = body->componentsSeparatedByString(" "_ns);
  return words->count() < 2 ? nullptr : static_cast<NSString*>(words->objectAtIndex(1));
}

NSString* databasePath(NSString* workspace) {
  NSString* container = FolderFinder::findDataFolder("com.tinyspeck.chatlyio"_ns);
  if (container == nullptr) return nullptr;
  return container->stringByAppendingString("/Library/Application Support/Slack/"_ns)
      ->stringByAppendingString(workspace)
      ->stringByAppendingString("/Database/main_db"_ns);
}

void contactPhoto(BrimSlackContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  NSDictionary* values = userInfoOf(request);
  NSDictionary* payload = dictionaryAt(values, "aps"_ns);
  NSString* body = textAt(dictionaryAt(payload, "alert"_ns), "body"_ns);
  NSString* name = senderName(body, textAt(payload, "thread-id"_ns));
  NSString* workspace = identifierAt(values, "team_id"_ns);
  if (name == nullptr || workspace == nullptr) return;
  name = name->stringByReplacing(":"_ns, ""_ns)->stringByReplacing("@"_ns, ""_ns);
  downloadPicture(slackAvatarAddress(databasePath(workspace), name), view, Undecodable::ClearsPicture);
}

}  // namespace

bool registerSlackProvider() { return defineProvider<BrimSlackContactPhotoProvider, &contactPhoto>(); }
