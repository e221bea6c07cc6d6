// PhotoReceiver: the view that shows a sender's photo. Main thread.
#pragma once

#include "objc/ownership.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_image.hpp"
#include "platform/ui_view.hpp"

class PhotoReceiver : public objc::Interface<"UIView", UIView> {
 public:
  // Shows the photo; nil clears the picture.
  void updateImage(UIImage* photo) { objc::send<void, "updateImage:">(this, photo); }
};

// Calls updateImage in a later run-loop iteration, if the view still exists at that time. Call this function on the
// main thread only, because it can release the last reference to the view, and views must be deallocated on the main
// thread.
inline void updateImageLater(const objc::Weak<PhotoReceiver>& view, const objc::Ref<UIImage>& photo) {
  onMainQueue([view, photo] { view.lock()->updateImage(photo); });
}
