#include "library/photos/download.hpp"

#include "platform/ns_url_connection.hpp"

NSURL* webAddress(NSString* text) {
  if (text == nullptr) return nullptr;
  NSURL* address = NSURL::withString(text);
  NSString* scheme = address->scheme()->lowercaseString();
  if (scheme == nullptr || address->host()->length() == 0) return nullptr;
  return scheme->isEqualToString("https"_ns) || scheme->isEqualToString("http"_ns) ? address : nullptr;
}

void downloadPicture(NSString* address, PhotoReceiver* view, DecodingFailure failure) {
  NSURL* url = webAddress(address);
  if (url == nullptr) return;
  const objc::Weak<PhotoReceiver> target(view);
  const auto show = [target, failure](NSURLResponse*, NSData* data, NSError* error) {
    if (error != nullptr) return;
    const objc::Ref<UIImage> picture = UIImage::withData(data);
    if (picture != nullptr || failure == DecodingFailure::ClearsPicture) updateImageLater(target, picture);
  };
  NSURLConnection::sendAsynchronousRequest(NSURLRequest::withURL(url), NSOperationQueue::mainQueue(),
                                           objc::block(show));
}
