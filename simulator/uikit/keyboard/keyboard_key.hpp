// The view of one key of the on-screen keyboard. Main thread only.
#pragma once

#include <span>

#include "objc/class_definition.hpp"
#include "platform/ui_control.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/uikit/keyboard/keyboard_layout.hpp"

class UIKBKeyView : public objc::Interface<"UIKBKeyView", UIControl> {};

struct KeyViewState {
  uikit::Key key;
  uikit::Shift shift = uikit::Shift::Off;
  UIUserInterfaceStyle style = UIUserInterfaceStyle::Light;
  // Whether the key has the prominent color, which a return key has if it sends the text.
  bool isProminent = false;
  double characterSize = 0;  // the font size of a character key
};
template <>
struct objc::StateOf<UIKBKeyView> {
  using Type = KeyViewState;
};

namespace uikit {

// Returns a font size at which the characters of all keys fit into their keys.
double characterSizeFor(std::span<const Key> keys);

// Creates the view. Its frame is the frame of the key.
objc::Ref<UIKBKeyView> makeKeyView(KeyViewState state);

void defineKeyboardKey();

}  // namespace uikit
