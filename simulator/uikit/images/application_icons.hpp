// The icons that the system has of its applications.
#pragma once

#include "platform/ui_image.hpp"

namespace uikit {

UIImage* applicationIcon(Class, NSString* bundleIdentifier, int format);

}  // namespace uikit
