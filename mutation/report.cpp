#include "mutation/report.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>
#include <sstream>

namespace mutation {

namespace {

std::string decimal(double number) {
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "%.1f", number);
  return text.data();
}

double share(std::size_t part, std::size_t whole) {
  return whole == 0 ? 100 : 100 * static_cast<double>(part) / static_cast<double>(whole);
}

void count(Score& score, State state) {
  if (state == State::Killed) ++score.killed;
  if (state == State::Survived || state == State::SurvivedFirstTests || state == State::NotExecuted) ++score.survived;
}

// Returns the score for each value of a property of the mutants.
template <class Property>
std::map<std::string, Score> scoresBy(const ReportData& data, Property property) {
  std::map<std::string, Score> scores;
  for (const std::size_t index : data.selected)
    if (const auto result = data.results.find(index); result != data.results.end())
      count(scores[data.mutants[index].*property], result->second.state);
  return scores;
}

void writeScores(std::ostream& text, const char* title, const std::map<std::string, Score>& scores) {
  text << "| " << title << " | killed | survived | score in % |\n|---|---|---|---|\n";
  for (const auto& [name, score] : scores) {
    if (score.killed + score.survived > 0)
      text << "| " << name << " | " << score.killed << " | " << score.survived << " | " << decimal(score.percent())
           << " |\n";
  }
  text << "\n";
}

void writeMutant(std::ostream& text, const Mutant& mutant) {
  text << mutant.file << ":" << mutant.line << ", " << (mutant.function.empty() ? "no function" : mutant.function)
       << " (" << mutant.operation << ")\n\n```diff\n- " << mutant.original << "\n+ " << mutant.replacement
       << "\n```\n\n";
}

void writeState(std::ostream& text, const ReportData& data, State state, const char* title) {
  bool hasTitle = false;
  std::vector<std::size_t> ordered = data.selected;
  std::ranges::sort(ordered);
  for (const std::size_t index : ordered) {
    const auto result = data.results.find(index);
    if (result == data.results.end() || result->second.state != state) continue;
    if (!hasTitle) text << "## " << title << "\n\n";
    hasTitle = true;
    writeMutant(text, data.mutants[index]);
  }
}

void writeCoverage(std::ostream& text, const std::map<std::string, FileCoverage>& coverage) {
  text << "## Coverage\n\n| file | lines in % | branches in % | lines not executed |\n|---|---|---|---|\n";
  std::size_t lines = 0;
  std::size_t executedLines = 0;
  std::size_t branches = 0;
  std::size_t takenBranches = 0;
  for (const auto& [name, file] : coverage) {
    std::size_t executed = 0;
    std::string missing;
    for (const auto& [line, isExecuted] : file.lines) {
      executed += isExecuted ? 1 : 0;
      if (!isExecuted) missing += (missing.empty() ? "" : ", ") + std::to_string(line);
    }
    lines += file.lines.size();
    executedLines += executed;
    branches += file.branches;
    takenBranches += file.takenBranches;
    text << "| " << name << " | " << decimal(share(executed, file.lines.size())) << " | "
         << decimal(share(file.takenBranches, file.branches)) << " | " << missing << " |\n";
  }
  text << "| all | " << decimal(share(executedLines, lines)) << " | " << decimal(share(takenBranches, branches))
       << " | |\n\n";
}

}  // namespace

double Score::percent() const { return share(killed, killed + survived); }

Score scoreOf(const ReportData& data) {
  Score score;
  for (const std::size_t index : data.selected)
    if (const auto result = data.results.find(index); result != data.results.end()) count(score, result->second.state);
  return score;
}

std::string report(const ReportData& data) {
  std::ostringstream text;
  const Score score = scoreOf(data);
  std::map<State, std::size_t> counts;
  std::map<Outcome, std::size_t> outcomes;
  std::size_t waiting = 0;
  double seconds = 0;
  std::set<std::string> unreliable;
  for (const std::size_t index : data.selected) {
    const auto result = data.results.find(index);
    if (result == data.results.end()) {
      ++waiting;
      continue;
    }
    ++counts[result->second.state];
    seconds += result->second.seconds;
    unreliable.insert(result->second.unreliableTests.begin(), result->second.unreliableTests.end());
    if (result->second.state == State::Killed) ++outcomes[result->second.outcome];
  }
  text << "# Mutation test\n\nScore: " << decimal(score.percent()) << " %\n\n| | |\n|---|---|\n";
  text << "| mutants of the library | " << data.mutants.size() << " |\n";
  text << "| selected | " << data.selected.size() << " |\n";
  text << "| killed: a test failed | " << outcomes[Outcome::Failed] << " |\n";
  text << "| killed: endless loop, by the number of executed mutants | " << outcomes[Outcome::TooManyCalls] << " |\n";
  text << "| killed: time limit | " << outcomes[Outcome::TooLong] << " |\n";
  text << "| survived | " << counts[State::Survived] << " |\n";
  text << "| survived the first tests; the other tests did not run | " << counts[State::SurvivedFirstTests] << " |\n";
  text << "| survived: not executed by any test | " << counts[State::NotExecuted] << " |\n";
  text << "| equivalent, with a reason; not in the score | " << data.equivalents.size() << " |\n";
  text << "| do not compile; not in the score | " << counts[State::DoesNotCompile] << " |\n";
  text << "| removed by the preprocessor or the compiler; not in the score | " << counts[State::ChangesNothing]
       << " |\n";
  text << "| not tested yet | " << waiting << " |\n";
  text << "| seconds of a process per mutant | "
       << decimal(seconds / static_cast<double>(std::max<std::size_t>(1, data.selected.size() - waiting))) << " |\n";
  text << "| tests that execute the library | " << data.testCount << " |\n\n";
  if (!data.failedTests.empty()) {
    text << "## Tests that fail without a mutant\n\nThese tests were not used.\n\n";
    for (const std::string& test : data.failedTests) text << "- " << test << "\n";
    text << "\n";
  }
  if (!unreliable.empty()) {
    text << "## Unreliable tests\n\nThese tests failed with a mutant, but then also without it or not again.\n\n";
    for (const std::string& test : unreliable) text << "- " << test << "\n";
    text << "\n";
  }
  text << "## Scores\n\n";
  writeScores(text, "file", scoresBy(data, &Mutant::file));
  writeScores(text, "change", scoresBy(data, &Mutant::operation));
  writeState(text, data, State::NotExecuted, "Mutants that no test executes");
  writeState(text, data, State::Survived, "Survivors");
  writeState(text, data, State::SurvivedFirstTests, "Survivors of the first tests");
  if (!data.equivalents.empty()) text << "## Equivalent mutants\n\n";
  for (const auto& [index, reason] : data.equivalents) {
    text << reason << "\n\n";
    writeMutant(text, data.mutants[index]);
  }
  if (!data.coverage.empty()) writeCoverage(text, data.coverage);
  return text.str();
}

}  // namespace mutation
