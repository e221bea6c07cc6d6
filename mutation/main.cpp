// Mutation testing of the library. Writes report.md to the output folder. See docs/mutation.md.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

#include "mutation/campaign.hpp"
#include "mutation/coverage.hpp"
#include "mutation/equivalents.hpp"
#include "mutation/files.hpp"
#include "mutation/report.hpp"

namespace {

namespace fs = std::filesystem;

constexpr const char* usage =
    R"(usage: mutants TREE BUILD [--sample SECONDS] [--seed N] [--tests N] [--coverage] [--report]

  --sample SECONDS  test random mutants for this time, instead of all mutants
  --seed N          select another sample; without this option it is 1
  --tests N         run at most N tests with each mutant in the first phase; without this option 60
  --coverage        also measure the line and branch coverage
  --report          write the report of the results so far, and test no mutant
)";

struct Options {
  fs::path tree;
  fs::path build;
  std::optional<double> sample = std::nullopt;
  std::uint64_t seed = 1;
  std::size_t maxFirstTests = 60;
  bool measuresCoverage = false;
  bool onlyReports = false;
};

template <class Number, class Convert>
Number number(const std::string& option, const char* text, Convert convert) {
  char* end = nullptr;
  const Number value = static_cast<Number>(convert(text, &end));
  if (*text < '0' || *text > '9' || *end != '\0') throw std::runtime_error(option + " expects a number, not " + text);
  return value;
}

Options parse(std::span<char*> words) {
  if (words.size() < 2) throw std::runtime_error(usage);
  Options options = {fs::canonical(words[0]), fs::canonical(words[1])};
  for (std::size_t index = 2; index < words.size(); ++index) {
    const std::string word = words[index];
    const char* const value = index + 1 < words.size() ? words[index + 1] : "";
    if (word == "--sample") {
      options.sample = number<double>(word, value, [](const char* text, char** end) { return std::strtod(text, end); });
      ++index;
    } else if (word == "--seed") {
      options.seed =
          number<std::uint64_t>(word, value, [](const char* text, char** end) { return std::strtoull(text, end, 10); });
      ++index;
    } else if (word == "--tests") {
      options.maxFirstTests =
          number<std::size_t>(word, value, [](const char* text, char** end) { return std::strtoull(text, end, 10); });
      ++index;
    } else if (word == "--coverage") {
      options.measuresCoverage = true;
    } else if (word == "--report") {
      options.onlyReports = true;
    } else {
      throw std::runtime_error("there is no option " + word + "\n" + usage);
    }
  }
  return options;
}

std::map<std::string, mutation::FileCoverage> measuredCoverage(const mutation::Campaign& campaign,
                                                               const Options& options, const fs::path& folder) {
  fs::remove_all(folder);
  campaign.library().buildForCoverage(folder);
  campaign.runAllTests(folder / "lib/brim/libBrim.so");
  return mutation::readCoverage(folder / "objects", options.tree, "library/");
}

int run(const Options& options) {
  const fs::path output = options.build.parent_path() / "mutants";
  fs::create_directories(output);
  mutation::Campaign campaign({options.tree, options.build, output}, options.maxFirstTests);
  campaign.prepare();
  const mutation::Equivalents equivalents = mutation::matchEquivalents(
      mutation::readFile(options.tree / "mutation/equivalent_mutants.json"), campaign.mutants());
  if (!equivalents.errors.empty()) {
    for (const std::string& error : equivalents.errors) std::cerr << "mutants: " << error << "\n";
    return 1;
  }
  mutation::ReportData data = {campaign.mutants(),      {}, {}, equivalents.reasons, {}, campaign.failedTests(),
                               campaign.usedTestCount()};
  const std::optional<mutation::Sample> none;
  if (options.onlyReports) {
    for (const auto& [index, result] : campaign.results()) data.selected.push_back(index);
  } else {
    data.selected =
        campaign.run(equivalents.reasons, options.sample ? mutation::Sample{*options.sample, options.seed} : none);
  }
  data.results = campaign.results();
  if (options.measuresCoverage) data.coverage = measuredCoverage(campaign, options, output / "coverage");
  const mutation::Score score = mutation::scoreOf(data);
  if (score.killed + score.survived == 0) {
    std::cerr << "mutants: no mutant has a result; repeat the command with a longer --sample\n";
    return 1;
  }
  mutation::writeFile(output / "report.md", mutation::report(data));
  std::printf("mutants: %zu killed, %zu survived, score %.1f %%; the report is %s\n", score.killed, score.survived,
              score.percent(), (output / "report.md").c_str());
  return 0;
}

}  // namespace

int main(int count, char** words) {
  try {
    return run(parse(std::span(words, static_cast<std::size_t>(count)).subspan(1)));
  } catch (const std::exception& error) {
    std::cerr << "mutants: " << error.what() << "\n";
    return 1;
  }
}
