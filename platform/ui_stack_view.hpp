// UIStackView: arranges its subviews in a row or a column.
#pragma once

#include "platform/ui_view.hpp"

enum class UIStackViewAlignment : NSInteger { Fill = 0 };
enum class UIStackViewDistribution : NSInteger { Fill = 0, FillEqually = 1 };

class UIStackView : public objc::Interface<"UIStackView", UIView> {
 public:
  void setAxis(UILayoutConstraintAxis axis) { objc::send<void, "setAxis:">(this, axis); }
  void setAlignment(UIStackViewAlignment alignment) { objc::send<void, "setAlignment:">(this, alignment); }
  void setDistribution(UIStackViewDistribution distribution) {
    objc::send<void, "setDistribution:">(this, distribution);
  }
  void setSpacing(CGFloat spacing) { objc::send<void, "setSpacing:">(this, spacing); }
  void addArrangedSubview(UIView* view) { objc::send<void, "addArrangedSubview:">(this, view); }
};
