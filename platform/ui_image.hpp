// UIImage: an immutable image and its scale.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_data.hpp"

class UIImage : public objc::Interface<"UIImage", NSObject> {
 public:
  // nil if the application has no icon of that format.
  static UIImage* applicationIcon(NSString* bundleIdentifier, int format) {
    return objc::send<UIImage*, "_applicationIconImageForBundleIdentifier:format:">(classObject(), bundleIdentifier,
                                                                                    format);
  }
  // nil if there is no image file at the path or the path is nil. On a screen with a scale of 2, "name@2x.png" takes
  // precedence over "name.png".
  static UIImage* imageWithContentsOfFile(NSString* path) {
    return objc::send<UIImage*, "imageWithContentsOfFile:">(classObject(), path);
  }
  // A null reference if the data is not an image. The data can be untrusted.
  static objc::Ref<UIImage> withData(NSData* data) {
    return objc::adopt(objc::send<UIImage*, "initWithData:">(objc::allocate<UIImage>(), data));
  }
  // In points.
  CGSize size() const { return objc::send<CGSize, "size">(this); }
};

// Encodes the image as a JPEG file; nil for nil. The quality is from 0 to 1; greater values count as 1.
extern "C" NSData* UIImageJPEGRepresentation(UIImage* image, CGFloat quality);
