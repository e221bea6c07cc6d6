// PhotoReceiver: the view that shows a sender's photo. Main thread.
#pragma once

#include "objc/ownership.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_image.hpp"
#include "platform/ui_view.hpp"

class PhotoReceiver : public objc::Interface<"UIView", UIView> {
 public:
  // nil clears the photo.
  void updateImage(UIImage* photo) { objc::send<void, "updateImage:">(this, photo); }
};

// Calls updateImage in a later run-loop iteration, if the view still exists then. Call on the main thread only: the
// view can be deallocated when the last reference to it is released, and views are deallocated on the main thread.
inline void updateImageLater(const objc::Weak<PhotoReceiver>& view, const objc::Ref<UIImage>& photo) {
  onMainQueue([view, photo] { view.lock()->updateImage(photo); });
}
