// The text of a label, with a font and a color for each of its ranges. Main thread only.
#pragma once

#include <optional>
#include <vector>

#include "platform/ns_attributed_string.hpp"
#include "simulator/drawing/text_layout.hpp"
#include "simulator/uikit/text/font_class.hpp"

class UIColor;

namespace uikit {

// A range of a text. The length is in UTF-16 code units. If the font or color is nil, the range has the default font or
// color of the text.
struct StyledRange {
  NSUInteger length = 0;
  objc::Ref<UIFont> font;
  objc::Ref<UIColor> color;
};

class StyledText {
 public:
  StyledText() = default;
  // Copies the text, which then has the default font and color.
  explicit StyledText(NSString* text);
  explicit StyledText(NSAttributedString* text);

  // The text without fonts and colors; nil if there is no text.
  NSString* string() const { return string_; }
  // Returns whether any range has its own font or color.
  bool isStyled() const;
  // The font of the first range; nil if the first range has the default font.
  UIFont* firstFont() const { return ranges_.empty() ? nullptr : ranges_.front().font.get(); }

  void removeFonts();
  void removeColors();

  // Returns the text with its fonts and colors. The result is autoreleased; nil if there is no text.
  NSAttributedString* attributedString(UIFont* defaultFont, UIColor* defaultColor) const;
  // Returns the runs of the first `maxUnits` UTF-16 code units of the text.
  std::vector<drawing::Run> runs(const drawing::Font& defaultFont, NSUInteger maxUnits) const;

  friend bool operator==(const StyledText& left, const StyledText& right);

 private:
  objc::Ref<NSString> string_;
  std::vector<StyledRange> ranges_;
};

}  // namespace uikit
