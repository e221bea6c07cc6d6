// The button in the bar of a page that returns to the previous level: a chevron and the title of that level. Main
// thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_control.hpp"
#include "platform/ui_label.hpp"

struct BackButtonState {
  objc::Ref<UILabel> title;
};
class PSBackButton : public objc::Interface<"PSBackButton", UIControl> {};
template <>
struct objc::StateOf<PSBackButton> {
  using Type = BackButtonState;
};

namespace settings_application {

objc::Ref<PSBackButton> makeBackButton(NSString* title);
CGFloat widthOfBackButton(const PSBackButton* button);

void defineBackButton();

}  // namespace settings_application
