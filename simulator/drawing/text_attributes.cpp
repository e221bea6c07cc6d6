#include "simulator/drawing/text_attributes.hpp"

#include <algorithm>
#include <cmath>

namespace drawing {
namespace {

// The maximum line width in points. A larger width is treated as unlimited, because it is outside pango's range.
constexpr double maxWidth = 1'000'000;

guint16 channel(double value) { return static_cast<guint16>(std::lround(std::clamp(value, 0.0, 1.0) * 0xFFFF)); }

// Adds the attribute for a range of the text. The list takes ownership of the attribute.
void add(PangoAttrList* attributes, PangoAttribute* attribute, const Span& span) {
  attribute->start_index = static_cast<guint>(span.begin);
  attribute->end_index = static_cast<guint>(span.end);
  pango_attr_list_insert(attributes, attribute);
}

void addColor(PangoAttrList* attributes, const Color& color, const Span& span) {
  add(attributes, pango_attr_foreground_new(channel(color.red), channel(color.green), channel(color.blue)), span);
  // The alpha is at least 1, because pango treats an alpha of 0 as opaque.
  add(attributes, pango_attr_foreground_alpha_new(std::max<guint16>(channel(color.alpha), 1)), span);
}

// Returns whether the character belongs to a script whose letters change their shape with their neighbors. The first
// range contains the Unicode blocks from Hebrew up to the symbols. The second range ends with the Arabic presentation
// forms.
bool isShapedByContext(gunichar value) {
  return (value >= 0x0590 && value < 0x2000) || (value >= 0xA800 && value < 0xFE00);
}

bool hasShapedScript(const std::string& text) {
  for (const char* next = text.data(); next < text.data() + text.size(); next = g_utf8_next_char(next)) {
    if (isShapedByContext(g_utf8_get_char(next))) return true;
  }
  return false;
}

}  // namespace

AttributesHandle attributesOf(const PlainText& text, const Paragraph& paragraph) {
  AttributesHandle attributes(pango_attr_list_new());
  for (const Span& span : text.spans) {
    const Run& run = paragraph.runs[span.run];
    const DescriptionHandle font = describeFont(run.font, paragraph.language);
    add(attributes.get(), pango_attr_font_desc_new(font.get()), span);
    if (run.color) addColor(attributes.get(), *run.color, span);
  }
  const Span all{0, text.text.size(), 0};
  add(attributes.get(), pango_attr_insert_hyphens_new(FALSE), all);
  // Disables contextual alternates. If they were enabled, the system font would show "->" as an arrow, and the x in
  // "2x3" as a multiplication sign.
  if (!hasShapedScript(text.text)) {
    add(attributes.get(), pango_attr_font_features_new("calt=0"), all);
  }
  return attributes;
}

void setWidth(PangoLayout* layout, double width) {
  if (width <= maxWidth)
    pango_layout_set_width(layout, static_cast<int>(std::lround(std::max(width, 1.0) * PANGO_SCALE)));
}

}  // namespace drawing
