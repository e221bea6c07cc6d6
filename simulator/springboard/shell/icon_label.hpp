// The name below an application's icon: white, with a shadow that keeps it readable on bright wallpapers.
#pragma once

#include <memory>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/drawing/image.hpp"

struct IconLabelState {
  std::string name;
  std::shared_ptr<const drawing::Image> picture;  // made at the first drawing
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
