// A banner of its own, without a notification or a controller.
#pragma once

#include <string>
#include <utility>

#include "library/view/brim_container.hpp"

namespace test {

inline objc::Ref<BrimContainer> container(NSString* header, NSString* subHeader, NSString* body) {
  auto made = BrimContainer::make(nullptr, header, subHeader, body);
  made->setColorSet(BrimColors::withMode(lightMode));
  made->setHeaderFontSize(15);
  made->setTextFontSize(13);
  made->setTinyBannerFontSize(15);
  made->setStatusbarFontSize(15);
  made->setAppSize(40);
  return made;
}

// A banner in a superview of a phone's width, laid out.
struct Shown {
  objc::Ref<UIView> superview = UIView::withFrame<UIView>({{0, 0}, {359, 100}});
  objc::Ref<BrimContainer> banner;

  explicit Shown(objc::Ref<BrimContainer> made) : banner(std::move(made)) {
    superview->addSubview(banner);
    superview->layoutIfNeeded();
  }
};

inline std::string text(UILabel* label) {
  NSString* const shown = label->text();
  return shown == nullptr ? "(nil)" : shown->UTF8String();
}

}  // namespace test
