// The icons of the applications on the simulated phone. Main thread only.
#pragma once

#include <memory>
#include <string>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace uikit {

// Sets the icon of an application in one format. Null removes it.
void setApplicationIcon(const std::string& bundleIdentifier, int format, std::shared_ptr<const drawing::Image> icon);
// Sets the icon of all applications for which no icon was set. Null removes it.
void setPlaceholderIcon(std::shared_ptr<const drawing::Image> icon);

// Implements +_applicationIconImageForBundleIdentifier:format:. Returns the placeholder if the application has no
// icons, and nil if it has icons but none in this format.
UIImage* applicationIcon(Class, NSString* bundleIdentifier, int format);

}  // namespace uikit
