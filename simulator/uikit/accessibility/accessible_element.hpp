// Values that describe the elements of the screen to assistive technologies, independently of any desktop's
// accessibility interface. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/core_graphics.hpp"

namespace uikit {

// The elements with the roles Group, List, Notification and Keyboard contain other elements.
enum class AccessibleRole : std::int64_t {
  None,
  Button,
  Icon,
  Text,
  TextField,
  Key,
  ListItem,
  Group,
  List,
  Notification,
  Keyboard,
};

// A gesture that begins at the touch point of the element.
struct AccessibleAction {
  std::string name;
  CGPoint drag = {};  // the movement of the finger; zero for a tap

  friend bool operator==(const AccessibleAction&, const AccessibleAction&) = default;
};

// Coordinates are points of the screen.
struct AccessibleElement {
  static constexpr std::size_t noParent = static_cast<std::size_t>(-1);

  // Identifies the view. The number is unique in the process and is never reused.
  std::uint64_t identifier = 0;
  // The index of the containing element in the list.
  std::size_t parent = noParent;
  AccessibleRole role = AccessibleRole::None;
  std::string label;
  std::string value;      // the text of a text field
  std::size_t caret = 0;  // the position in the text of a text field, in characters
  CGRect frame = {};      // the part of the element's frame that is on the screen
  CGPoint touchPoint = {};
  bool isEnabled = true;
  bool isFirstResponder = false;
  std::vector<AccessibleAction> actions;

  friend bool operator==(const AccessibleElement&, const AccessibleElement&) = default;
};

}  // namespace uikit
