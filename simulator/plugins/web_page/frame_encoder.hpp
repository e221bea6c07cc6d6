// Encodes changed rectangles of the phone's picture for a page. Main thread.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "simulator/drawing/pixel_rectangle.hpp"

namespace web_page {

// Draws the picture. The units of the context are pixels of the picture.
using DrawPicture = std::function<void(cairo_t*)>;

// Returns a frame. It begins with 32-bit little-endian integers: the width and height of the picture, the number of
// rectangles, and the position and size of each rectangle. The pixels of the rectangles follow, compressed by zlib: the
// red, green, blue and alpha byte of each pixel, not premultiplied. The region must not be empty and must lie inside
// the picture.
std::vector<std::byte> encodeFrame(int width, int height, const cairo_region_t* changed, const DrawPicture& draw);

}  // namespace web_page
