// The state of a UIControl: its target-action pairs and the touch that it tracks. Main thread only.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ui_control.hpp"

namespace uikit {

// Values of the platform that platform/ui_control.hpp does not define.
inline constexpr auto touchDown = static_cast<UIControlEvents>(1 << 0);
inline constexpr auto touchDragInside = static_cast<UIControlEvents>(1 << 2);
inline constexpr auto touchDragOutside = static_cast<UIControlEvents>(1 << 3);
inline constexpr auto touchDragEnter = static_cast<UIControlEvents>(1 << 4);
inline constexpr auto touchDragExit = static_cast<UIControlEvents>(1 << 5);
inline constexpr auto touchUpOutside = static_cast<UIControlEvents>(1 << 7);
inline constexpr auto touchCancel = static_cast<UIControlEvents>(1 << 8);
inline constexpr auto valueChanged = static_cast<UIControlEvents>(1 << 12);
inline constexpr auto editingChanged = static_cast<UIControlEvents>(1 << 17);

inline constexpr auto highlightedState = static_cast<UIControlState>(1 << 0);
inline constexpr auto disabledState = static_cast<UIControlState>(1 << 1);
inline constexpr auto selectedState = static_cast<UIControlState>(1 << 2);

inline bool contains(UIControlEvents mask, UIControlEvents events) {
  return (static_cast<NSUInteger>(mask) & static_cast<NSUInteger>(events)) != 0;
}
inline bool contains(UIControlState mask, UIControlState state) {
  return (static_cast<NSUInteger>(mask) & static_cast<NSUInteger>(state)) != 0;
}

// Sends the actions for these events to those targets that still exist.
inline void sendActions(UIControl* control, UIControlEvents events) {
  objc::send<void, "sendActionsForControlEvents:">(control, events);
}
// Returns whether an action for one of these events has a target that still exists, or is sent along the responder
// chain.
bool hasActions(const UIControl* control, UIControlEvents events);

struct ControlAction {
  // The receiver of an action. With ResponderChain, it is the first object in the responder chain that responds to the
  // action.
  enum class Receiver { Target, ResponderChain };

  Receiver receiver = Receiver::Target;
  objc::Weak<NSObject> target;
  SEL action = nullptr;
  UIControlEvents events{};
};

void defineControl();

void defineButton();

}  // namespace uikit

struct ControlState {
  std::vector<uikit::ControlAction> actions;
  UIControlContentVerticalAlignment verticalAlignment = UIControlContentVerticalAlignment::Center;
  bool enabled = true;
  bool selected = false;
  bool highlighted = false;
  bool tracking = false;
  bool touchInside = false;
};
template <>
struct objc::StateOf<UIControl> {
  using Type = ControlState;
};

namespace uikit {

// The methods of UIControl that track touches.
std::span<const objc::MethodEntry> controlTouchMethods();

}  // namespace uikit
