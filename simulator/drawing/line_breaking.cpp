#include "simulator/drawing/line_breaking.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace drawing {
namespace {

constexpr const char* ellipsis = "\u2026";

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

LayoutHandle layoutAll(const PlainText& text, const Paragraph& paragraph, double width) {
  const TextContextHandle context = makeTextContext(paragraph.language, paragraph.direction);
  LayoutHandle layout(pango_layout_new(context.get()));
  pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
  setWidth(layout.get(), width);
  pango_layout_set_text(layout.get(), text.text.data(), static_cast<int>(text.text.size()));
  pango_layout_set_attributes(layout.get(), attributesOf(text, paragraph).get());
  return layout;
}

PlainText withEllipsis(const PlainText& text, std::size_t begin, std::size_t end) {
  PlainText shown;
  for (const Span& span : text.spans) {
    const std::size_t first = std::max(span.begin, begin), last = std::min(span.end, end);
    if (first < last) shown.spans.push_back({first - begin, last - begin, span.run});
    // An empty line has the font of the line feed that ends it.
    if (begin == end && span.begin <= begin && begin < span.end) shown.spans.push_back({0, 0, span.run});
  }
  shown.text = text.text.substr(begin, end - begin) + ellipsis;
  if (!shown.spans.empty()) shown.spans.back().end = shown.text.size();
  return shown;
}

LayoutHandle layoutLine(const PlainText& shown, const Paragraph& paragraph, BaseDirection direction) {
  const TextContextHandle context = makeTextContext(paragraph.language, direction);
  LayoutHandle layout(pango_layout_new(context.get()));
  pango_layout_set_auto_dir(layout.get(), FALSE);
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_text(layout.get(), shown.text.data(), static_cast<int>(shown.text.size()));
  pango_layout_set_attributes(layout.get(), attributesOf(shown, paragraph).get());
  return layout;
}

// The runs of a line that pango has truncated.
struct TruncatedLine {
  bool hasMixedDirections = false;
  // The position of the first omitted character, if pango has added an ellipsis.
  std::optional<std::size_t> end;
};

TruncatedLine inspect(PangoLayoutLine* line) {
  TruncatedLine result;
  std::optional<int> firstDirection;
  for (const GSList* entry = line->runs; entry != nullptr; entry = entry->next) {
    const PangoItem* const item = static_cast<const PangoLayoutRun*>(entry->data)->item;
    if ((item->analysis.flags & PANGO_ANALYSIS_FLAG_IS_ELLIPSIS) != 0) {
      result.end = static_cast<std::size_t>(item->offset);
      continue;
    }
    const int direction = item->analysis.level % 2;
    result.hasMixedDirections |= firstDirection.value_or(direction) != direction;
    firstDirection = direction;
  }
  return result;
}

std::size_t withoutTrailingSpaces(const std::string& text, std::size_t end) {
  while (end > 0 && text[end - 1] == ' ') --end;
  return end;
}

// Lays out the last visible line again. The new line contains the text from the line's start to the end of its
// paragraph, and an ellipsis for the omitted text. If this is too long for a line, pango truncates it and adds its own
// ellipsis.
LayoutHandle layoutLast(const PlainText& text, const Paragraph& paragraph, double width, const PangoLayoutLine* line) {
  const auto begin = static_cast<std::size_t>(line->start_index);
  const std::size_t lineFeed = std::min(text.text.find('\n', begin), text.text.size());
  const PlainText shown = withEllipsis(text, begin, lineFeed);
  const BaseDirection direction =
      line->resolved_dir == PANGO_DIRECTION_RTL ? BaseDirection::RightToLeft : BaseDirection::LeftToRight;
  LayoutHandle layout = layoutLine(shown, paragraph, direction);
  pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
  setWidth(layout.get(), width);
  const TruncatedLine truncated = inspect(pango_layout_get_line_readonly(layout.get(), 0));
  if (!truncated.end || !truncated.hasMixedDirections) return layout;
  // Pango orders the runs before it truncates them. A space at the end of the visible text then remains in the middle
  // of the line, or between the edge and the text.
  const std::size_t end = begin + withoutTrailingSpaces(shown.text, *truncated.end);
  LayoutHandle reordered = layoutLine(withEllipsis(text, begin, end), paragraph, direction);
  int reorderedWidth = 0;
  pango_layout_get_size(reordered.get(), &reorderedWidth, nullptr);
  return reorderedWidth <= width * PANGO_SCALE ? std::move(reordered) : std::move(layout);
}

BrokenLine measured(PangoLayoutLine* line) {
  PangoRectangle logical;
  pango_layout_line_get_extents(line, nullptr, &logical);
  return {line, static_cast<double>(logical.width) / PANGO_SCALE};
}

}  // namespace

BrokenText breakLines(const PlainText& text, const Paragraph& paragraph, double width, int lines) {
  BrokenText result;
  if (text.text.empty()) return result;
  result.layouts.push_back(layoutAll(text, paragraph, width));
  PangoLayout* all = result.layouts.front().get();
  const int available = pango_layout_get_line_count(all);
  const int shown = lines > 0 ? std::min(lines, available) : available;
  for (GSList* entry = pango_layout_get_lines_readonly(all); entry && static_cast<int>(result.lines.size()) < shown;
       entry = entry->next) {
    result.lines.push_back(measured(static_cast<PangoLayoutLine*>(entry->data)));
  }
  if (shown < available && paragraph.lineBreak == LineBreak::TruncateTail) {
    result.layouts.push_back(layoutLast(text, paragraph, width, result.lines.back().line));
    result.lines.back() = measured(pango_layout_get_line_readonly(result.layouts.back().get(), 0));
  }
  return result;
}

}  // namespace drawing
