// A Messenger notification contains the sender's identifier, in one of two dictionaries.
#include "library/photos/download.hpp"
#include "library/photos/endpoints.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"

namespace {

void contactPhoto(BrimMessengerContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  NSDictionary* values = userInfoOf(request);
  // If there is an inner dictionary, the identifier is in the inner dictionary.
  if (values->objectForKey("rp"_ns) != nullptr) values = dictionaryAt(values, "rp"_ns);
  NSString* sender = identifierAt(dictionaryAt(values, "p"_ns), "a"_ns);
  if (sender == nullptr) return;
  downloadPicture(endpoints::facebookGraph()
                      ->stringByAppendingString("/"_ns)
                      ->stringByAppendingString(sender)
                      ->stringByAppendingString("/picture?type=square"_ns),
                  view);
}

}  // namespace

bool registerMessengerProvider() { return defineProvider<BrimMessengerContactPhotoProvider, &contactPhoto>(); }
