// One key of the on-screen keyboard.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_control.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/uikit/keyboard/keyboard_layout.hpp"

class UIKBKeyView : public objc::Interface<"UIKBKeyView", UIControl> {};

struct KeyViewState {
  uikit::Key key;
  uikit::Shift shift = uikit::Shift::Off;
  UIUserInterfaceStyle style = UIUserInterfaceStyle::Light;
  // Of a return key that would send.
  bool isProminent = false;
};
template <>
struct objc::StateOf<UIKBKeyView> {
  using Type = KeyViewState;
};

namespace uikit {

objc::Ref<UIKBKeyView> makeKeyView(KeyViewState look);

void defineKeyboardKey();

}  // namespace uikit
