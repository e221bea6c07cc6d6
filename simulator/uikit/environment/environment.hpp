// The simulated environment of the process: device, system version, language and appearance. Main thread only.
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
// Sets the environment. Call this at startup, before the first window is created. Systems before 13.0 ignore the style,
// because they have only the light appearance.
void setEnvironment(const Environment& environment);
// Changes the system appearance and sends traitCollectionDidChange: to each view controller and view whose traits
// change. Does nothing on systems before 13.0.
void switchAppearance(UIUserInterfaceStyle style);
// Returns the layout direction of the language of a locale such as ar_EG. The default for an unknown language is left
// to right.
LayoutDirection directionOfLocale(const std::string& locale);

}  // namespace uikit
