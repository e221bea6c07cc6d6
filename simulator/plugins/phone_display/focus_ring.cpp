#include "simulator/plugins/phone_display/focus_ring.hpp"

#include <algorithm>
#include <cmath>

namespace phone_display {

namespace {

using uikit::AccessibleElement;
using uikit::AccessibleRole;

bool isFocusable(const AccessibleElement& element) {
  return !element.actions.empty() && element.role != AccessibleRole::Key;
}

CGPoint middleOf(const CGRect& frame) {
  return {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
}

struct Direction {
  FocusMove move;
  double x;
  double y;
};

constexpr Direction directions[] = {
    {FocusMove::Up, 0, -1}, {FocusMove::Down, 0, 1}, {FocusMove::Left, -1, 0}, {FocusMove::Right, 1, 0}};

// Returns the nearest element in the direction, or the current one. Elements beside the line of movement count as
// farther away than elements on the line.
std::size_t nearest(const std::vector<const AccessibleElement*>& candidates, std::size_t current,
                    const Direction& direction) {
  constexpr double minDistance = 1;
  constexpr double sidewaysWeight = 2;
  const CGPoint from = middleOf(candidates[current]->frame);
  std::size_t found = current;
  double shortest = INFINITY;
  for (std::size_t index = 0; index < candidates.size(); ++index) {
    const CGPoint to = middleOf(candidates[index]->frame);
    const double forward = (to.x - from.x) * direction.x + (to.y - from.y) * direction.y;
    const double sideways = std::abs((to.x - from.x) * direction.y + (to.y - from.y) * direction.x);
    const double distance = forward + sidewaysWeight * sideways;
    if (forward < minDistance || distance >= shortest) continue;
    found = index;
    shortest = distance;
  }
  return found;
}

}  // namespace

void FocusRing::move(const Elements& elements, FocusMove move) {
  std::vector<const AccessibleElement*> candidates;
  for (const AccessibleElement& element : elements)
    if (isFocusable(element)) candidates.push_back(&element);
  if (candidates.empty()) return clear();
  const std::size_t count = candidates.size();
  const auto found = std::ranges::find(candidates, element_, [](const auto* each) { return each->identifier; });
  std::size_t index = move == FocusMove::Previous ? count - 1 : 0;
  if (found != candidates.end()) {
    const auto current = static_cast<std::size_t>(found - candidates.begin());
    const auto* direction = std::ranges::find(directions, move, &Direction::move);
    if (direction != std::end(directions)) {
      index = nearest(candidates, current, *direction);
    } else {
      index = (current + (move == FocusMove::Next ? 1 : count - 1)) % count;
    }
  }
  element_ = candidates[index]->identifier;
}

void FocusRing::follow(const Elements& elements) {
  const auto responder = std::ranges::find(elements, true, &AccessibleElement::isFirstResponder);
  const std::uint64_t firstResponder = responder == elements.end() ? 0 : responder->identifier;
  const bool isNew = firstResponder != 0 && firstResponder != firstResponder_;
  firstResponder_ = firstResponder;
  if (element_ == 0) return;
  if (isNew) element_ = firstResponder;
  if (find(elements) == nullptr) clear();
}

const AccessibleElement* FocusRing::find(const Elements& elements) const {
  const auto found = std::ranges::find(elements, element_, &AccessibleElement::identifier);
  return found == elements.end() ? nullptr : &*found;
}

}  // namespace phone_display
