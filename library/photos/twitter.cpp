// A Twitter notification about a tweet contains the web address of the photo. Any other notification contains only the
// name of the account. In this case, the account's public page contains the web address of the photo.
#include "library/photos/download.hpp"
#include "library/photos/endpoints.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"
#include "platform/dispatch.hpp"
#include "platform/ns_regular_expression.hpp"
#include "platform/ns_url_session.hpp"

namespace {

constexpr NSInteger statusOK = 200;

using Delivery = void(NSString* address);

NSRegularExpression* pictureAddressPattern() {
  NSString* pattern = "\\Q"_ns->stringByAppendingString(endpoints::twitterImages())
                          ->stringByAppendingString("\\E/profile_images/[^\"]+"_ns);
  return NSRegularExpression::withPattern(pattern, NSRegularExpressionOptions::CaseInsensitive);
}

// Returns the first address of a profile photo in the page, or nil if there is none. Any thread.
NSString* pictureAddressIn(NSData* page, NSRegularExpression* pattern) {
  const objc::Ref<NSString> text = NSString::decoded(page, NSStringEncoding::UTF8);
  if (text == nullptr) return nullptr;
  NSTextCheckingResult* match = pattern->firstMatchInString(text, {0, text->length()});
  return match == nullptr ? nullptr : text->substringWithRange(match->range());
}

bool isSuccess(NSURLResponse* response) {
  const auto* const answer = objc::as<NSHTTPURLResponse>(response);
  return answer != nullptr && answer->statusCode() == statusOK;
}

void resolve(BrimTwitterContactPhotoProvider*, NSString* address, PhotoReceiver* view) {
  downloadPicture(address, view);
}

void readPage(NSURL* page, BrimTwitterContactPhotoProvider* self, PhotoReceiver* view) {
  const objc::Ref<BrimTwitterContactPhotoProvider> provider = objc::retain(self);
  const objc::Weak<PhotoReceiver> target(view);
  // The page is searched on a background thread, where the view must not be used or released. Therefore, the address is
  // delivered on the main thread.
  const objc::BlockRef<Delivery> deliver = objc::block([provider, target](NSString* address) {
    const objc::Ref<PhotoReceiver> banner = target.lock();
    if (banner != nullptr) provider->resolve(address, banner);
  });
  const objc::Ref<NSRegularExpression> pattern = objc::retain(pictureAddressPattern());
  const auto search = [deliver, pattern](NSData* data, NSURLResponse* response, NSError* error) {
    if (error != nullptr || !isSuccess(response)) return;
    const objc::Ref<NSString> address = objc::retain(pictureAddressIn(data, pattern));
    if (address != nullptr) onMainQueue([deliver, address] { (*deliver.get())(address); });
  };
  NSURLSession::sharedSession()->dataTask(NSURLRequest::withURL(page), objc::block(search))->resume();
}

void contactPhoto(BrimTwitterContactPhotoProvider* self, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  NSDictionary* values = userInfoOf(request);
  if (values->objectForKey("tweet"_ns) != nullptr) {
    NSDictionary* author = dictionaryAt(dictionaryAt(values, "tweet"_ns), "author"_ns);
    self->resolve(textAt(author, "profile_image_url"_ns), view);
    return;
  }
  NSString* account = identifierAt(values, "D"_ns);
  if (account == nullptr) return;
  NSString* address = endpoints::twitterPages()->stringByAppendingString("/"_ns)->stringByAppendingString(account);
  if (NSURL* page = webAddress(address)) readPage(page, self, view);
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"contactPhotoForNotification:withHeader:withBody:forView:", &contactPhoto>(),
    objc::method<"resolveForUrl:forView:", &resolve>(),
};

}  // namespace

bool registerTwitterProvider() { return objc::tryToDefineClass<BrimTwitterContactPhotoProvider>(methods); }
