#include "simulator/uikit/text/label.hpp"

#include <nlohmann/json.hpp>

#include "simulator/uikit/description/text_description.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

namespace {

UILabel* initWithFrame(UILabel* self, CGRect frame) {
  constexpr auto left = static_cast<UIViewContentMode>(drawing::ContentMode::Left);
  auto* label = objc::sendSuper<"UILabel", UILabel*, "initWithFrame:">(self, frame);
  if (label == nullptr) return nullptr;
  label->setUserInteractionEnabled(false);
  record(label).contentMode = left;
  objc::state(label).font = objc::retain(UIFont::systemFontOfSize(labelFontSize));
  return label;
}

void invalidateText(UILabel* self) {
  objc::state(self).layout.reset();
  setNeedsDisplay(self);
  invalidateIntrinsicContentSize(self);
}

void setStyledText(UILabel* self, StyledText text) {
  StyledText& current = objc::state(self).text;
  if (current == text) return;
  current = std::move(text);
  invalidateText(self);
}

NSString* text(UILabel* self) { return objc::state(self).text.string(); }
void setText(UILabel* self, NSString* text) { setStyledText(self, StyledText(text)); }

UIFont* font(UILabel* self) {
  const LabelState& state = objc::state(self);
  UIFont* first = state.text.firstFont();
  return first != nullptr ? first : state.font.get();
}

// Sets the font. It replaces the fonts of all ranges of the text. nil restores the default font.
void setFont(UILabel* self, UIFont* font) {
  LabelState& state = objc::state(self);
  UIFont* wanted = font != nullptr ? font : UIFont::systemFontOfSize(labelFontSize);
  if (state.font->isEqual(wanted) && !state.text.isStyled()) return;
  state.font = objc::retain(wanted);
  state.text.removeFonts();
  invalidateText(self);
}

UIColor* textColor(UILabel* self) {
  UIColor* chosen = objc::state(self).textColor;
  return chosen != nullptr ? chosen : labelColor(styleOf(self));
}

void setTextColor(UILabel* self, UIColor* color) {
  LabelState& state = objc::state(self);
  state.textColor = objc::retain(color);
  if (state.text.isStyled()) {
    state.text.removeColors();
    state.layout.reset();
  }
  setNeedsDisplay(self);
}

NSAttributedString* attributedText(UILabel* self) {
  const LabelState& state = objc::state(self);
  return state.text.attributedString(state.font, textColor(self));
}
void setAttributedText(UILabel* self, NSAttributedString* text) { setStyledText(self, StyledText(text)); }

NSTextAlignment textAlignment(UILabel* self) { return objc::state(self).alignment; }
void setTextAlignment(UILabel* self, NSTextAlignment alignment) {
  objc::state(self).alignment = alignment;
  objc::state(self).layout.reset();
  setNeedsDisplay(self);
}

NSLineBreakMode lineBreakMode(UILabel* self) { return objc::state(self).lineBreakMode; }
void setLineBreakMode(UILabel* self, NSLineBreakMode mode) {
  if (objc::state(self).lineBreakMode == mode) return;
  objc::state(self).lineBreakMode = mode;
  invalidateText(self);
}

NSInteger numberOfLines(UILabel* self) { return objc::state(self).numberOfLines; }
void setNumberOfLines(UILabel* self, NSInteger lines) {
  if (objc::state(self).numberOfLines == lines) return;
  objc::state(self).numberOfLines = lines;
  invalidateText(self);
}

CGFloat preferredMaxLayoutWidth(UILabel* self) { return objc::state(self).preferredMaxLayoutWidth; }
void setPreferredMaxLayoutWidth(UILabel* self, CGFloat width) {
  if (objc::state(self).preferredMaxLayoutWidth == width) return;
  objc::state(self).preferredMaxLayoutWidth = width;
  invalidateIntrinsicContentSize(self);
}
void setLayoutWidth(UILabel* self, CGFloat width) { objc::state(self).layoutWidth = width; }

// Returns the size of the label for this available width. A label with a single line is as wide as its text, even if
// that exceeds the available width.
CGSize measure(UILabel* self, CGFloat width) {
  constexpr CGFloat unlimited = 0;
  const drawing::Size size = textLayout(self).measure(objc::state(self).numberOfLines == 1 ? unlimited : width);
  return {size.width, size.height};
}

CGSize sizeThatFits(UILabel* self, CGSize size) { return measure(self, size.width); }

CGSize intrinsicContentSize(UILabel* self) {
  const LabelState& state = objc::state(self);
  return measure(self, state.preferredMaxLayoutWidth > 0 ? state.preferredMaxLayoutWidth : state.layoutWidth);
}

NSUInteger measuredNumberOfLines(UILabel* self) {
  return static_cast<NSUInteger>(textLayout(self).lineCount(self->bounds().size.width));
}

CGFloat firstBaselineOffset(UILabel* self) { return textLayout(self).firstBaseline(); }

// Returns the rectangle of the text. The text is laid out for the label's final size. While the size is animated, the
// content mode positions the text within the displayed bounds.
drawing::Rectangle textRectangle(UILabel* self) {
  const CGSize size = self->bounds().size;
  const auto mode = static_cast<drawing::ContentMode>(record(self).contentMode);
  return drawing::placeContent({size.width, size.height}, rectangle(shownBounds(self)), mode);
}

void drawContent(UILabel* self, void* canvas) {
  textLayout(self).draw(*static_cast<drawing::Canvas*>(canvas), textRectangle(self), colorOf(textColor(self)));
}

// Returns an area larger than the bounds, because glyphs can extend beyond their line.
CGRect contentArea(UILabel* self) {
  if (objc::state(self).text.string()->length() == 0) return {};
  return outset(rectangle(textRectangle(self)), font(self)->pointSize());
}

void describe(UILabel* self, void* description) {
  objc::sendSuper<"UILabel", void, "_describe:">(self, description);
  nlohmann::ordered_json& node = descriptionAt(description);
  const LabelState& state = objc::state(self);
  node["text"] = utf8(state.text.string());
  node["runs"] = describeRuns(state.text.runs(fontOf(state.font), NSNotFound));
  node["font"] = describeFont(fontOf(font(self)));
  node["lines"] = state.numberOfLines;
  node["measuredLines"] = measuredNumberOfLines(self);
  node["alignment"] = nameOf(state.alignment);
  node["color"] = describeColor(colorOf(textColor(self)));
}

}  // namespace

void defineLabel() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"text", &text>(),
      objc::method<"setText:", &setText>(),
      objc::method<"attributedText", &attributedText>(),
      objc::method<"setAttributedText:", &setAttributedText>(),
      objc::method<"font", &font>(),
      objc::method<"setFont:", &setFont>(),
      objc::method<"textColor", &textColor>(),
      objc::method<"setTextColor:", &setTextColor>(),
      objc::method<"textAlignment", &textAlignment>(),
      objc::method<"setTextAlignment:", &setTextAlignment>(),
      objc::method<"lineBreakMode", &lineBreakMode>(),
      objc::method<"setLineBreakMode:", &setLineBreakMode>(),
      objc::method<"numberOfLines", &numberOfLines>(),
      objc::method<"setNumberOfLines:", &setNumberOfLines>(),
      objc::method<"preferredMaxLayoutWidth", &preferredMaxLayoutWidth>(),
      objc::method<"setPreferredMaxLayoutWidth:", &setPreferredMaxLayoutWidth>(),
      objc::method<"_setPreferredWidth:", &setLayoutWidth>(),
      objc::method<"sizeThatFits:", &sizeThatFits>(),
      objc::method<"intrinsicContentSize", &intrinsicContentSize>(),
      objc::method<"_measuredNumberOfLines", &measuredNumberOfLines>(),
      objc::method<"_firstBaselineOffset", &firstBaselineOffset>(),
      objc::method<"_drawContentInCanvas:", &drawContent>(),
      objc::method<"_contentArea", &contentArea>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UILabel>(methods);
}

}  // namespace uikit
