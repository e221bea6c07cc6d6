#include "bench/benchmarks.hpp"

#include <string>

#include "bench/measurement.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace bench {

namespace {

constexpr std::size_t rounds = 200;
constexpr double width = 300;

drawing::TextLayout layoutOf(std::string text) {
  drawing::Paragraph paragraph;
  paragraph.maxLines = 2;
  paragraph.runs.push_back({std::move(text), {drawing::systemFontFamily, 13}, {}});
  return {std::move(paragraph), 2};
}

double timeOf(const drawing::TextLayout& layout) {
  const double start = processorTime();
  layout.measure(width);
  return processorTime() - start;
}

std::string body(std::size_t round, std::size_t bytes) {
  std::string text = "Message " + std::to_string(round) + " of " + std::to_string(bytes) + ": ";
  while (text.size() < bytes) text += "are we still on for lunch today? ";
  return text;
}

// Returns the median time, in seconds, of measuring a new text. The texts begin with different words, so no result is
// in the cache.
double timeOfNewTexts(std::size_t count, std::size_t bytes) {
  Figures times;
  for (std::size_t round = 0; round < count; ++round) times.push_back(timeOf(layoutOf(body(round, bytes))));
  return median(times);
}

// Returns the median time, in seconds, of measuring a text whose size is in the cache.
double timeOfKnownText() {
  Figures times;
  for (std::size_t round = 0; round < rounds; ++round) times.push_back(timeOf(layoutOf(body(0, 200))));
  return median(times);
}

}  // namespace

void measureText() {
  const double timeOfNewText = timeOfNewTexts(rounds, 200);
  report("measuring a known text / a new text", timeOfKnownText() / timeOfNewText, 0.1);
  constexpr std::size_t shortText = 10'000;
  constexpr std::size_t longText = 10'000'000;
  report("measuring two lines of a 10 MB text / a 10 kB text",
         timeOfNewTexts(21, longText) / timeOfNewTexts(21, shortText), 2.0);
}

}  // namespace bench
