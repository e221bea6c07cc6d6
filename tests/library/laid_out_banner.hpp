// Support for tests of a banner that has neither a notification nor a controller.
#pragma once

#include <string>
#include <utility>

#include "library/view/brim_container.hpp"

namespace test {

// Creates a banner in the light color mode. It has no superview. Each text can be nil.
inline objc::Ref<BrimContainer> makeBanner(NSString* header, NSString* subHeader, NSString* body) {
  auto banner = BrimContainer::make(nullptr, header, subHeader, body);
  banner->setColorSet(BrimColors::withMode(lightMode));
  banner->setHeaderFontSize(15);
  banner->setTextFontSize(13);
  banner->setTinyBannerFontSize(15);
  banner->setStatusbarFontSize(15);
  banner->setAppSize(40);
  return banner;
}

// Adds a banner to a superview that is as wide as a phone's notification view, and lays it out.
struct LaidOutBanner {
  objc::Ref<UIView> superview = UIView::withFrame<UIView>({{0, 0}, {359, 100}});
  objc::Ref<BrimContainer> banner;

  explicit LaidOutBanner(objc::Ref<BrimContainer> unattached) : banner(std::move(unattached)) {
    superview->addSubview(banner);
    superview->layoutIfNeeded();
  }
};

// The object in the banner's instance variable. nil if the variable is nil.
template <class Type>
Type* instanceVariable(const BrimContainer* banner, const char* name) {
  const Ivar variable = class_getInstanceVariable(BrimContainer::classObject(), name);
  return static_cast<Type*>(static_cast<void*>(object_getIvar(objc::detail::toId(banner), variable)));
}

// The text of the label; "(nil)" if the text is nil.
inline std::string text(UILabel* label) {
  NSString* const labelText = label->text();
  return labelText == nullptr ? "(nil)" : labelText->UTF8String();
}

}  // namespace test
