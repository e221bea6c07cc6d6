// The status bar: a window of its own above the applications, with the time and the battery.
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
// Once.
void makeStatusBar();
// Shows the minute that the clock is in.
void refreshStatusBar();

}  // namespace springboard
