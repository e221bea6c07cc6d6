// A process with the view toolkit on a stepped clock, and views that tell what happens to them.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "platform/ui_view_controller.hpp"
#include "platform/ui_window.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace test {

using Journal = std::vector<std::string>;

// Each test has its own environment, pool and journal.
class Stage : public testing::Test {
 public:
  Stage();
  ~Stage() override;

  // A visible window that fills the screen.
  static objc::Ref<UIWindow> makeWindow();
  // A view of that frame inside another.
  static objc::Ref<UIView> addView(UIView* parent, CGRect frame);
  // The same, placed by constraints.
  static objc::Ref<UIView> addConstrainedView(UIView* parent);
  // A finger that goes down, moves in equal steps and goes up.
  static void drag(CGPoint from, CGPoint by, int steps = 10);
  static void tap(CGPoint point);
  // What was written since the last call.
  static Journal takeJournal();
  static void write(const std::string& entry);
  // Lets go of what is autoreleased.
  void drainPool() {
    pool_.reset();
    pool_.emplace();
  }

 private:
  std::optional<objc::AutoreleasePool> pool_;
};

// "name message argument" for each message about the hierarchy, layout, touches and traits.
class ProbeView : public objc::Interface<"ProbeView", UIView> {
 public:
  static objc::Ref<ProbeView> named(const std::string& name);
};

// As wide as its text in one line, as high as its lines at the width it is told: 10 points a character and a line.
class ParagraphView : public objc::Interface<"ParagraphView", UIView> {
 public:
  static objc::Ref<ParagraphView> withLength(int characters);
};

// An object with an action for recognizers; it writes "pan STATE DX,DY" and "tap STATE".
class ActionTarget : public objc::Interface<"ActionTarget", NSObject> {};

// How many probe views and action targets there are.
int livingObjects();

}  // namespace test
