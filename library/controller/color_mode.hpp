// The color mode of a banner, from the setting containerColor and the system's appearance. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// The colors of a new banner. If the setting chooses a mode, this also changes the controller's appearance to it.
objc::Ref<BrimColors> colorsFor(BannerController* controller);

// Hook. Changes the banner's colors with the system's appearance, if the setting follows it.
void traitCollectionDidChange(objc::Original<void(BannerController*, UITraitCollection*)> original,
                              BannerController* self, UITraitCollection* previous);
