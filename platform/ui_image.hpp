// UIImage: an immutable image and its scale.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_data.hpp"

class UIImage : public objc::Interface<"UIImage", NSObject> {
 public:
  // The icon of the application in one of the platform's numbered formats; nil if there is none.
  static UIImage* applicationIcon(NSString* bundleIdentifier, int format) {
    return objc::sendIfAvailable<UIImage*, "_applicationIconImageForBundleIdentifier:format:">(
        classObject(), bundleIdentifier, format);
  }
  // Returns nil if there is no image file at the path or the path is nil. On a screen with a scale of 2, "name@2x.png"
  // takes precedence over "name.png".
  static UIImage* imageWithContentsOfFile(NSString* path) {
    return objc::send<UIImage*, "imageWithContentsOfFile:">(classObject(), path);
  }
  // Returns a null reference if the data is not an image. The data can be untrusted.
  static objc::Ref<UIImage> withData(NSData* data) {
    return objc::adopt(objc::send<UIImage*, "initWithData:">(objc::allocate<UIImage>(), data));
  }
  // The size in points.
  CGSize size() const { return objc::send<CGSize, "size">(this); }
};

// Encodes the image as a JPEG file. Returns nil for nil. The quality is from 0 to 1; greater values count as 1.
extern "C" NSData* UIImageJPEGRepresentation(UIImage* image, CGFloat quality);
