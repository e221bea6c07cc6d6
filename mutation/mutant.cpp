#include "mutation/mutant.hpp"

#include <algorithm>

namespace mutation {

namespace {

// Joins the lines without indentation and trailing spaces.
std::string unindented(const std::string& lines) {
  std::string joined;
  for (const char character : lines) {
    const bool isSpace = character == ' ' || character == '\n';
    if (!isSpace) {
      joined += character;
    } else if (!joined.empty() && joined.back() != ' ') {
      joined += ' ';
    }
  }
  if (!joined.empty() && joined.back() == ' ') joined.pop_back();
  return joined;
}

}  // namespace

std::string mutated(const std::string& text, const Mutant& mutant) {
  std::string result = text;
  for (auto edit = mutant.edits.rbegin(); edit != mutant.edits.rend(); ++edit)
    result.replace(edit->begin, edit->end - edit->begin, edit->replacement);
  return result;
}

void describe(Mutant& mutant, const std::string& text) {
  const std::size_t first = mutant.edits.front().begin;
  const std::size_t lineBreak = first == 0 ? std::string::npos : text.rfind('\n', first - 1);
  const std::size_t begin = lineBreak == std::string::npos ? 0 : lineBreak + 1;
  const std::size_t end = std::min(text.find('\n', std::max(first, mutant.edits.back().end)), text.size());
  const std::string after = mutated(text, mutant);
  const std::size_t endAfter = end + after.size() - text.size();
  mutant.line =
      static_cast<unsigned>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(first), '\n')) + 1;
  mutant.original = unindented(text.substr(begin, end - begin));
  mutant.replacement = unindented(after.substr(begin, endAfter - begin));
}

}  // namespace mutation
