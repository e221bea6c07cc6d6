// The icons of the applications on the simulated phone. Main thread only.
#pragma once

#include <memory>
#include <string>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace uikit {

// Sets the icon of an application in one format, which is a number of the platform. Null removes the icon.
void setApplicationIcon(const std::string& bundleIdentifier, int format, std::shared_ptr<const drawing::Image> icon);
// Sets the icon of all applications for which no icon was set. Null removes the icon.
void setPlaceholderIcon(std::shared_ptr<const drawing::Image> icon);

// Implements +_applicationIconImageForBundleIdentifier:format:. Returns the placeholder if the application has no
// icons. Returns nil if the application has icons, but none in this format.
UIImage* applicationIcon(Class, NSString* bundleIdentifier, int format);

}  // namespace uikit
