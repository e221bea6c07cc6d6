// The home screen: wallpaper, application icons and dock. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_view_controller.hpp"

class SBHomeScreenViewController : public objc::Interface<"SBHomeScreenViewController", UIViewController> {};

namespace springboard {

void defineHomeScreen();

}  // namespace springboard
