// UITraitCollection: the surroundings a view is shown in.
#pragma once

#include "platform/ns_object.hpp"

enum class UIUserInterfaceStyle : NSInteger { Unspecified, Light, Dark };

class UITraitCollection : public objc::Interface<"UITraitCollection", NSObject> {
 public:
  UIUserInterfaceStyle userInterfaceStyle() const {
    return objc::send<UIUserInterfaceStyle, "userInterfaceStyle">(this);
  }
};
