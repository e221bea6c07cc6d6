#include "simulator/drawing/truncation.hpp"

#include <algorithm>

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
  const TextContextHandle context = makeTextContext(paragraph.language, direction);
  LayoutHandle layout(pango_layout_new(context.get()));
  pango_layout_set_auto_dir(layout.get(), FALSE);
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
  setWidth(layout.get(), width);
  pango_layout_set_text(layout.get(), shown.text.data(), static_cast<int>(shown.text.size()));
  pango_layout_set_attributes(layout.get(), attributesOf(shown, paragraph).get());
  return layout;
}

}  // namespace drawing
