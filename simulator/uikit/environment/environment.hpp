// What the process runs in: device, system version, language and appearance. Main thread.
#pragma once

#include <string>

#include "platform/ui_trait_collection.hpp"
#include "simulator/base/device_profiles.hpp"

namespace uikit {

enum class LayoutDirection { LeftToRight, RightToLeft };

struct Environment {
  base::DeviceProfile device = base::defaultDeviceProfile();
  std::string systemVersion = "13.5";
  std::string locale = "en_US";
  UIUserInterfaceStyle style = UIUserInterfaceStyle::Light;
  LayoutDirection direction = LayoutDirection::LeftToRight;
};

const Environment& environment();
// At start, before the first window. A system below 13.0 is light whatever it is told.
void setEnvironment(const Environment& environment);
// Changes the system appearance and tells every view controller and view whose traits change by it; nothing below 13.0.
void switchAppearance(UIUserInterfaceStyle style);
// The direction that the language of such a locale (ar_EG) is written in.
LayoutDirection directionOfLocale(const std::string& locale);

}  // namespace uikit
