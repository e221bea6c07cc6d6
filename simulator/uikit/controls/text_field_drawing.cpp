// How a text field shows its text, its caret and what is selected.
#include <algorithm>
#include <cmath>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/font_library.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/controls/text_field.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/text/label.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

namespace {

constexpr double caretWidth = 2;
constexpr double selectionOpacity = 0.2;
constexpr CGFloat borderInset = 7;

double scale() { return environment().device.scale; }
double onPixel(double points) { return std::round(points * scale()) / scale(); }

// One line of the text, or of its first units.
drawing::TextLayout lineOf(const UITextField* field, NSString* text, NSUInteger units) {
  const TextFieldState& state = objc::state(field);
  drawing::Run run;
  run.text = utf8(text, {0, std::min(units, maxVisibleUnits)});
  std::ranges::replace(run.text, '\n', ' ');
  run.font = fontOf(state.font);
  drawing::Paragraph paragraph;
  paragraph.runs = {std::move(run)};
  paragraph.alignment = drawingAlignment(state.alignment);
  paragraph.direction = baseDirection(field);
  paragraph.language = environment().locale;
  return {std::move(paragraph), scale()};
}

drawing::TextLayout& textLayout(const UITextField* field) {
  TextFieldState& state = objc::state(field);
  if (!state.layout) state.layout.emplace(lineOf(field, state.text, NSNotFound));
  return *state.layout;
}

double lineHeight(const UITextField* field) { return drawing::lineHeight(fontOf(objc::state(field).font), scale()); }

bool readsFromTheRight(const UITextField* field) {
  const drawing::Paragraph& paragraph = textLayout(field).paragraph();
  const drawing::ContextForText context = drawing::makeTextContext(paragraph.language, paragraph.direction);
  const drawing::LayoutHandle layout(pango_layout_new(context.get()));
  pango_layout_set_text(layout.get(), paragraph.runs.front().text.c_str(), -1);
  return pango_layout_get_direction(layout.get(), 0) == PANGO_DIRECTION_RTL;
}

// From the left edge of the whole text.
double offsetOf(const UITextField* field, NSUInteger position) {
  const double before = lineOf(field, objc::state(field).text, position).measure(0).width;
  return readsFromTheRight(field) ? textLayout(field).measure(0).width - before : before;
}

// The share of the room beside the text that is on its left.
double alignmentShare(const UITextField* field) {
  switch (drawingAlignment(objc::state(field).alignment)) {
    case drawing::Alignment::Left:
      return 0;
    case drawing::Alignment::Center:
      return 0.5;
    case drawing::Alignment::Right:
      return 1;
    case drawing::Alignment::Natural:
      break;
  }
  return baseDirection(field) == drawing::BaseDirection::RightToLeft ? 1 : 0;
}

// The line's place in the area.
drawing::Rectangle lineIn(const UITextField* field, drawing::Rectangle area) {
  constexpr double shares[] = {0.5, 0, 1};  // center, top, bottom
  const auto alignment = static_cast<std::size_t>(objc::state<UIControl>(field).verticalAlignment);
  const double height = lineHeight(field);
  const double share = alignment < std::size(shares) ? shares[alignment] : shares[0];
  return {area.x, area.y + onPixel((area.height - height) * share), area.width, height};
}

// Where the left edge of the text is, so that the caret is in view.
double scrolledLeft(UITextField* self, const drawing::Rectangle& line, double caretOffset) {
  double& scroll = objc::state(self).scrollOffset;
  const double width = textLayout(self).measure(0).width;
  const double overflow = width + caretWidth - line.width;
  if (overflow <= 0) {
    scroll = 0;
    return line.x + onPixel((line.width - width) * alignmentShare(self));
  }
  const double visible = std::max(line.width - caretWidth, 0.0);
  scroll = std::clamp(scroll, std::max(caretOffset - visible, 0.0), caretOffset);
  scroll = std::clamp(scroll, 0.0, overflow);
  return line.x - onPixel(scroll);
}

drawing::Color tint(UITextField* self, double opacity) {
  drawing::Color color = colorOf(tintColor(styleOf(self)));
  color.alpha *= opacity;
  return color;
}

void drawSelection(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line, double left) {
  const NSRange selection = objc::state(self).selection;
  const double begin = offsetOf(self, selection.location);
  const double end = offsetOf(self, selection.location + selection.length);
  canvas.fillRectangle({left + std::min(begin, end), line.y, std::abs(end - begin), line.height},
                       tint(self, selectionOpacity));
}

void drawEditedText(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line, UIColor* color) {
  const NSRange selection = objc::state(self).selection;
  const double caretOffset = offsetOf(self, selection.location + selection.length);
  const double left = scrolledLeft(self, line, caretOffset);
  canvas.save();
  canvas.clipRectangle(line);
  if (selection.length > 0) drawSelection(self, canvas, line, left);
  const double width = textLayout(self).measure(0).width;
  // In its own width the text is not truncated, however it is aligned.
  textLayout(self).draw(canvas, {left, line.y, width, line.height}, colorOf(color));
  if (selection.length == 0) {
    const double caret = std::clamp(left + caretOffset, line.x, std::max(line.x + line.width - caretWidth, line.x));
    canvas.fillRectangle({caret, line.y, caretWidth, line.height}, tint(self, 1));
  }
  canvas.restore();
}

void drawPlaceholder(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line) {
  const TextFieldState& state = objc::state(self);
  lineOf(self, state.placeholder, NSNotFound).draw(canvas, line, colorOf(placeholderTextColor(styleOf(self))));
}

drawing::Rectangle lineInBounds(UITextField* self, const CGRect& bounds) {
  const CGRect area = self->isFirstResponder() ? objc::send<CGRect, "editingRectForBounds:">(self, bounds)
                                               : objc::send<CGRect, "textRectForBounds:">(self, bounds);
  return lineIn(self, rectangle(area));
}

void drawContent(UITextField* self, void* target) {
  drawing::Canvas& canvas = *static_cast<drawing::Canvas*>(target);
  const drawing::Rectangle line = lineInBounds(self, shownBounds(self));
  UIColor* color = objc::send<UIColor*, "textColor">(self);
  if (objc::state(self).text->length() == 0) drawPlaceholder(self, canvas, line);
  if (self->isFirstResponder()) {
    drawEditedText(self, canvas, line, color);
  } else {
    textLayout(self).draw(canvas, line, colorOf(color));
  }
}

// Glyphs may reach beyond their line.
CGRect contentArea(UITextField* self) { return outset(shownBounds(self), objc::state(self).font->pointSize()); }

CGRect textRectForBounds(UITextField* self, CGRect bounds) {
  if (objc::state(self).borderStyle == UITextBorderStyle::None) return bounds;
  const CGFloat inset = std::min(borderInset, bounds.size.width / 2);
  return {{bounds.origin.x + inset, bounds.origin.y}, {bounds.size.width - 2 * inset, bounds.size.height}};
}

CGRect editingRectForBounds(UITextField* self, CGRect bounds) {
  return objc::send<CGRect, "textRectForBounds:">(self, bounds);
}

CGSize intrinsicContentSize(UITextField* self) {
  const TextFieldState& state = objc::state(self);
  const drawing::TextLayout placeholder = lineOf(self, state.placeholder, NSNotFound);
  const double width = std::max(textLayout(self).measure(0).width, placeholder.measure(0).width);
  const CGFloat inset = state.borderStyle == UITextBorderStyle::None ? 0 : borderInset;
  return {width + 2 * inset, lineHeight(self) + 2 * inset};
}

CGSize sizeThatFits(UITextField* self, CGSize) { return intrinsicContentSize(self); }

CGFloat firstBaselineOffset(UITextField* self) {
  const double top = lineInBounds(self, self->bounds()).y - self->bounds().origin.y;
  return top + drawing::baselineOffset(fontOf(objc::state(self).font), scale());
}

}  // namespace

std::span<const objc::MethodEntry> textFieldDrawingMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"textRectForBounds:", &textRectForBounds>(),
      objc::method<"editingRectForBounds:", &editingRectForBounds>(),
      objc::method<"intrinsicContentSize", &intrinsicContentSize>(),
      objc::method<"sizeThatFits:", &sizeThatFits>(),
      objc::method<"_firstBaselineOffset", &firstBaselineOffset>(),
      objc::method<"_drawContentInCanvas:", &drawContent>(),
      objc::method<"_contentArea", &contentArea>(),
  };
  return methods;
}

}  // namespace uikit
