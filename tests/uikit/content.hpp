// What the tests of labels, controls and pictures share.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "platform/ui_label.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "tests/uikit/stage.hpp"

namespace test {

using Json = nlohmann::ordered_json;

inline NSString* string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }
inline std::string text(const NSString* string) { return string == nullptr ? "nil" : string->UTF8String(); }

// "a", half of a character that takes two units, and nothing else: a string that has no form in UTF-8.
NSString* brokenString();

// What the view tree tells of the view.
Json described(UIView* view);

// A picture of one color, premultiplied 0xAARRGGBB, of that size in pixels.
std::shared_ptr<const drawing::Image> plainPicture(int width, int height, std::uint32_t pixel = 0xffff0000,
                                                   double scale = 1);

// The smallest rectangle of the screen's pixels, at scale 1, that holds all pixels of another color than this; empty
// without any.
CGRect inkOnScreen(std::uint32_t background);

}  // namespace test
