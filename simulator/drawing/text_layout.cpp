#include "simulator/drawing/text_layout.hpp"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/line_breaking.hpp"
#include "simulator/drawing/pixel_grid.hpp"

namespace drawing {
namespace {

constexpr double unlimited = std::numeric_limits<double>::infinity();

// On the pixel grid as the result is, so that rounding up makes no room for another word.
double limitOf(double width, double scale) {
  if (width > 0 && std::isfinite(width)) return std::max(floorToPixel(width, scale), 1 / scale);
  return unlimited;
}

struct Measure {
  Size size;
  int lines = 0;
};

// Measures of recent texts, because the same text is measured over and over by layouts made anew.
class MeasureCache {
 public:
  const Measure* find(const std::string& key) const {
    const auto entry = measures_.find(key);
    return entry == measures_.end() ? nullptr : &entry->second;
  }
  void insert(const std::string& key, const Measure& measure) {
    if (key.size() > maxKey) return;
    if (measures_.size() >= maxEntries) measures_.clear();
    measures_.emplace(key, measure);
  }

 private:
  static constexpr std::size_t maxKey = 4096;
  static constexpr std::size_t maxEntries = 256;
  std::unordered_map<std::string, Measure> measures_;
};

MeasureCache& measureCache() {
  static auto* const cache = new MeasureCache;
  return *cache;
}

void appendNumber(std::string& key, double number) {
  key.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void appendText(std::string& key, const std::string& text) {
  appendNumber(key, static_cast<double>(text.size()));
  key += text;
}

// All that the measure depends on.
std::string keyOf(const PlainText& text, const Paragraph& paragraph, double width, double scale) {
  std::string key;
  for (const Span& span : text.spans) {
    const Font& font = paragraph.runs[span.run].font;
    appendText(key, font.family);
    appendNumber(key, font.size);
    appendNumber(key, static_cast<double>(font.weight));
    appendNumber(key, static_cast<double>(span.end));
  }
  appendText(key, paragraph.language);
  for (const double number : {static_cast<double>(paragraph.direction), static_cast<double>(paragraph.maxLines),
                              static_cast<double>(paragraph.lineBreak), width, scale}) {
    appendNumber(key, number);
  }
  return key + text.text;
}

const Font* maxFont(const Paragraph& paragraph) {
  const Font* largest = nullptr;
  for (const Run& run : paragraph.runs) {
    if (run.text.empty() || effectiveSize(run.font) == 0) continue;
    if (!largest || run.font.size > largest->size) largest = &run.font;
  }
  return largest;
}

double shareOnTheLeft(Alignment alignment, BaseDirection direction) {
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
  // Of the largest font.
  double lineHeight = 0;
  double baseline = 0;

  // What was asked for last, kept for the next frame.
  struct Broken {
    double width;
    int lines;
    BrokenText text;
  };
  std::optional<Broken> broken;
  std::optional<std::pair<double, Measure>> lastMeasure;

  PlainText plainTextFor(double width, int lines) const {
    return plainText(paragraph, textLimit(paragraph, width, lines));
  }

  const BrokenText& linesFor(double width, int lines) {
    if (!broken || broken->width != width || broken->lines != lines) {
      broken = {width, lines, breakLines(plainTextFor(width, lines), paragraph, width, lines)};
    }
    return broken->text;
  }

  Measure measureAnew(double width) {
    const BrokenText& text = linesFor(width, paragraph.maxLines);
    double widest = 0;
    for (const BrokenLine& line : text.lines) widest = std::max(widest, line.width);
    const auto lines = static_cast<int>(text.lines.size());
    return {{ceilToPixel(widest, scale), lines * lineHeight}, lines};
  }

  const Measure& measure(double widthLimit) {
    const double width = limitOf(widthLimit, scale);
    if (lastMeasure && lastMeasure->first == width) return lastMeasure->second;
    const std::string key = keyOf(plainTextFor(width, paragraph.maxLines), paragraph, width, scale);
    const Measure* known = measureCache().find(key);
    lastMeasure = {width, known ? *known : measureAnew(width)};
    if (!known) measureCache().insert(key, lastMeasure->second);
    return lastMeasure->second;
  }

  // The lines allowed that also fit the height.
  int linesFitting(double height) const {
    const int fitting = std::max(1, static_cast<int>(std::min(height / lineHeight + pixelTolerance, 100'000.0)));
    return paragraph.maxLines > 0 ? std::min(fitting, paragraph.maxLines) : fitting;
  }
};

TextLayout::TextLayout(Paragraph paragraph, double scale) : state_(std::make_unique<State>()) {
  state_->paragraph = std::move(paragraph);
  state_->scale = std::isfinite(scale) && scale > 0 ? scale : 1;
  if (const Font* font = maxFont(state_->paragraph)) {
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
  const BrokenText& text = state.linesFor(limitOf(rectangle.width, state.scale), state.linesFitting(rectangle.height));
  const double height = static_cast<double>(text.lines.size()) * state.lineHeight;
  const double share = shareOnTheLeft(state.paragraph.alignment, state.paragraph.direction);
  double top = rectangle.y + roundToPixel((rectangle.height - height) / 2, state.scale);

  cairo_t* context = canvas.context();
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
  for (const BrokenLine& line : text.lines) {
    const double left = rectangle.x + roundToPixel((rectangle.width - line.width) * share, state.scale);
    cairo_move_to(context, left, top + state.baseline);
    pango_cairo_show_layout_line(context, line.line);
    top += state.lineHeight;
  }
  cairo_new_path(context);
}

}  // namespace drawing
