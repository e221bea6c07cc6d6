#include "library/controller/color_mode.hpp"

#include "library/settings/settings.hpp"
#include "platform/ui_device.hpp"

namespace {

constexpr NSInteger followsSystem = 0;

UIUserInterfaceStyle systemStyle() { return UIScreen::mainScreen()->traitCollection()->userInterfaceStyle(); }

objc::Ref<BrimColors> colorsForStyle(UIUserInterfaceStyle style) {
  return BrimColors::withMode(style == UIUserInterfaceStyle::Dark ? darkMode : lightMode);
}

}  // namespace

// Before system version 13.0, there is no dark appearance.
objc::Ref<BrimColors> colorsFor(BannerController* controller) {
  const NSInteger mode = settings::interfaceMode;
  if (systemVersionIsBelow("13.0"_ns)) return BrimColors::withMode(mode != followsSystem ? mode : lightMode);
  if (mode == followsSystem) return colorsForStyle(systemStyle());
  const bool isDark = mode == darkMode || mode == blackMode;
  controller->setOverrideUserInterfaceStyle(isDark ? UIUserInterfaceStyle::Dark : UIUserInterfaceStyle::Light);
  return BrimColors::withMode(mode);
}

void traitCollectionDidChange(objc::Original<void(BannerController*, UITraitCollection*)> original,
                              BannerController* self, UITraitCollection* previous) {
  original(self, previous);
  if (self->brimView() == nullptr || systemVersionIsBelow("13.0"_ns) || settings::interfaceMode != followsSystem)
    return;
  const UIUserInterfaceStyle style = systemStyle();
  if (style != previous->userInterfaceStyle()) self->brimView()->updateColorMode(colorsForStyle(style));
}
