#include "library/photos/delivery.hpp"

#include "platform/dispatch.hpp"

void showLater(const objc::Weak<BrimContainer>& view, const objc::Ref<UIImage>& picture) {
  onMainQueue([view, picture] { view.lock()->updateImage(picture); });
}
