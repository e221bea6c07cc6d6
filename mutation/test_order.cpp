#include "mutation/test_order.hpp"

#include <algorithm>
#include <functional>
#include <tuple>

namespace mutation {

namespace {

constexpr std::size_t specificTestCount = 20;

std::size_t countOf(const KillCounts& kills, const std::string& test) {
  const auto found = kills.find(test);
  return found == kills.end() ? 0 : found->second;
}

// Without the instance and the parameter of a parameterized test.
std::string suiteOf(const std::string& test) {
  const std::size_t end = std::min(test.find('.'), test.size());
  const std::size_t slash = test.rfind('/', end);
  const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
  return test.substr(begin, end - begin);
}

struct Ranked {
  const KnownTest* test;
  bool isLastKiller;
  std::size_t functionKills;
  std::size_t related;
  std::size_t fileKills;
  std::size_t place = 0;  // in its suite

  auto order() const {
    return std::tuple(!isLastKiller, ~functionKills, ~related, ~fileKills, test->reachedCount, test->seconds);
  }
};

}  // namespace

std::vector<const KnownTest*> orderedTests(const std::vector<KnownTest>& tests, const TestQuery& query) {
  std::vector<Ranked> ranked;
  for (const KnownTest& test : tests) {
    const auto reaches = [&](unsigned number) { return test.reached[number]; };
    if (!query.numbers.empty() && std::ranges::none_of(query.numbers, reaches)) continue;
    const std::string& name = test.test.name;
    ranked.push_back({&test, name == query.lastKiller, countOf(query.functionKills, name),
                      static_cast<std::size_t>(std::ranges::count_if(query.related, reaches)),
                      countOf(query.fileKills, name)});
  }
  std::ranges::sort(ranked, {}, &Ranked::order);
  const auto isFirst = [](const Ranked& entry) { return entry.isLastKiller || entry.functionKills > 0; };
  const auto others = std::ranges::find_if_not(ranked, isFirst);
  const auto specificCount = std::min<std::ptrdiff_t>(specificTestCount, ranked.end() - others);
  std::map<std::string, std::size_t> places;
  for (auto entry = others + specificCount; entry != ranked.end(); ++entry)
    entry->place = places[suiteOf(entry->test->test.name)]++;
  std::ranges::stable_sort(others + specificCount, ranked.end(), {}, &Ranked::place);
  std::vector<const KnownTest*> ordered;
  for (const Ranked& entry : ranked) ordered.push_back(entry.test);
  return ordered;
}

}  // namespace mutation
