// Telegram stores avatars as files in the container of its app group, where the system's search can read them.
#include "library/photos/folder_finder.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"

namespace {

void contactPhoto(BrimTelegramContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  NSString* sender = identifierAt(userInfoOf(request), "from_id"_ns);
  if (sender == nullptr) return;
  NSString* container = FolderFinder::findPrivateSharedFolder("group.ph.telegra.Telegraph"_ns);
  if (container == nullptr) return;
  NSString* path = container->stringByAppendingString("/telegram-data/accounts-metadata/spotlight/p:"_ns)
                       ->stringByAppendingString(sender)
                       ->stringByAppendingString("/avatar.png"_ns);
  // The file is read twice. The first read only checks that the file contains a picture.
  if (UIImage::imageWithContentsOfFile(path) != nullptr) view->updateImage(UIImage::imageWithContentsOfFile(path));
}

}  // namespace

bool registerTelegramProvider() { return defineProvider<BrimTelegramContactPhotoProvider, &contactPhoto>(); }
