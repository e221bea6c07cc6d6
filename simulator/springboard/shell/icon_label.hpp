// The label below an application icon. It is white and has a shadow, because the wallpaper can be bright. Main thread.
#pragma once

#include <memory>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/drawing/image.hpp"

struct IconLabelState {
  std::string name;
  std::shared_ptr<const drawing::Image> renderedText;  // rendered when the label is drawn for the first time
};

class SBIconLabelView : public objc::Interface<"SBIconLabelView", UIView> {};
template <>
struct objc::StateOf<SBIconLabelView> {
  using Type = IconLabelState;
};

namespace springboard {

objc::Ref<SBIconLabelView> makeIconLabel(const std::string& name, const CGRect& frame);

void defineIconLabel();

}  // namespace springboard
