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

// Returns the maximum width of a line, rounded down to whole pixels. Measured widths are rounded up to whole pixels.
// Therefore, a layout whose width was measured has the same lines as during the measurement.
double maxLineWidth(double width, double scale) {
  if (width > 0 && std::isfinite(width)) return std::max(floorToPixel(width, scale), 1 / scale);
  return unlimited;
}

struct Measure {
  Size size;
  int lines = 0;
};

// Caches the measured sizes of recent texts, because new layouts often measure the same text again.
class MeasureCache {
 public:
  const Measure* find(const std::string& key) const {
    const auto entry = measures_.find(key);
    return entry == measures_.end() ? nullptr : &entry->second;
  }
  void insert(const std::string& key, const Measure& measure) {
    if (key.size() > maxKeyLength) return;
    if (measures_.size() >= maxEntries) measures_.clear();
    measures_.emplace(key, measure);
  }

 private:
  static constexpr std::size_t maxKeyLength = 4096;
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

// Returns a key that contains everything that affects the size of the text.
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

  // The results of the last calls. They are stored because they are usually needed again in the next frame.
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
    const std::string key = keyOf(plainTextFor(width, paragraph.maxLines), paragraph, width, scale);
    const Measure* cached = measureCache().find(key);
    lastMeasure = {width, cached ? *cached : computeMeasure(width)};
    if (!cached) measureCache().insert(key, lastMeasure->second);
    return lastMeasure->second;
  }

  // Returns how many of the allowed lines fit into the height, but at least one.
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
