#include "library/photos/photo_receiver.hpp"

#include "platform/dispatch.hpp"

void updateImageLater(const objc::Weak<PhotoReceiver>& view, const objc::Ref<UIImage>& photo) {
  onMainQueue([view, photo] { view.lock()->updateImage(photo); });
}
