// UIImageView: a view that shows an image, or nothing if the image is nil.
#pragma once

#include "platform/ui_image.hpp"
#include "platform/ui_view.hpp"

class UIImageView : public objc::Interface<"UIImageView", UIView> {
 public:
  UIImage* image() const { return objc::send<UIImage*, "image">(this); }
  void setImage(UIImage* image) { objc::send<void, "setImage:">(this, image); }
};
