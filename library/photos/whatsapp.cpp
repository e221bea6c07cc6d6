// WhatsApp stores the pictures of persons and groups as files in the app group containers of its two applications.
#include <initializer_list>

#include "library/photos/folder_finder.hpp"
#include "library/photos/provider.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_file_manager.hpp"

namespace {

NSString* pieceAt(NSArray* pieces, NSUInteger index) { return static_cast<NSString*>(pieces->objectAtIndex(index)); }

// A person's file is named KEY-SUFFIX. A group's file is named NUMBER-NUMBER-SUFFIX, and its key is NUMBER-NUMBER.
bool isPictureOf(NSString* key, NSString* file) {
  NSArray* pieces = file->componentsSeparatedByString("-"_ns);
  const NSUInteger count = pieces->count();
  if (count != 2 && count != 3) return false;
  NSString* owner = pieceAt(pieces, 0);
  if (count == 3) owner = owner->stringByAppendingString("-"_ns)->stringByAppendingString(pieceAt(pieces, 1));
  return owner->isEqualToString(key);
}

// Shows every matching picture in turn, so the last one remains. After a match, every further file in the folder, even
// one that does not match, causes the current picture to be shown again.
void showPictureIn(NSString* folder, NSString* key, PhotoReceiver* view) {
  NSDirectoryEnumerator* files = NSFileManager::defaultManager()->enumerator(folder);
  bool isFound = false;
  objc::Ref<UIImage> picture;
  for (;;) {
    // Without a pool, all pictures of a large folder would be in memory at the same time.
    const objc::AutoreleasePool pool;
    NSString* file = files->nextObject();
    if (file == nullptr) return;
    if (isPictureOf(key, file)) {
      NSString* path = folder->stringByAppendingString("/"_ns)->stringByAppendingString(file);
      picture = objc::retain(UIImage::imageWithContentsOfFile(path));
      isFound = true;
    }
    if (isFound) view->updateImage(picture);
  }
}

void contactPhoto(BrimWhatsAppContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  NSString* thread = objc::as<NSString>(request->threadIdentifier());
  if (thread == nullptr) return;
  NSString* key = pieceAt(thread->componentsSeparatedByString("@"_ns), 0);
  for (NSString* group : {"group.net.whatsapp.WhatsApp.shared"_ns, "group.net.whatsapp.WhatsAppSMB.shared"_ns})
    if (NSString* container = FolderFinder::findSharedFolder(group))
      showPictureIn(container->stringByAppendingString("/Media/Profile"_ns), key, view);
}

}  // namespace

bool registerWhatsAppProvider() { return defineProvider<BrimWhatsAppContactPhotoProvider, &contactPhoto>(); }
