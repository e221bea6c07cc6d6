// The pixels of a UIImage, and the definitions of UIImage and UIImageView. Main thread only.
#pragma once

#include <memory>

#include "platform/ui_image.hpp"
#include "simulator/drawing/image.hpp"

namespace uikit {

// Creates a UIImage. Returns a null reference if the image is null.
objc::Ref<UIImage> makeImage(std::shared_ptr<const drawing::Image> image);
// Returns the pixels of the image. Returns null for nil and for an image without pixels.
std::shared_ptr<const drawing::Image> imageOf(const UIImage* image);

void defineImage();
void defineImageView();

}  // namespace uikit

// Encodes the image as a PNG file. Returns nil for nil.
extern "C" NSData* UIImagePNGRepresentation(UIImage* image);
