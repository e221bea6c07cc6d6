// The keyboard focus: the element that the user operates with the desktop's keyboard. Main thread.
#pragma once

#include <cstdint>
#include <vector>

#include "simulator/uikit/accessibility/accessible_element.hpp"

namespace phone_display {

using Elements = std::vector<uikit::AccessibleElement>;

enum class FocusMove { Next, Previous, Up, Down, Left, Right };

class FocusRing {
 public:
  // Moves the focus to another element that has actions. Next and Previous follow the order of the list and wrap around
  // at its ends. The other moves find the nearest element in that direction; if there is none, the focus does not move.
  // Without a focus, each move selects the first element, except Previous, which selects the last one. Keys of the
  // on-screen keyboard do not receive the focus.
  void move(const Elements& elements, FocusMove move);
  void focus(std::uint64_t element) { element_ = element; }
  void clear() { element_ = 0; }
  // Updates the focus after the elements have changed. The focus moves to a text field that has become the first
  // responder, and is removed if its element is no longer on the screen.
  void follow(const Elements& elements);

  // The element with the focus, or null if there is none. The element is borrowed from the list.
  const uikit::AccessibleElement* find(const Elements& elements) const;
  // The identifier of the element with the focus, or 0.
  std::uint64_t element() const { return element_; }

 private:
  std::uint64_t element_ = 0;
  std::uint64_t firstResponder_ = 0;
};

}  // namespace phone_display
