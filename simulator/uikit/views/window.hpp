// Windows and the application: the windows on the screen, their order and the key window. Main thread only.
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

  UIWindow* window = nullptr;  // the window that contains this state; nil until -initWithFrame:
  double level = 0;
  objc::Ref<UIViewController> rootViewController;
  // Borrowed. A first responder resigns before it is removed from the window.
  UIResponder* firstResponder = nullptr;
};
template <>
struct objc::StateOf<UIWindow> {
  using Type = WindowState;
};

namespace uikit {

// The windows that are not hidden, from back to front: ordered by level, then by the time they were last shown.
std::vector<UIWindow*> visibleWindows();

// The responder that receives text input: the first responder of the key window. nil if there is none.
UIResponder* firstResponder();

// Sets the result of +[UIApplication sharedApplication]. Retains the application.
void setSharedApplication(UIApplication* application);

// All windows, including hidden ones, in the order in which they were last shown.
const std::vector<UIWindow*>& allWindows();
// nil if there is none.
UIWindow* keyWindow();

// Lays out all visible windows.
void layoutWindows();

}  // namespace uikit
