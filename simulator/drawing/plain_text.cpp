#include "simulator/drawing/plain_text.hpp"

#include <glib.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace drawing {
namespace {

constexpr std::size_t maxCharacters = 20'000;
// The time to lay out a paragraph grows with the square of the number of tabs.
constexpr std::size_t maxTabs = 500;

// Upper bounds for every script: the number of characters that fit into a width equal to the font size, and the number
// of zero-width characters in a line.
constexpr double maxCharactersPerFontSize = 8;
constexpr double maxZeroWidthCharactersPerLine = 64;

constexpr gunichar replacement = 0xFFFD;
constexpr gunichar omitted = 0;

struct Character {
  gunichar value;
  std::size_t length;
};

// Decodes the character at `position`, which must be before the end of the text.
Character characterAt(const std::string& text, std::size_t position) {
  const char* start = text.data() + position;
  if (*start == 0) return {omitted, 1};
  const auto rest = static_cast<gssize>(std::min<std::size_t>(text.size() - position, 6));
  const gunichar value = g_utf8_get_char_validated(start, rest);
  const bool isInvalid = value == static_cast<gunichar>(-1) || value == static_cast<gunichar>(-2);
  if (isInvalid) return {replacement, 1};
  return {value, static_cast<std::size_t>(g_utf8_next_char(start) - start)};
}

bool isControl(gunichar value) { return value < 0x20 || (value >= 0x7F && value < 0xA0); }

// Converts each kind of line ending to one line feed, and omits other control characters.
gunichar normalized(gunichar value, bool precedesLineFeed) {
  constexpr gunichar lineSeparator = 0x2028;
  constexpr gunichar paragraphSeparator = 0x2029;
  if (value == '\r') return precedesLineFeed ? omitted : gunichar{'\n'};
  if (value == lineSeparator || value == paragraphSeparator) return '\n';
  return isControl(value) && value != '\n' && value != '\t' ? omitted : value;
}

void append(std::string& text, gunichar value) {
  char bytes[6];
  text.append(bytes, static_cast<std::size_t>(g_unichar_to_utf8(value, bytes)));
}

// Collects the characters of all runs, up to a limit.
class Collector {
 public:
  explicit Collector(TextLimit limit) : remaining_(limit) {}

  void appendRun(const std::string& run) {
    for (std::size_t position = 0; position < run.size() && remaining_.characters > 0;) {
      const Character character = characterAt(run, position);
      position += character.length;
      const gunichar value = normalized(character.value, position < run.size() && run[position] == '\n');
      // Omitted characters also count toward the limit, because a text can consist of them alone.
      --remaining_.characters;
      if (value == '\n')
        appendLineFeed();
      else if (value == '\t')
        appendTab();
      else if (value != omitted)
        appendCharacter(value);
    }
  }

  const std::string& text() const { return text_; }
  std::string take() { return std::move(text_); }

 private:
  void appendLineFeed() {
    appendCharacter(remaining_.lineFeeds > 0 ? '\n' : ' ');
    if (remaining_.lineFeeds > 0) --remaining_.lineFeeds;
  }

  void appendTab() {
    appendCharacter(tabs_ < maxTabs ? '\t' : ' ');
    ++tabs_;
  }

  // Appends a character, after a zero-width space if the word is extremely long. The space splits the word, because the
  // time to break a word into lines grows with the square of its length.
  void appendCharacter(gunichar value) {
    constexpr gunichar zeroWidthSpace = 0x200B;
    constexpr std::size_t maxWordLength = 200;
    wordLength_ = g_unichar_isspace(value) ? 0 : wordLength_ + 1;
    if (wordLength_ > maxWordLength && g_unichar_isalnum(value)) {
      append(text_, zeroWidthSpace);
      wordLength_ = 1;
    }
    append(text_, value);
  }

  std::string text_;
  TextLimit remaining_;
  std::size_t wordLength_ = 0;
  std::size_t tabs_ = 0;
};

void removeFinalLineFeed(PlainText& text) {
  if (!text.text.ends_with('\n')) return;
  text.text.pop_back();
  Span& last = text.spans.back();
  if (--last.end == last.begin) text.spans.pop_back();
}

}  // namespace

TextLimit textLimit(const Paragraph& paragraph, double width, int lines) {
  if (lines <= 0) return {maxCharacters};
  // Each line feed ends a line. A line feed after the last line is not visible.
  const auto lineFeeds = static_cast<std::size_t>(lines);
  double smallest = std::numeric_limits<double>::infinity();
  for (const Run& run : paragraph.runs) {
    if (const double size = effectiveSize(run.font); size > 0) smallest = std::min(smallest, size);
  }
  if (!std::isfinite(width) || !std::isfinite(smallest)) return {maxCharacters, lineFeeds};
  // One additional line is necessary to detect that the text must be truncated.
  const double sufficient =
      (lines + 1.0) * (maxCharactersPerFontSize * width / smallest + maxZeroWidthCharactersPerLine);
  return {static_cast<std::size_t>(std::min(sufficient, static_cast<double>(maxCharacters))), lineFeeds};
}

PlainText plainText(const Paragraph& paragraph, TextLimit limit) {
  Collector collector(limit);
  PlainText result;
  for (std::size_t index = 0; index < paragraph.runs.size(); ++index) {
    const Run& run = paragraph.runs[index];
    if (effectiveSize(run.font) == 0) continue;
    const std::size_t begin = collector.text().size();
    collector.appendRun(run.text);
    const std::size_t end = collector.text().size();
    if (end > begin) result.spans.push_back({begin, end, index});
  }
  result.text = collector.take();
  removeFinalLineFeed(result);
  return result;
}

}  // namespace drawing
