// UIViewController's state.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ui_view_controller.hpp"

struct ViewControllerState {
  ViewControllerState() = default;
  ~ViewControllerState();
  ViewControllerState(const ViewControllerState&) = delete;
  ViewControllerState& operator=(const ViewControllerState&) = delete;

  objc::Ref<UIView> view;              // made when first asked for
  UIViewController* parent = nullptr;  // borrowed: it holds this controller
  std::vector<objc::Ref<UIViewController>> children;
  objc::Ref<UIViewController> presented;
  UIViewController* presenting = nullptr;  // borrowed: it holds this controller
  UIUserInterfaceStyle overrideStyle = UIUserInterfaceStyle::Unspecified;
};
template <>
struct objc::StateOf<UIViewController> {
  using Type = ViewControllerState;
};
