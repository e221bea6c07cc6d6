// UIViewController: owns a view and manages its contents.
#pragma once

#include "platform/ui_trait_collection.hpp"
#include "platform/ui_view.hpp"

class UIViewController : public objc::Interface<"UIViewController", UIResponder> {
 public:
  // Loads the view at the first call.
  UIView* view() const { return objc::send<UIView*, "view">(this); }
  UITraitCollection* traitCollection() const { return objc::send<UITraitCollection*, "traitCollection">(this); }
  void setOverrideUserInterfaceStyle(UIUserInterfaceStyle style) {
    objc::send<void, "setOverrideUserInterfaceStyle:">(this, style);
  }
};
