// Strings and images for tests of views, and functions that inspect what a view shows.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "platform/ui_label.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

using Json = nlohmann::ordered_json;

inline NSString* string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }
// The characters of the string; "nil" for a null string.
inline std::string text(const NSString* string) { return string == nullptr ? "nil" : string->UTF8String(); }

// The string "a" followed by an unpaired surrogate. It has no valid UTF-8 encoding.
NSString* stringWithUnpairedSurrogate();

// The description of the view and its subviews in the view tree.
Json describe(UIView* view);

// An image of one color. The size is in pixels; `pixel` is premultiplied 0xAARRGGBB.
std::shared_ptr<const drawing::Image> solidImage(int width, int height, std::uint32_t pixel = 0xffff0000,
                                                 double scale = 1);

// Paints the screen at scale 1. Returns the smallest rectangle that contains all pixels whose color is not
// `background`. Empty if there are no such pixels.
CGRect inkBounds(std::uint32_t background);

}  // namespace test
