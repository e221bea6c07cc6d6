#include "mutation/test_order.hpp"

#include <algorithm>
#include <functional>
#include <set>
#include <tuple>

namespace mutation {

namespace {

constexpr std::size_t specificTestCount = 10;
constexpr std::size_t minWordLength = 5;
constexpr std::size_t minMatchingLetters = 10;
// The tests that take less time are not distinguished by their time.
constexpr double minProcessorSeconds = 0.1;

std::size_t countOf(const KillCounts& kills, const std::string& test) {
  const auto found = kills.find(test);
  return found == kills.end() ? 0 : found->second;
}

std::string lowerCased(std::string text) {
  for (char& character : text)
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  return text;
}

std::size_t lettersIn(const std::string& name, const std::vector<std::string>& words) {
  std::size_t letters = 0;
  for (const std::string& word : words)
    if (name.find(word) != std::string::npos) letters += word.size();
  return letters;
}

// Returns the name of the suite, without the instance and the parameter of a parameterized test.
std::string suiteOf(const std::string& test) {
  const std::size_t end = std::min(test.find('.'), test.size());
  const std::size_t slash = test.rfind('/', end);
  const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
  return test.substr(begin, end - begin);
}

struct Ranked {
  const KnownTest* test;
  bool isLastKiller;
  std::size_t letters;  // the number of letters of the words in the test's name
  std::size_t functionKills;
  std::size_t related;
  std::size_t fileKills;
  std::size_t place = 0;  // the position in the suite

  // Ignores short words, because they can be in the name by coincidence.
  std::size_t strongMatch() const { return letters >= minMatchingLetters ? letters : 0; }
  auto order() const {
    return std::tuple(!isLastKiller, ~strongMatch(), ~functionKills, ~related, ~letters, ~fileKills, test->reachedCount,
                      test->seconds);
  }
};

}  // namespace

std::vector<std::string> wordsOf(const std::string& text) {
  std::set<std::string> words;
  std::string identifier;
  std::string part;
  const auto take = [&](std::string& word) {
    if (word.size() >= minWordLength) words.insert(lowerCased(word));
    word.clear();
  };
  for (const char character : text + " ") {
    const bool isUpperCase = character >= 'A' && character <= 'Z';
    const bool isLetter = isUpperCase || (character >= 'a' && character <= 'z');
    if (isUpperCase || !isLetter) take(part);
    if (isLetter) part += character;
    if (isLetter || (character == '_' && !identifier.empty())) {
      identifier += character;
    } else {
      take(identifier);
    }
  }
  return {words.begin(), words.end()};
}

std::vector<const KnownTest*> orderedTests(const std::vector<KnownTest>& tests, const TestQuery& query) {
  std::vector<Ranked> ranked;
  for (const KnownTest& test : tests) {
    const auto reaches = [&](unsigned number) { return test.reached[number]; };
    if (!query.numbers.empty() && std::ranges::none_of(query.numbers, reaches)) continue;
    const std::string& name = test.test.name;
    ranked.push_back(
        {&test, name == query.lastKiller, lettersIn(lowerCased(name), query.words), countOf(query.functionKills, name),
         static_cast<std::size_t>(std::ranges::count_if(query.related, reaches)), countOf(query.fileKills, name)});
  }
  std::ranges::sort(ranked, {}, &Ranked::order);
  const auto isFirst = [](const Ranked& entry) {
    return entry.isLastKiller || entry.strongMatch() > 0 || entry.functionKills > 0;
  };
  const auto others = std::ranges::find_if_not(ranked, isFirst);
  const auto specificCount = std::min<std::ptrdiff_t>(specificTestCount, ranked.end() - others);
  const auto general = others + specificCount;
  // A test that executes little code rarely detects a change to code that most tests execute. The tests that start
  // other processes take ten times as long as the others.
  std::ranges::stable_sort(general, ranked.end(), std::greater(), [](const Ranked& entry) {
    return static_cast<double>(entry.test->reachedCount) / (entry.test->processorSeconds + minProcessorSeconds);
  });
  std::map<std::string, std::size_t> places;
  for (auto entry = general; entry != ranked.end(); ++entry) entry->place = places[suiteOf(entry->test->test.name)]++;
  std::ranges::stable_sort(general, ranked.end(), {}, &Ranked::place);
  std::vector<const KnownTest*> ordered;
  ordered.reserve(ranked.size());
  for (const Ranked& entry : ranked) ordered.push_back(entry.test);
  return ordered;
}

}  // namespace mutation
