#include "simulator/drawing/truncation.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "simulator/drawing/text_attributes.hpp"

namespace drawing {
namespace {

constexpr const char* ellipsis = "\u2026";

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

// The properties of a line that pango has laid out and, if necessary, truncated.
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

}  // namespace

// Appends the ellipsis to the rest of the paragraph. If the result is too long for a line, pango truncates it and adds
// its own ellipsis.
LayoutHandle truncateLine(const PlainText& text, const Paragraph& paragraph, double width,
                          const PangoLayoutLine* line) {
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
  // Pango reorders the runs before it truncates them. A space at the end of the visible text would then appear in the
  // middle of the line, or between the edge and the text.
  const std::size_t end = begin + withoutTrailingSpaces(shown.text, *truncated.end);
  LayoutHandle reordered = layoutLine(withEllipsis(text, begin, end), paragraph, direction);
  int reorderedWidth = 0;
  pango_layout_get_size(reordered.get(), &reorderedWidth, nullptr);
  return reorderedWidth <= width * PANGO_SCALE ? std::move(reordered) : std::move(layout);
}

}  // namespace drawing
