// Text with fonts and colors by range, as a label holds it.
#pragma once

#include <optional>
#include <vector>

#include "platform/ns_attributed_string.hpp"
#include "simulator/drawing/text_layout.hpp"
#include "simulator/uikit/text/font_class.hpp"

class UIColor;

namespace uikit {

// Part of a text, as long as that many UTF-16 units. nil stands for the font or color of the whole text.
struct StyledRange {
  NSUInteger length = 0;
  objc::Ref<UIFont> font;
  objc::Ref<UIColor> color;
};

class StyledText {
 public:
  StyledText() = default;
  // A copy of the text, all in the whole's font and color.
  explicit StyledText(NSString* text);
  explicit StyledText(NSAttributedString* text);

  // nil where there is none.
  NSString* string() const { return string_; }
  // Whether any part has a style of its own.
  bool isStyled() const;
  // nil where the text does not begin with a font of its own.
  UIFont* firstFont() const { return ranges_.empty() ? nullptr : ranges_.front().font.get(); }

  void removeFonts();
  void removeColors();

  // Autoreleased, nil without a text.
  NSAttributedString* attributedString(UIFont* wholeFont, UIColor* wholeColor) const;
  // The first units of the text.
  std::vector<drawing::Run> runs(const drawing::Font& wholeFont, NSUInteger units) const;

  friend bool operator==(const StyledText& left, const StyledText& right);

 private:
  objc::Ref<NSString> string_;
  std::vector<StyledRange> ranges_;
};

}  // namespace uikit
