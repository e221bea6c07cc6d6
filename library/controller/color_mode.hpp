// The color mode of a banner. It depends on the setting containerColor and the system's appearance. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Returns the colors of a new banner. If the setting selects a fixed mode, this function also sets the controller's
// appearance to light or dark in system version 13.0 and later.
objc::Ref<BrimColors> colorsFor(BannerController* controller);

// Hook. If the setting follows the system's appearance and this appearance has changed, changes the banner's colors.
void traitCollectionDidChange(objc::Original<void(BannerController*, UITraitCollection*)> original,
                              BannerController* self, UITraitCollection* previous);
