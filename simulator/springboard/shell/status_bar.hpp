// The status bar. It is a window above the applications and shows the time and the battery. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_window.hpp"

struct StatusBarState {
  objc::Ref<UILabel> clock;
};

class UIStatusBarWindow : public objc::Interface<"UIStatusBarWindow", UIWindow> {};
template <>
struct objc::StateOf<UIStatusBarWindow> {
  using Type = StatusBarState;
};

namespace springboard {

void defineStatusBar();
// Creates and returns the window of the status bar. Call this once.
UIStatusBarWindow* makeStatusBar();
// Updates the displayed time.
void refreshStatusBar();

enum class StatusBarVisibility { Shown, Hidden };
// Shows or hides the contents of the status bar. The change is animated inside an animation block.
void setStatusBarVisibility(StatusBarVisibility visibility);

}  // namespace springboard
