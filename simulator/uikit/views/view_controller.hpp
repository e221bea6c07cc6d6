// The state of a UIViewController. Main thread only.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ui_view_controller.hpp"

struct ViewControllerState {
  ViewControllerState() = default;
  ~ViewControllerState();
  ViewControllerState(const ViewControllerState&) = delete;
  ViewControllerState& operator=(const ViewControllerState&) = delete;

  objc::Ref<UIView> view;              // loaded at the first call of -view
  UIViewController* parent = nullptr;  // borrowed; the parent retains this controller
  std::vector<objc::Ref<UIViewController>> children;
  objc::Ref<UIViewController> presented;
  UIViewController* presenting = nullptr;  // borrowed; the presenting controller retains this controller
  UIUserInterfaceStyle overrideStyle = UIUserInterfaceStyle::Unspecified;
};
template <>
struct objc::StateOf<UIViewController> {
  using Type = ViewControllerState;
};
