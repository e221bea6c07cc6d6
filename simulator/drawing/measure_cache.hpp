// Caches the measured sizes of recent texts, because new layouts often measure the same text again. Used by one thread
// at a time.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "simulator/drawing/geometry.hpp"
#include "simulator/drawing/plain_text.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {

// The size in points and the number of lines of a text.
struct Measure {
  Size size;
  int lines = 0;
};

class MeasureCache {
 public:
  // Returns null if the cache does not contain the key. The pointer is valid until the next call of insert().
  const Measure* find(const std::string& key) const;
  // Adds a measure. If the cache is full, all others are removed. A very long key is ignored.
  void insert(const std::string& key, const Measure& measure);

 private:
  static constexpr std::size_t maxKeyLength = 4096;
  static constexpr std::size_t maxEntries = 256;
  std::unordered_map<std::string, Measure> measures_;
};

// The cache of the process.
MeasureCache& measureCache();

// Returns a key that contains everything that affects the size of the text. `width` is the width of a line in points,
// and `scale` is the number of pixels per point.
std::string measureKey(const PlainText& text, const Paragraph& paragraph, double width, double scale);

}  // namespace drawing
