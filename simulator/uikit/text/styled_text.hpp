// The text of a label, with fonts and colors for its ranges.
#pragma once

#include <optional>
#include <vector>

#include "platform/ns_attributed_string.hpp"
#include "simulator/drawing/text_layout.hpp"
#include "simulator/uikit/text/font_class.hpp"

class UIColor;

namespace uikit {

// A range of a text. The length is in UTF-16 code units. A nil font or color means the default of the text.
struct StyledRange {
  NSUInteger length = 0;
  objc::Ref<UIFont> font;
  objc::Ref<UIColor> color;
};

class StyledText {
 public:
  StyledText() = default;
  // Copies the text, without fonts and colors of its own.
  explicit StyledText(NSString* text);
  explicit StyledText(NSAttributedString* text);

  // nil if there is no text.
  NSString* string() const { return string_; }
  // Whether a range has its own font or color.
  bool isStyled() const;
  // The font of the first range; nil if that range has the default font.
  UIFont* firstFont() const { return ranges_.empty() ? nullptr : ranges_.front().font.get(); }

  void removeFonts();
  void removeColors();

  // Autoreleased; nil if there is no text.
  NSAttributedString* attributedString(UIFont* defaultFont, UIColor* defaultColor) const;
  // The runs of the first `maxUnits` UTF-16 code units of the text.
  std::vector<drawing::Run> runs(const drawing::Font& defaultFont, NSUInteger maxUnits) const;

  friend bool operator==(const StyledText& left, const StyledText& right);

 private:
  objc::Ref<NSString> string_;
  std::vector<StyledRange> ranges_;
};

}  // namespace uikit
