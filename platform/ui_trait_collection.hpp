// UITraitCollection: the environment in which a view is shown, such as the light or the dark appearance.
#pragma once

#include "platform/ns_object.hpp"

enum class UIUserInterfaceStyle : NSInteger { Unspecified, Light, Dark };

class UITraitCollection : public objc::Interface<"UITraitCollection", NSObject> {
 public:
  UIUserInterfaceStyle userInterfaceStyle() const {
    return objc::send<UIUserInterfaceStyle, "userInterfaceStyle">(this);
  }
};
