// Draws the text, the caret and the selection of a text field, and computes its sizes.
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
constexpr double underlineDistance = 2;  // from the baseline
constexpr double underlineThickness = 1;
constexpr CGFloat borderInset = 7;

double scale() { return environment().device.scale; }
double roundToPixel(double points) { return std::round(points * scale()) / scale(); }

// Returns the layout of the first `units` UTF-16 code units of the text as one line.
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

bool isRightToLeft(const UITextField* field) {
  const drawing::Paragraph& paragraph = textLayout(field).paragraph();
  const drawing::TextContextHandle context = drawing::makeTextContext(paragraph.language, paragraph.direction);
  const drawing::LayoutHandle layout(pango_layout_new(context.get()));
  pango_layout_set_text(layout.get(), paragraph.runs.front().text.c_str(), -1);
  return pango_layout_get_direction(layout.get(), 0) == PANGO_DIRECTION_RTL;
}

// Returns the distance from the left edge of the text to the position, in points.
double horizontalOffset(const UITextField* field, NSUInteger position) {
  const double before = lineOf(field, objc::state(field).text, position).measure(0).width;
  return isRightToLeft(field) ? textLayout(field).measure(0).width - before : before;
}

// Returns the fraction of the unused width that is to the left of the text.
double alignmentFraction(const UITextField* field) {
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

// Returns the rectangle of the line within the area.
drawing::Rectangle lineRectangle(const UITextField* field, drawing::Rectangle area) {
  constexpr double fractions[] = {0.5, 0, 1};  // for the vertical alignments center, top and bottom
  const auto alignment = static_cast<std::size_t>(objc::state<UIControl>(field).verticalAlignment);
  const double height = lineHeight(field);
  const double fraction = alignment < std::size(fractions) ? fractions[alignment] : fractions[0];
  return {area.x, area.y + roundToPixel((area.height - height) * fraction), area.width, height};
}

// Scrolls the text so that the caret is visible, and returns the left edge of the text.
double leftOfScrolledText(UITextField* self, const drawing::Rectangle& line, double caretOffset) {
  double& scroll = objc::state(self).scrollOffset;
  const double width = textLayout(self).measure(0).width;
  const double overflow = width + caretWidth - line.width;
  if (overflow <= 0) {
    scroll = 0;
    return line.x + roundToPixel((line.width - width) * alignmentFraction(self));
  }
  const double visible = std::max(line.width - caretWidth, 0.0);
  scroll = std::clamp(scroll, std::max(caretOffset - visible, 0.0), caretOffset);
  scroll = std::clamp(scroll, 0.0, overflow);
  return line.x - roundToPixel(scroll);
}

drawing::Color tint(UITextField* self, double opacity) {
  drawing::Color color = colorOf(tintColor(styleOf(self)));
  color.alpha *= opacity;
  return color;
}

void drawSelection(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line, double left) {
  const NSRange selection = objc::state(self).selection;
  const double begin = horizontalOffset(self, selection.location);
  const double end = horizontalOffset(self, selection.location + selection.length);
  canvas.fillRectangle({left + std::min(begin, end), line.y, std::abs(end - begin), line.height},
                       tint(self, selectionOpacity));
}

// Draws the line under the marked text.
void drawUnderline(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line, double left) {
  const NSRange marked = objc::state(self).marked;
  const double begin = horizontalOffset(self, marked.location);
  const double end = horizontalOffset(self, marked.location + marked.length);
  const double baseline = drawing::baselineOffset(fontOf(objc::state(self).font), scale());
  const double top = std::min(baseline + underlineDistance, line.height - underlineThickness);
  canvas.fillRectangle({left + std::min(begin, end), line.y + top, std::abs(end - begin), underlineThickness},
                       colorOf(objc::send<UIColor*, "textColor">(self)));
}

// Returns the left edge of a caret at the offset from the left edge of the text.
double leftOfCaret(const drawing::Rectangle& line, double left, double caretOffset) {
  return std::clamp(left + caretOffset, line.x, std::max(line.x + line.width - caretWidth, line.x));
}

void drawEditedText(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line, UIColor* color) {
  const NSRange selection = objc::state(self).selection;
  const double caretOffset = horizontalOffset(self, selection.location + selection.length);
  const double left = leftOfScrolledText(self, line, caretOffset);
  canvas.save();
  canvas.clipRectangle(line);
  if (selection.length > 0) drawSelection(self, canvas, line, left);
  const double width = textLayout(self).measure(0).width;
  // The rectangle is as wide as the text, so the text is not truncated and its alignment has no effect.
  textLayout(self).draw(canvas, {left, line.y, width, line.height}, colorOf(color));
  if (objc::state(self).marked.length > 0) drawUnderline(self, canvas, line, left);
  if (selection.length == 0)
    canvas.fillRectangle({leftOfCaret(line, left, caretOffset), line.y, caretWidth, line.height}, tint(self, 1));
  canvas.restore();
}

void drawPlaceholder(UITextField* self, drawing::Canvas& canvas, const drawing::Rectangle& line) {
  const TextFieldState& state = objc::state(self);
  lineOf(self, state.placeholder, NSNotFound).draw(canvas, line, colorOf(placeholderTextColor(styleOf(self))));
}

drawing::Rectangle lineInBounds(UITextField* self, const CGRect& bounds) {
  const CGRect area = self->isFirstResponder() ? objc::send<CGRect, "editingRectForBounds:">(self, bounds)
                                               : objc::send<CGRect, "textRectForBounds:">(self, bounds);
  return lineRectangle(self, rectangle(area));
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

// Returns an area larger than the bounds, because glyphs can extend beyond their line.
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

CGRect caretRectangle(UITextField* field, NSUInteger position) {
  const drawing::Rectangle line = lineInBounds(field, field->bounds());
  const NSRange selection = objc::state(field).selection;
  const double left = leftOfScrolledText(field, line, horizontalOffset(field, selection.location + selection.length));
  return {{leftOfCaret(line, left, horizontalOffset(field, position)), line.y}, {caretWidth, line.height}};
}

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
