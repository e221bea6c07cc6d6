// UIImage, UIImageView and the icons of applications. Main thread only.
#pragma once

#include <memory>
#include <string>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace uikit {

// Returns a null reference for null.
objc::Ref<UIImage> makeImage(std::shared_ptr<const drawing::Image> image);
// The pixels of the image; null for nil and for an image without pixels.
std::shared_ptr<const drawing::Image> imageOf(const UIImage* image);

// Sets what +_applicationIconImageForBundleIdentifier:format: returns. If an application has at least one icon, the
// result for other formats is nil. If it has none, the result is the placeholder. Null removes an icon.
void setApplicationIcon(const std::string& bundleIdentifier, int format, std::shared_ptr<const drawing::Image> icon);
void setPlaceholderIcon(std::shared_ptr<const drawing::Image> icon);

void defineImage();

void defineImageView();

}  // namespace uikit

// Encodes the image as a PNG file; nil for nil.
extern "C" NSData* UIImagePNGRepresentation(UIImage* image);
