// Messenger sends the sender's number, at one of two places.
#include "library/photos/download.hpp"
#include "library/photos/endpoints.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"

namespace {

void contactPhoto(BrimMessengerContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  BrimContainer* view) {
  NSDictionary* values = userInfoOf(request);
  // Where the inner dictionary is there, it alone counts.
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

void registerMessengerProvider() { defineProvider<BrimMessengerContactPhotoProvider, &contactPhoto>(); }
