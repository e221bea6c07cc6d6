#include "simulator/drawing/text_layout.hpp"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/line_breaking.hpp"
#include "simulator/drawing/measure_cache.hpp"
#include "simulator/drawing/pixel_grid.hpp"

namespace drawing {
namespace {

constexpr double unlimited = std::numeric_limits<double>::infinity();

// Returns the maximum width of a line, rounded down to whole pixels. Measured widths are rounded up to whole pixels.
// Therefore, a layout whose width was measured has the same lines as during the measurement.
double maxLineWidth(double width, double scale) {
  if (width > 0 && std::isfinite(width)) return std::max(floorToPixel(width, scale), 1 / scale);
  return unlimited;
}

const Font* largestFont(const Paragraph& paragraph) {
  const Font* largest = nullptr;
  for (const Run& run : paragraph.runs) {
    if (run.text.empty() || effectiveSize(run.font) == 0) continue;
    if (!largest || run.font.size > largest->size) largest = &run.font;
  }
  return largest;
}

// Returns the fraction of the free width that is to the left of a line.
double leftFraction(Alignment alignment, BaseDirection direction) {
  switch (alignment) {
    case Alignment::Left:
      return 0;
    case Alignment::Center:
      return 0.5;
    case Alignment::Right:
      return 1;
    case Alignment::Natural:
      break;
  }
  return direction == BaseDirection::RightToLeft ? 1 : 0;
}

}  // namespace

struct TextLayout::State {
  Paragraph paragraph;
  double scale;
  // The metrics of the largest font in the paragraph.
  double lineHeight = 0;
  double baseline = 0;

  // The results of the last calls. They are cached because the next frame usually needs them again.
  struct LastBreak {
    double width;
    int lines;
    BrokenText text;
  };
  std::optional<LastBreak> lastBreak;
  std::optional<std::pair<double, Measure>> lastMeasure;

  PlainText plainTextFor(double width, int lines) const {
    return plainText(paragraph, textLimit(paragraph, width, lines));
  }

  const BrokenText& linesFor(double width, int lines) {
    if (!lastBreak || lastBreak->width != width || lastBreak->lines != lines) {
      lastBreak = {width, lines, breakLines(plainTextFor(width, lines), paragraph, width, lines)};
    }
    return lastBreak->text;
  }

  Measure computeMeasure(double width) {
    const BrokenText& text = linesFor(width, paragraph.maxLines);
    double widest = 0;
    for (const BrokenLine& line : text.lines) widest = std::max(widest, line.width);
    const auto lines = static_cast<int>(text.lines.size());
    return {{ceilToPixel(widest, scale), lines * lineHeight}, lines};
  }

  const Measure& measure(double widthLimit) {
    const double width = maxLineWidth(widthLimit, scale);
    if (lastMeasure && lastMeasure->first == width) return lastMeasure->second;
    const std::string key = measureKey(plainTextFor(width, paragraph.maxLines), paragraph, width, scale);
    const Measure* cached = measureCache().find(key);
    lastMeasure = {width, cached ? *cached : computeMeasure(width)};
    if (!cached) measureCache().insert(key, lastMeasure->second);
    return lastMeasure->second;
  }

  // Returns the number of allowed lines that fit into the height, but at least 1.
  int linesFitting(double height) const {
    const int fitting = std::max(1, static_cast<int>(std::min(height / lineHeight + pixelTolerance, 100'000.0)));
    return paragraph.maxLines > 0 ? std::min(fitting, paragraph.maxLines) : fitting;
  }
};

TextLayout::TextLayout(Paragraph paragraph, double scale) : state_(std::make_unique<State>()) {
  state_->paragraph = std::move(paragraph);
  state_->scale = std::isfinite(scale) && scale > 0 ? scale : 1;
  if (const Font* font = largestFont(state_->paragraph)) {
    state_->lineHeight = drawing::lineHeight(*font, state_->scale);
    state_->baseline = baselineOffset(*font, state_->scale);
  }
}

TextLayout::~TextLayout() = default;
TextLayout::TextLayout(TextLayout&&) noexcept = default;
TextLayout& TextLayout::operator=(TextLayout&&) noexcept = default;

const Paragraph& TextLayout::paragraph() const { return state_->paragraph; }

Size TextLayout::measure(double widthLimit) const { return state_->measure(widthLimit).size; }

int TextLayout::lineCount(double widthLimit) const { return state_->measure(widthLimit).lines; }

double TextLayout::firstBaseline() const { return state_->baseline; }

void TextLayout::draw(Canvas& canvas, const Rectangle& rectangle, const Color& color) const {
  State& state = *state_;
  if (state.lineHeight == 0 || !(rectangle.width > 0) || !(rectangle.height > 0)) return;
  const BrokenText& text =
      state.linesFor(maxLineWidth(rectangle.width, state.scale), state.linesFitting(rectangle.height));
  const double height = static_cast<double>(text.lines.size()) * state.lineHeight;
  const double fraction = leftFraction(state.paragraph.alignment, state.paragraph.direction);
  double top = rectangle.y + roundToPixel((rectangle.height - height) / 2, state.scale);

  cairo_t* context = canvas.context();
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
  for (const BrokenLine& line : text.lines) {
    const double left = rectangle.x + roundToPixel((rectangle.width - line.width) * fraction, state.scale);
    cairo_move_to(context, left, top + state.baseline);
    pango_cairo_show_layout_line(context, line.line);
    top += state.lineHeight;
  }
  cairo_new_path(context);
}

}  // namespace drawing
