// Windows and the application: what is on the screen, in which order, and who has the keyboard. Main thread.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ui_view_controller.hpp"
#include "platform/ui_window.hpp"

struct WindowState {
  WindowState() = default;
  ~WindowState();
  WindowState(const WindowState&) = delete;
  WindowState& operator=(const WindowState&) = delete;

  UIWindow* window = nullptr;  // whose state this is, once it is initialized
  double level = 0;
  objc::Ref<UIViewController> rootViewController;
  // Borrowed: it resigns before it leaves the window.
  UIResponder* firstResponder = nullptr;
};
template <>
struct objc::StateOf<UIWindow> {
  using Type = WindowState;
};

namespace uikit {

// The windows that are not hidden, back to front: by level, then in the order in which they were shown.
std::vector<UIWindow*> visibleWindows();

// The responder that typed text and keys go to: the key window's first responder. nil without one.
UIResponder* firstResponder();

// What +[UIApplication sharedApplication] answers from now on. Kept.
void setSharedApplication(UIApplication* application);

// All that there are, the hidden ones included, in the order in which they were last shown.
const std::vector<UIWindow*>& allWindows();
UIWindow* keyWindow();

// Lays out all that is on the screen.
void layoutWindows();

}  // namespace uikit
