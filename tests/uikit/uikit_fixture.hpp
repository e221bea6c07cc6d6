// A fixture for tests of the view toolkit, with a stepped clock, simulated touches, and views that log the messages
// that they receive.
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

using Log = std::vector<std::string>;

// Each test starts with the default environment, its own autorelease pool and an empty log.
class UIKitTest : public testing::Test {
 public:
  UIKitTest();
  ~UIKitTest() override;

  // Returns a visible window that fills the screen.
  static objc::Ref<UIWindow> makeWindow();
  // Adds a view with this frame to `parent`.
  static objc::Ref<UIView> addView(UIView* parent, CGRect frame);
  // Adds a view that is placed by constraints.
  static objc::Ref<UIView> addConstrainedView(UIView* parent);
  // Puts a finger down at `from`, moves it by `translation` in equal steps, and lifts it.
  static void drag(CGPoint from, CGPoint translation, int steps = 10);
  static void tap(CGPoint point);
  // Returns the entries that were logged since the last call.
  static Log takeLog();
  static void log(const std::string& entry);
  // Releases the autoreleased objects.
  void drainPool() {
    pool_.reset();
    pool_.emplace();
  }

 private:
  std::optional<objc::AutoreleasePool> pool_;
};

// Logs "NAME MESSAGE ARGUMENT" for each message about the hierarchy, layout, touches, traits and the first responder.
class ProbeView : public objc::Interface<"ProbeView", UIView> {
 public:
  static objc::Ref<ProbeView> named(const std::string& name);
};

// A view that simulates wrapped text: each character is 10 points wide and each line 10 points high. The intrinsic size
// is the size of the text in one line, or of the text wrapped to the preferred width if there is one.
class ParagraphView : public objc::Interface<"ParagraphView", UIView> {
 public:
  static objc::Ref<ParagraphView> withLength(int characters);
};

// A target of gesture recognizers. It logs "pan STATE DX,DY", "tap STATE" or "plain" for the action of the same name.
class RecognizerTarget : public objc::Interface<"RecognizerTarget", NSObject> {};

// The number of probe views and recognizer targets that exist.
int livingObjects();

}  // namespace test
