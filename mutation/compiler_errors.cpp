#include "mutation/compiler_errors.hpp"

#include <regex>
#include <sstream>

namespace mutation {

namespace {

std::size_t placeOfLine(const std::string& text, unsigned long line, unsigned long column) {
  std::size_t place = 0;
  for (unsigned long current = 1; current < line; ++current) place = text.find('\n', place) + 1;
  return place + column - 1;
}

std::set<unsigned> numbersInLine(const SwitchedSource& source, unsigned long line) {
  const std::size_t begin = placeOfLine(source.text, line, 1);
  const std::size_t end = source.text.find('\n', begin);
  std::set<unsigned> numbers;
  for (const SwitchedSource::Range& range : source.ranges)
    if (range.begin >= begin && range.end <= end) numbers.insert(range.number);
  return numbers;
}

}  // namespace

std::set<unsigned> erroneousNumbers(const std::string& output, const CompilerFolders& folders,
                                    const std::map<std::string, SwitchedSource>& written, Lines lines) {
  static const std::regex pattern(R"(^([^: ]+):(\d+):(\d+): (.*))");
  std::set<unsigned> numbers;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);) {
    std::smatch match;
    if (!std::regex_match(line, match, pattern)) continue;
    if (lines == Lines::Errors && !match[4].str().starts_with("error")) continue;
    // A compiler cache can make the paths in the compiler's command relative to the working folder.
    const std::filesystem::path path = (folders.working / match[1].str()).lexically_normal();
    const auto source = written.find(path.lexically_relative(folders.switched.lexically_normal()).string());
    if (source == written.end()) continue;
    const unsigned long number = std::stoul(match[2]);
    std::set<unsigned> found = source->second.numbersAt(placeOfLine(source->second.text, number, std::stoul(match[3])));
    if (found.empty()) found = numbersInLine(source->second, number);
    numbers.merge(found);
  }
  return numbers;
}

}  // namespace mutation
