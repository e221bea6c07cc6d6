// The home screen: wallpaper, the applications' icons and the dock.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_image_view.hpp"
#include "platform/ui_view_controller.hpp"

struct HomeScreenState {
  objc::Ref<UIImageView> wallpaper;
};

class SBHomeScreenViewController : public objc::Interface<"SBHomeScreenViewController", UIViewController> {};
template <>
struct objc::StateOf<SBHomeScreenViewController> {
  using Type = HomeScreenState;
};

namespace springboard {

// The wallpaper that goes with the appearance; nil without artwork.
UIImage* wallpaper();

void defineHomeScreen();

}  // namespace springboard
