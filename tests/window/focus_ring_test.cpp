// Tests of the movements of the keyboard focus.
#include "simulator/plugins/phone_display/focus_ring.hpp"

#include <gtest/gtest.h>

namespace {

using phone_display::Elements;
using phone_display::FocusMove;
using phone_display::FocusRing;
using uikit::AccessibleElement;
using uikit::AccessibleRole;

AccessibleElement makeElement(std::uint64_t identifier, CGPoint origin, AccessibleRole role = AccessibleRole::Button) {
  AccessibleElement element;
  element.identifier = identifier;
  element.role = role;
  element.frame = {origin, {10, 10}};
  element.actions = {{"activate"}};
  return element;
}

// Two rows of two buttons.
Elements grid() {
  return {makeElement(1, {0, 0}), makeElement(2, {50, 0}), makeElement(3, {0, 50}), makeElement(4, {50, 50})};
}

TEST(FocusRing, NextAndPreviousFollowTheListAndWrapAround) {
  FocusRing ring;
  for (const std::uint64_t expected : {1U, 2U, 3U, 4U, 1U}) {
    ring.move(grid(), FocusMove::Next);
    EXPECT_EQ(ring.element(), expected);
  }
  ring.move(grid(), FocusMove::Previous);
  EXPECT_EQ(ring.element(), 4U);
}

TEST(FocusRing, PreviousBeginsAtTheEnd) {
  FocusRing ring;
  ring.move(grid(), FocusMove::Previous);
  EXPECT_EQ(ring.element(), 4U);
}

TEST(FocusRing, ArrowsMoveToTheNearestElement) {
  FocusRing ring;
  ring.focus(1);
  ring.move(grid(), FocusMove::Right);
  EXPECT_EQ(ring.element(), 2U);
  ring.move(grid(), FocusMove::Down);
  EXPECT_EQ(ring.element(), 4U);
  ring.move(grid(), FocusMove::Left);
  EXPECT_EQ(ring.element(), 3U);
  ring.move(grid(), FocusMove::Up);
  EXPECT_EQ(ring.element(), 1U);
  ring.move(grid(), FocusMove::Up);
  EXPECT_EQ(ring.element(), 1U);
}

TEST(FocusRing, SkipsTextsAndKeys) {
  Elements elements = {makeElement(1, {0, 0}, AccessibleRole::Text), makeElement(2, {0, 20}, AccessibleRole::Key),
                       makeElement(3, {0, 40})};
  elements[0].actions.clear();
  FocusRing ring;
  ring.move(elements, FocusMove::Next);
  EXPECT_EQ(ring.element(), 3U);
}

TEST(FocusRing, DisappearsWithItsElement) {
  FocusRing ring;
  ring.focus(2);
  ring.follow(grid());
  EXPECT_EQ(ring.element(), 2U);
  ring.follow({makeElement(1, {0, 0})});
  EXPECT_EQ(ring.element(), 0U);
}

TEST(FocusRing, MovesToANewFirstResponderOnlyWhileItIsVisible) {
  Elements elements = grid();
  elements[2].isFirstResponder = true;
  FocusRing hidden;
  hidden.follow(elements);
  EXPECT_EQ(hidden.element(), 0U);
  FocusRing ring;
  ring.focus(1);
  ring.follow(elements);
  EXPECT_EQ(ring.element(), 3U);
  ring.move(elements, FocusMove::Next);
  ring.follow(elements);
  EXPECT_EQ(ring.element(), 4U);
}

}  // namespace
