#include "library/view/brim_colors.hpp"

#include "objc/class_definition.hpp"
#include "objc/property_entry.hpp"
#include "platform/ui_device.hpp"

namespace {

struct BrimColorsState {
  NSInteger mode = 0;
  objc::Ref<UIColor> backgroundColor;
  objc::Ref<UIColor> grabberColor;
  objc::Ref<UIColor> replyColor;
  objc::Ref<UIColor> textColor;
  objc::Ref<UIColor> buttonColor;
  objc::Ref<UIColor> deleteColor;
  bool useCustomColors = false;
};

}  // namespace

template <>
struct objc::StateOf<BrimColors> {
  using Type = BrimColorsState;
};

namespace {

// The components of a color, from 0 to 1.
struct Components {
  CGFloat red, green, blue, alpha;
};

// A color of the palette, with its components in each mode.
struct PaletteEntry {
  Components dark, light, black;

  constexpr const Components& forMode(NSInteger mode) const {
    if (mode == darkMode) return dark;
    return mode == lightMode ? light : black;
  }
};

constexpr PaletteEntry background = {{0, 0, 0, 0.3}, {1, 1, 1, 0.3}, {0, 0, 0, 1}};
// Before system version 13.0, the dark blur is so bright that white text on it is hard to read. Therefore, the
// background is more opaque.
constexpr PaletteEntry backgroundBefore13 = {{0, 0, 0, 0.8}, {1, 1, 1, 0.3}, {0, 0, 0, 1}};
constexpr PaletteEntry grabber = {{1, 1, 1, 0.1}, {0.2, 0.2, 0.2, 0.5}, {0.3, 0.3, 0.3, 1}};
constexpr PaletteEntry control = {{1, 1, 1, 0.1}, {0, 0, 0, 0.1}, {0.11, 0.11, 0.12, 1}};
constexpr PaletteEntry text = {{1, 1, 1, 1}, {0, 0, 0, 1}, {0.7, 0.7, 0.7, 1}};
constexpr Components destructiveOnLight = {0.75, 0, 0, 1};

UIColor* colorOf(const Components& components) {
  return UIColor::withRed(components.red, components.green, components.blue, components.alpha);
}

BrimColors* initWithMode(BrimColors* self, NSInteger mode) {
  auto* made = objc::sendSuper<"BrimColors", BrimColors*, "init">(self);
  if (made != nullptr) objc::state(made).mode = mode;
  return made;
}

// Copies only the mode. A copy has no custom colors.
BrimColors* copyWithZone(BrimColors* self, void*) { return BrimColors::withMode(objc::state(self).mode).leak(); }

// Returns the custom color, or nil if it is not set or useCustomColors is false.
UIColor* customColor(BrimColors* self, objc::Ref<UIColor> BrimColorsState::*member) {
  const BrimColorsState& colors = objc::state(self);
  return colors.useCustomColors ? (colors.*member).get() : nullptr;
}

template <objc::Ref<UIColor> BrimColorsState::*member>
UIColor* colorOrPalette(BrimColors* self, const PaletteEntry& entry) {
  if (UIColor* color = customColor(self, member)) return color;
  return colorOf(entry.forMode(objc::state(self).mode));
}

UIColor* containerBackgroundColor(BrimColors* self) {
  return colorOrPalette<&BrimColorsState::backgroundColor>(
      self, systemVersionIsBelow("13.0"_ns) ? backgroundBefore13 : background);
}
UIColor* containerGrabberColor(BrimColors* self) {
  return colorOrPalette<&BrimColorsState::grabberColor>(self, grabber);
}
UIColor* containerReplyColor(BrimColors* self) { return colorOrPalette<&BrimColorsState::replyColor>(self, control); }
UIColor* containerTextColor(BrimColors* self) { return colorOrPalette<&BrimColorsState::textColor>(self, text); }
UIColor* containerButtonColor(BrimColors* self) { return colorOrPalette<&BrimColorsState::buttonColor>(self, control); }
UIColor* containerDeleteColor(BrimColors* self) {
  if (UIColor* color = customColor(self, &BrimColorsState::deleteColor)) return color;
  return objc::state(self).mode == lightMode ? colorOf(destructiveOnLight) : UIColor::redColor();
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"initWithMode:", &initWithMode>(),
    objc::method<"copyWithZone:", &copyWithZone>(),
    objc::method<"containerBackgroundColor", &containerBackgroundColor>(),
    objc::method<"containerGrabberColor", &containerGrabberColor>(),
    objc::method<"containerReplyColor", &containerReplyColor>(),
    objc::method<"containerTextColor", &containerTextColor>(),
    objc::method<"containerButtonColor", &containerButtonColor>(),
    objc::method<"containerDeleteColor", &containerDeleteColor>(),
};

constexpr objc::PropertyEntry properties[] = {
    objc::stored<"mode", BrimColors, &BrimColorsState::mode>(),
    objc::stored<"backgroundColor", BrimColors, &BrimColorsState::backgroundColor>(),
    objc::stored<"grabberColor", BrimColors, &BrimColorsState::grabberColor>(),
    objc::stored<"replyColor", BrimColors, &BrimColorsState::replyColor>(),
    objc::stored<"textColor", BrimColors, &BrimColorsState::textColor>(),
    objc::stored<"buttonColor", BrimColors, &BrimColorsState::buttonColor>(),
    objc::stored<"deleteColor", BrimColors, &BrimColorsState::deleteColor>(),
    objc::stored<"useCustomColors", BrimColors, &BrimColorsState::useCustomColors>(),
};

}  // namespace

bool registerBrimColors() {
  if (!objc::tryToDefineClassWithState<BrimColors>(methods)) return false;
  objc::addProperties(BrimColors::classObject(), properties);
  return true;
}
