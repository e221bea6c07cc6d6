#include "simulator/drawing/line_breaking.hpp"

#include <algorithm>

#include "simulator/drawing/text_attributes.hpp"
#include "simulator/drawing/truncation.hpp"

namespace drawing {
namespace {

LayoutHandle layoutAll(const PlainText& text, const Paragraph& paragraph, double width) {
  const TextContextHandle context = makeTextContext(paragraph.language, paragraph.direction);
  LayoutHandle layout(pango_layout_new(context.get()));
  pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
  setWidth(layout.get(), width);
  pango_layout_set_text(layout.get(), text.text.data(), static_cast<int>(text.text.size()));
  pango_layout_set_attributes(layout.get(), attributesOf(text, paragraph).get());
  return layout;
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
    result.layouts.push_back(truncateLine(text, paragraph, width, result.lines.back().line));
    result.lines.back() = measured(pango_layout_get_line_readonly(result.layouts.back().get(), 0));
  }
  return result;
}

}  // namespace drawing
