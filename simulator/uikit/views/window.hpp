// Windows and the application. The functions return the windows on the screen, their order and the key window. Main
// thread only.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ui_view_controller.hpp"
#include "platform/ui_window.hpp"
#include "simulator/uikit/environment/screen.hpp"

struct WindowState {
  WindowState() = default;
  ~WindowState();
  WindowState(const WindowState&) = delete;
  WindowState& operator=(const WindowState&) = delete;

  const uikit::Screen* screen = nullptr;  // borrowed; null represents the main screen
  UIWindow* window = nullptr;             // the window that contains this state; nil until -initWithFrame:
  double level = 0;
  objc::Ref<UIViewController> rootViewController;
  // The first responder of the window; nil if there is none. It is borrowed. A responder resigns before it is removed
  // from the window.
  UIResponder* firstResponder = nullptr;
};
template <>
struct objc::StateOf<UIWindow> {
  using Type = WindowState;
};

namespace uikit {

// Returns the windows of all screens, or of one screen, that are not hidden, from back to front. They are sorted by
// level, and then by the time at which they were last shown.
std::vector<UIWindow*> visibleWindows();
std::vector<UIWindow*> visibleWindows(const Screen& screen);

// Returns the screen of a window. A new window is on the main screen.
const Screen& screenOf(const UIWindow* window);
// Moves a window to a screen, which must outlive the window. Does not change its frame.
void setScreen(UIWindow* window, const Screen& screen);

// Returns the responder that receives text input: the first responder of the key window. Returns nil if there is none.
UIResponder* firstResponder();

// Sets the result of +[UIApplication sharedApplication] and retains the application.
void setSharedApplication(UIApplication* application);

// Returns all windows, including hidden ones, in the order in which they were last shown.
const std::vector<UIWindow*>& allWindows();
// Returns the key window, or nil if there is none.
UIWindow* keyWindow();

// Lays out all visible windows.
void layoutWindows();

}  // namespace uikit
