// The icons of the applications on the simulated phone. Main thread only. See image_class.hpp for the functions that
// set them.
#pragma once

#include "platform/ui_image.hpp"

namespace uikit {

// Implements +_applicationIconImageForBundleIdentifier:format:. Returns the placeholder if the application has no
// icons, and nil if it has icons but none of this format.
UIImage* applicationIcon(Class, NSString* bundleIdentifier, int format);

}  // namespace uikit
