#include "mutation/campaign.hpp"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>
#include <ranges>

#include "mutation/files.hpp"
#include "mutation/fingerprint.hpp"
#include "mutation/mutant_finder.hpp"
#include "mutation/mutant_json.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using Clock = std::chrono::steady_clock;

std::vector<MutantKey> keysOf(const std::vector<Mutant>& mutants) {
  std::vector<MutantKey> keys;
  std::map<std::string, int> occurrences;
  for (const Mutant& mutant : mutants) {
    const std::string function = mutant.file + "|" + mutant.function;
    const std::string text = function + "|" + mutant.original + "|" + mutant.replacement;
    keys.push_back({text + "|" + std::to_string(occurrences[text]++), function, mutant.file});
  }
  return keys;
}

// std::shuffle is not used, because its result differs between implementations of the standard library.
void shuffle(std::vector<std::size_t>& order, std::uint64_t seed) {
  std::mt19937_64 random(seed);
  for (std::size_t remaining = order.size(); remaining > 1; --remaining)
    std::swap(order[remaining - 1], order[random() % remaining]);
}

Clock::time_point after(double seconds) {
  return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

MutantResult withoutTests(State state) { return {state, "", Outcome::Passed, 0}; }

}  // namespace

Campaign::Campaign(CampaignFolders folders, std::size_t maxFirstTests)
    : folders_(std::move(folders)),
      maxFirstTests_(maxFirstTests),
      lock_(folders_.output),
      library_(folders_.tree, folders_.configured, folders_.output) {}

void Campaign::prepare() {
  const std::string sources = fingerprintOfSources(folders_.tree, library_.commands());
  findMutants(sources);
  keys_ = keysOf(found_.mutants);
  for (std::size_t index = 0; index < found_.bodies.size(); ++index) {
    const auto number = static_cast<unsigned>(found_.mutants.size() + index + 1);
    if (isSwitched_[number]) bodyNumbers_[found_.bodies[index].symbol] = number;
  }
  reference_ =
      runWithoutMutant({folders_.configured, folders_.output, library_.switchedLibrary()}, sources, numberCount());
  fingerprints_ = {sources, reference_.fingerprint, {}};
  for (const KnownTest& test : reference_.tests) fingerprints_.test[test.test.name] = test.fingerprint;
}

void Campaign::findMutants(const std::string& fingerprint) {
  const fs::path file = folders_.output / "prepared.json";
  if (fs::exists(file) && fs::exists(library_.switchedLibrary())) {
    const Json json = Json::parse(readFile(file), nullptr, false);
    if (!json.is_discarded() && json.value("fingerprint", "") == fingerprint) {
      found_ = mutantsOf(json);
      isSwitched_ = json.at("isSwitched").get<std::vector<bool>>();
      return;
    }
  }
  MutantFinder finder(folders_.tree, "library");
  for (const std::string& source : library_.sources())
    finder.addSource(folders_.tree / source, library_.languageOptions(source));
  found_ = finder.found();
  std::cerr << "mutants: found " << found_.mutants.size() << " mutants\n";
  fs::remove(file);
  fs::remove_all(folders_.output / "switched");
  isSwitched_ = library_.buildSwitched(found_);
  Json json = jsonOf(found_);
  json["fingerprint"] = fingerprint;
  json["isSwitched"] = isSwitched_;
  writeFile(file, json.dump());
}

// Returns numbers of which at least one is logged if the mutant is executed. The result is empty if they are unknown.
std::vector<unsigned> Campaign::numbersOf(std::size_t mutant) const {
  if (isSwitched_[mutant + 1]) return {static_cast<unsigned>(mutant + 1)};
  std::vector<unsigned> numbers;
  for (const std::string& symbol : found_.mutants[mutant].executedBy) {
    const auto body = bodyNumbers_.find(symbol);
    // The execution of a function is not logged if the compiler evaluates the function.
    if (body == bodyNumbers_.end()) return {};
    numbers.push_back(body->second);
  }
  return numbers;
}

std::vector<const KnownTest*> Campaign::testsFor(std::size_t mutant, const ResultFile& results) const {
  TestQuery query;
  query.numbers = numbersOf(mutant);
  query.words = wordsOf(found_.mutants[mutant].function + " " + found_.mutants[mutant].original);
  for (const std::string& symbol : found_.mutants[mutant].related)
    if (const auto body = bodyNumbers_.find(symbol); body != bodyNumbers_.end()) query.related.push_back(body->second);
  results.addKills(keys_[mutant], query);
  return orderedTests(reference_.tests, query);
}

std::optional<MutantResult> Campaign::testFirst(std::size_t mutant, const TestFolder& folder, const ResultFile& results,
                                                TimePoint deadline) const {
  std::vector<const KnownTest*> tests = testsFor(mutant, results);
  if (tests.empty()) return withoutTests(State::NotExecuted);
  const bool isSelection = tests.size() > maxFirstTests_;
  if (isSelection) tests.resize(maxFirstTests_);
  std::optional<MutantResult> result = test(mutant, folder, tests, deadline);
  if (result && result->state == State::Survived && isSelection) {
    result->state = State::SurvivedFirstTests;
    for (const KnownTest* known : tests) result->passedTests.push_back(known->test.name);
  }
  return result;
}

std::optional<MutantResult> Campaign::testAgain(std::size_t mutant, const MutantResult& first, const TestFolder& folder,
                                                const ResultFile& results, TimePoint deadline) const {
  std::vector<const KnownTest*> tests = testsFor(mutant, results);
  std::erase_if(tests, [&](const KnownTest* known) {
    return std::ranges::find(first.passedTests, known->test.name) != first.passedTests.end();
  });
  std::optional<MutantResult> result = test(mutant, folder, tests, deadline);
  if (!result) return result;
  result->testCount += first.testCount;
  result->seconds += first.seconds;
  std::ranges::copy(first.unreliableTests, std::back_inserter(result->unreliableTests));
  return result;
}

std::optional<MutantResult> Campaign::test(std::size_t mutant, const TestFolder& folder,
                                           const std::vector<const KnownTest*>& tests, TimePoint deadline) const {
  const bool isSwitched = isSwitched_[mutant + 1];
  const fs::path changed = folder.path() / "mutant/lib/brim/libBrim.so";
  if (!isSwitched) {
    const LibraryBuild::Result built = library_.buildWith(found_.mutants[mutant], folder.path() / "mutant");
    if (built == LibraryBuild::Result::DoesNotCompile) return withoutTests(State::DoesNotCompile);
    if (built == LibraryBuild::Result::ChangesNothing) return withoutTests(State::ChangesNothing);
  }
  const auto runWith = [&](const KnownTest& known) {
    folder.useLibrary(isSwitched ? library_.switchedLibrary() : changed);
    const auto selected = isSwitched ? static_cast<unsigned>(mutant + 1) : 0;
    return folder.run(known.test, selected, numberCount(), limitsOf(known)).outcome;
  };
  const auto runWithout = [&](const KnownTest& known) {
    folder.useLibrary(library_.switchedLibrary());
    return folder.run(known.test, 0, numberCount(), limitsOf(known)).outcome;
  };
  MutantResult result;
  for (const KnownTest* known : tests) {
    if (Clock::now() > deadline) return std::nullopt;
    ++result.testCount;
    const Outcome outcome = runWith(*known);
    if (outcome == Outcome::Passed) continue;
    // The test is repeated, because it can also fail due to the machine's load.
    if (runWithout(*known) == Outcome::Passed && runWith(*known) != Outcome::Passed) {
      result.state = State::Killed;
      result.test = known->test.name;
      result.outcome = outcome;
      return result;
    }
    result.unreliableTests.push_back(known->test.name);
  }
  return result;
}

void Campaign::runPhase(Phase phase, const std::vector<std::size_t>& order, TimePoint deadline) const {
  const ShortFolder temporary(folders_.output / "temporary");
  inProcesses([&](unsigned worker, Shared& shared) {
    const std::string name = std::to_string(worker);
    const TestFolder folder(folders_.configured, folders_.output / ("worker" + name), temporary.path() / name);
    ResultFile results(folders_.output / "results.jsonl", fingerprints_);
    for (std::size_t place = shared.next++; place < order.size() && Clock::now() < deadline; place = shared.next++) {
      const std::size_t mutant = order[place];
      results.update();
      const MutantResult* const known = results.find(keys_[mutant].text);
      if (phase == Phase::First ? known != nullptr : known == nullptr || known->state != State::SurvivedFirstTests)
        continue;
      const TimePoint start = Clock::now();
      std::optional<MutantResult> result = phase == Phase::First ? testFirst(mutant, folder, results, deadline)
                                                                 : testAgain(mutant, *known, folder, results, deadline);
      if (!result) return;
      result->seconds += std::chrono::duration<double>(Clock::now() - start).count();
      results.append(keys_[mutant], *result);
      if (const std::size_t done = ++shared.done; done % 50 == 0)
        std::cerr << "mutants: tested " << done << " mutants\n";
    }
  });
}

std::vector<std::size_t> Campaign::run(const std::map<std::size_t, std::string>& excluded,
                                       const std::optional<Sample>& sample) {
  std::vector<std::size_t> order;
  for (std::size_t index = 0; index < found_.mutants.size(); ++index)
    if (!excluded.contains(index)) order.push_back(index);
  if (sample) shuffle(order, sample->seed);
  const TimePoint deadline = sample ? after(sample->seconds) : TimePoint::max();
  runPhase(Phase::First, order, sample ? after(sample->seconds * 0.75) : TimePoint::max());
  if (sample) {
    // The sample ends at the first mutant without a result. The results of later mutants are discarded, because a
    // survivor takes longer than a kill, so survivors would be underrepresented among them.
    const std::map<std::size_t, MutantResult> all = results();
    order.erase(std::ranges::find_if_not(order, [&](std::size_t mutant) { return all.contains(mutant); }), order.end());
  }
  std::cerr << "mutants: running the other tests with the survivors\n";
  runPhase(Phase::Second, order, deadline);
  return order;
}

std::map<std::size_t, MutantResult> Campaign::results() const {
  const ResultFile file(folders_.output / "results.jsonl", fingerprints_);
  std::map<std::size_t, MutantResult> results;
  for (std::size_t index = 0; index < keys_.size(); ++index)
    if (const MutantResult* result = file.find(keys_[index].text)) results[index] = *result;
  return results;
}

void Campaign::runAllTests(const fs::path& library) const {
  const ShortFolder temporary(folders_.output / "temporary");
  inProcesses([&](unsigned worker, Shared& shared) {
    const std::string name = std::to_string(worker);
    const TestFolder folder(folders_.configured, folders_.output / ("worker" + name), temporary.path() / name);
    folder.useLibrary(library);
    for (std::size_t index = shared.next++; index < reference_.tests.size(); index = shared.next++) {
      const Test& test = reference_.tests[index].test;
      const TestRun run = folder.run(test, 0, numberCount(), limitsWithoutMutant);
      if (run.outcome != Outcome::Passed) std::cerr << "mutants: " << test.name << " failed\n";
    }
  });
}

}  // namespace mutation
