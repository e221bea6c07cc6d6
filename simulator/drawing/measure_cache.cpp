#include "simulator/drawing/measure_cache.hpp"

namespace drawing {

namespace {

void appendNumber(std::string& key, double number) {
  key.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void appendText(std::string& key, const std::string& text) {
  appendNumber(key, static_cast<double>(text.size()));
  key += text;
}

}  // namespace

const Measure* MeasureCache::find(const std::string& key) const {
  const auto entry = measures_.find(key);
  return entry == measures_.end() ? nullptr : &entry->second;
}

void MeasureCache::insert(const std::string& key, const Measure& measure) {
  if (key.size() > maxKeyLength) return;
  if (measures_.size() >= maxEntries) measures_.clear();
  measures_.emplace(key, measure);
}

MeasureCache& measureCache() {
  static auto* const cache = new MeasureCache;
  return *cache;
}

std::string measureKey(const PlainText& text, const Paragraph& paragraph, double width, double scale) {
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

}  // namespace drawing
