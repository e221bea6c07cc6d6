// UIImage: a picture and its scale.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_data.hpp"

class UIImage : public objc::Interface<"UIImage", NSObject> {
 public:
  // nil where the application has no icon of that format.
  static UIImage* applicationIcon(NSString* bundleIdentifier, int format) {
    return objc::send<UIImage*, "_applicationIconImageForBundleIdentifier:format:">(classObject(), bundleIdentifier,
                                                                                    format);
  }
  // nil where there is no picture at the path, or no path. "name@2x.png" is preferred on screens of that scale.
  static UIImage* imageWithContentsOfFile(NSString* path) {
    return objc::send<UIImage*, "imageWithContentsOfFile:">(classObject(), path);
  }
  // nil where the data is no picture.
  static objc::Ref<UIImage> withData(NSData* data) {
    return objc::adopt(objc::send<UIImage*, "initWithData:">(objc::allocate<UIImage>(), data));
  }
  CGSize size() const { return objc::send<CGSize, "size">(this); }
};

// The picture as a JPEG file's bytes; nil for nil. Qualities above 1 count as 1.
extern "C" NSData* UIImageJPEGRepresentation(UIImage* image, CGFloat quality);
