// UIImage's pixels, and the icons of applications.
#pragma once

#include <memory>
#include <string>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace uikit {

// nil for null.
objc::Ref<UIImage> makeImage(std::shared_ptr<const drawing::Image> image);
// Null for nil and for an image without pixels.
std::shared_ptr<const drawing::Image> imageOf(const UIImage* image);

// What +_applicationIconImageForBundleIdentifier:format: answers from now on. An application with icons has none in the
// formats it was not given; one without any has the placeholder in all of them. Null takes an icon away. Main thread.
void setApplicationIcon(const std::string& bundleIdentifier, int format, std::shared_ptr<const drawing::Image> icon);
void setPlaceholderIcon(std::shared_ptr<const drawing::Image> icon);

void defineImage();

void defineImageView();

}  // namespace uikit

// The picture as a PNG file's bytes; nil for nil.
extern "C" NSData* UIImagePNGRepresentation(UIImage* image);
