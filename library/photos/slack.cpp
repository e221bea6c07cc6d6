// Slack's database contains the parts of the web address of each member's avatar. The text of a notification contains
// the sender's name, which identifies the member.
#include "library/photos/download.hpp"
#include "library/photos/folder_finder.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/slack_database.hpp"
#include "library/photos/user_info.hpp"

namespace {

// Returns the sender's name, or nil if there is none. The body of a direct message, whose thread begins with "D", is
// "NAME: text". The body of a message in a channel, whose thread begins with "C", is "#CHANNEL NAME: text".
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
  downloadPicture(slackAvatarAddress(databasePath(workspace), name), view, DecodingFailure::ClearsPicture);
}

}  // namespace

bool registerSlackProvider() { return defineProvider<BrimSlackContactPhotoProvider, &contactPhoto>(); }
