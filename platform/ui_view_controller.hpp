// UIViewController: owns a view and manages its contents.
#pragma once

#include "platform/ui_trait_collection.hpp"
#include "platform/ui_view.hpp"

class UIViewController : public objc::Interface<"UIViewController", UIResponder> {
 public:
  // The view, which is loaded at the first call.
  UIView* view() const { return objc::send<UIView*, "view">(this); }
  UITraitCollection* traitCollection() const { return objc::send<UITraitCollection*, "traitCollection">(this); }
  // Requires system version 13.0.
  void setOverrideUserInterfaceStyle(UIUserInterfaceStyle style) {
    objc::send<void, "setOverrideUserInterfaceStyle:">(this, style);
  }
};
