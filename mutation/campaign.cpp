#include "mutation/campaign.hpp"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <functional>
#include <iostream>
#include <limits>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "mutation/files.hpp"
#include "mutation/mutant_finder.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using Clock = std::chrono::steady_clock;

constexpr RunLimits limitsWithoutMutant = {std::numeric_limits<std::uint64_t>::max(), 120};

NLOHMANN_JSON_SERIALIZE_ENUM(State, {{State::Killed, "killed"},
                                     {State::Survived, "survived"},
                                     {State::NotExecuted, "not executed"},
                                     {State::DoesNotCompile, "does not compile"},
                                     {State::ChangesNothing, "changes nothing"}})

// FNV-1a.
class Fingerprint {
 public:
  void add(const std::string& text) {
    for (const char character : text) value_ = (value_ ^ static_cast<unsigned char>(character)) * 1099511628211U;
    value_ = (value_ ^ 0xFFU) * 1099511628211U;
  }
  std::string text() const { return std::to_string(value_); }

 private:
  std::uint64_t value_ = 14695981039346656037U;
};

std::vector<fs::path> filesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

std::string fingerprintOfSources(const fs::path& tree) {
  Fingerprint result;
  for (const char* folder : {"library", "mutation", "objc", "platform"})
    for (const fs::path& file : filesBelow(tree / folder))
      if (file.extension() == ".cpp" || file.extension() == ".hpp") {
        result.add(file.string());
        result.add(readFile(file));
      }
  return result.text();
}

// The contents of the programs are too large to be read each time.
std::string fingerprintOfPrograms(const fs::path& configured, const std::string& sources) {
  Fingerprint result;
  result.add(sources);
  for (const char* folder : {"bin", "lib/brim"})
    for (const fs::path& file : filesBelow(configured / folder)) {
      if (file.filename() == "mutants" || file.filename() == "libBrim.so") continue;
      result.add(file.string());
      result.add(std::to_string(fs::file_size(file)));
      result.add(std::to_string(fs::last_write_time(file).time_since_epoch().count()));
    }
  return result.text();
}

// Reads a JSON file with this fingerprint. Returns nothing if there is no such file.
std::optional<Json> stored(const fs::path& file, const std::string& fingerprint) {
  if (!fs::exists(file)) return std::nullopt;
  Json json = Json::parse(readFile(file), nullptr, false);
  if (json.is_discarded() || json.value("fingerprint", "") != fingerprint) return std::nullopt;
  return json;
}

Json jsonOf(const Mutant& mutant) {
  Json edits = Json::array();
  for (const Edit& edit : mutant.edits) edits.push_back({edit.begin, edit.end, edit.replacement});
  return {{"file", mutant.file},
          {"function", mutant.function},
          {"operation", mutant.operation},
          {"form", mutant.form},
          {"edits", edits},
          {"line", mutant.line},
          {"original", mutant.original},
          {"replacement", mutant.replacement},
          {"isInBody", mutant.isInBody},
          {"related", mutant.related},
          {"executedBy", mutant.executedBy}};
}

Mutant mutantOf(const Json& json) {
  Mutant mutant;
  json.at("file").get_to(mutant.file);
  json.at("function").get_to(mutant.function);
  json.at("operation").get_to(mutant.operation);
  mutant.form = json.at("form").get<Form>();
  for (const Json& edit : json.at("edits")) mutant.edits.push_back({edit[0], edit[1], edit[2]});
  json.at("line").get_to(mutant.line);
  json.at("original").get_to(mutant.original);
  json.at("replacement").get_to(mutant.replacement);
  json.at("isInBody").get_to(mutant.isInBody);
  json.at("related").get_to(mutant.related);
  json.at("executedBy").get_to(mutant.executedBy);
  return mutant;
}

// A folder with a short path.
class ShortFolder {
 public:
  ShortFolder() {
    std::string pattern = (fs::temp_directory_path() / "mutants-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("a temporary folder cannot be created");
    path_ = pattern;
  }
  ShortFolder(const ShortFolder&) = delete;
  ShortFolder& operator=(const ShortFolder&) = delete;
  ~ShortFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

// Memory that forked processes share.
struct Shared {
  std::atomic<std::size_t> next;
  std::atomic<std::size_t> done;
};

// Calls the function in one process for each processor. Throws std::runtime_error if one of them fails. A test's
// processes that outlive the test become children of the process that ran the test, which is why threads do not
// suffice.
void inProcesses(const std::function<void(unsigned worker, Shared& shared)>& function) {
  void* const memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("memory cannot be shared");
  auto* const shared = new (memory) Shared{};
  std::vector<pid_t> processes;
  for (unsigned worker = 0; worker < std::max(1U, std::thread::hardware_concurrency()); ++worker) {
    const pid_t process = fork();
    if (process < 0) throw std::runtime_error("a process cannot be started");
    if (process > 0) {
      processes.push_back(process);
      continue;
    }
    try {
      function(worker, *shared);
      _exit(0);
    } catch (const std::exception& error) {
      std::cerr << "mutants: " << error.what() << "\n";
      _exit(1);
    }
  }
  bool isSuccessful = true;
  for (const pid_t process : processes) {
    int status = 0;
    waitpid(process, &status, 0);
    isSuccessful = isSuccessful && status == 0;
  }
  munmap(memory, sizeof(Shared));
  if (!isSuccessful) throw std::runtime_error("a process that runs tests failed");
}

void appendLine(const fs::path& file, const std::string& line) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  const std::string text = line + "\n";
  // One call, because several processes write.
  const bool isWritten = write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  close(descriptor);
  if (!isWritten) throw std::runtime_error(file.string() + " cannot be written");
}

// A line can be incomplete if the program was ended while it wrote the line.
std::vector<Json> linesOf(const fs::path& file) {
  std::vector<Json> lines;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);)
    if (Json json = Json::parse(line, nullptr, false); !json.is_discarded()) lines.push_back(std::move(json));
  return lines;
}

std::string placeOf(const Mutant& mutant) { return mutant.file + "|" + mutant.function; }

}  // namespace

Campaign::Campaign(fs::path tree, fs::path configured, fs::path output)
    : tree_(std::move(tree)),
      configured_(std::move(configured)),
      output_(std::move(output)),
      library_(tree_, configured_, output_) {}

void Campaign::prepare() {
  fs::create_directories(output_);
  sourceFingerprint_ = fingerprintOfSources(tree_);
  fingerprint_ = fingerprintOfPrograms(configured_, sourceFingerprint_);
  findMutants();
  std::map<std::string, int> occurrences;
  for (const Mutant& mutant : found_.mutants) {
    const std::string key = placeOf(mutant) + "|" + mutant.original + "|" + mutant.replacement;
    keys_.push_back(key + "|" + std::to_string(occurrences[key]++));
  }
  for (std::size_t index = 0; index < found_.bodies.size(); ++index) {
    const auto number = static_cast<unsigned>(found_.mutants.size() + index + 1);
    if (isSwitched_[number]) bodyNumbers_[found_.bodies[index].symbol] = number;
  }
  findReach();
}

void Campaign::findMutants() {
  const fs::path file = output_ / "prepared.json";
  if (const std::optional<Json> json = stored(file, sourceFingerprint_);
      json && fs::exists(library_.switchedLibrary())) {
    for (const Json& mutant : json->at("mutants")) found_.mutants.push_back(mutantOf(mutant));
    for (const Json& body : json->at("bodies")) found_.bodies.push_back({body[0], body[1], body[2]});
    isSwitched_ = json->at("isSwitched").get<std::vector<bool>>();
    return;
  }
  MutantFinder finder(tree_, "library");
  for (const std::string& source : library_.sources())
    finder.addSource(tree_ / source, library_.languageOptions(source));
  found_ = finder.found();
  std::cerr << "mutants: found " << found_.mutants.size() << " mutants\n";
  fs::remove_all(output_ / "switched");
  isSwitched_ = library_.buildSwitched(found_);
  Json json = {{"fingerprint", sourceFingerprint_}, {"mutants", Json::array()}, {"bodies", Json::array()}};
  for (const Mutant& mutant : found_.mutants) json["mutants"].push_back(jsonOf(mutant));
  for (const FunctionBody& body : found_.bodies) json["bodies"].push_back({body.file, body.symbol, body.begin});
  json["isSwitched"] = isSwitched_;
  writeFile(file, json.dump());
}

void Campaign::findReach() {
  const std::vector<Test> listed = listTests(configured_);
  const fs::path file = output_ / "reach.jsonl";
  const auto isKnown = [&] {
    const std::vector<Json> lines = linesOf(file);
    return std::ranges::count_if(lines, [&](const Json& line) {
             return line.value("fingerprint", "") == fingerprint_;
           }) == static_cast<std::ptrdiff_t>(listed.size());
  };
  if (!isKnown()) {
    std::cerr << "mutants: running " << listed.size() << " tests without a mutant\n";
    fs::remove(file);
    const ShortFolder temporary;
    inProcesses([&](unsigned worker, Shared& shared) {
      const TestFolder folder(configured_, output_ / ("worker" + std::to_string(worker)),
                              temporary.path() / std::to_string(worker));
      folder.useLibrary(library_.switchedLibrary());
      for (std::size_t index = shared.next++; index < listed.size(); index = shared.next++) {
        const TestRun run = folder.run(listed[index], 0, numberCount(), limitsWithoutMutant);
        Json reached = Json::array();
        for (std::size_t number = 0; number < run.reached.size(); ++number)
          if (run.reached[number]) reached.push_back(number);
        appendLine(file, Json({{"fingerprint", fingerprint_},
                               {"index", index},
                               {"passed", run.outcome == Outcome::Passed},
                               {"seconds", run.seconds},
                               {"calls", run.calls},
                               {"reached", reached}})
                             .dump());
      }
    });
  }
  for (const Json& line : linesOf(file)) {
    const Test& test = listed.at(line.at("index"));
    const std::vector<std::size_t> numbers = line.at("reached");
    if (numbers.empty()) continue;
    if (!line.at("passed")) {
      failedTests_.push_back(test.name);
      continue;
    }
    KnownTest known = {test, line.at("seconds"), line.at("calls"), std::vector<bool>(numberCount())};
    for (const std::size_t number : numbers) known.reached[number] = true;
    tests_.push_back(std::move(known));
  }
  if (tests_.empty()) throw std::runtime_error("no test executes the library and passes");
  std::ranges::sort(failedTests_);
  std::ranges::sort(tests_, {}, [](const KnownTest& test) { return test.test.name; });
}

// The numbers of which at least one is logged if the mutant is executed. Empty if they are not known.
std::vector<unsigned> Campaign::numbersOf(std::size_t mutant) const {
  if (isSwitched_[mutant + 1]) return {static_cast<unsigned>(mutant + 1)};
  std::vector<unsigned> numbers;
  for (const std::string& symbol : found_.mutants[mutant].executedBy) {
    const auto body = bodyNumbers_.find(symbol);
    // A function that is evaluated by the compiler is not logged.
    if (body == bodyNumbers_.end()) return {};
    numbers.push_back(body->second);
  }
  return numbers;
}

std::vector<const Campaign::KnownTest*> Campaign::testsFor(std::size_t mutant,
                                                           const std::map<std::string, std::size_t>& kills,
                                                           const std::string& lastKiller) const {
  const std::vector<unsigned> numbers = numbersOf(mutant);
  std::vector<unsigned> related;
  for (const std::string& symbol : found_.mutants[mutant].related)
    if (const auto body = bodyNumbers_.find(symbol); body != bodyNumbers_.end()) related.push_back(body->second);
  struct Ranked {
    std::tuple<bool, std::size_t, std::size_t, double> rank;
    const KnownTest* test;
  };
  std::vector<Ranked> ranked;
  for (const KnownTest& test : tests_) {
    const auto reaches = [&](unsigned number) { return test.reached[number]; };
    if (!numbers.empty() && std::ranges::none_of(numbers, reaches)) continue;
    const auto killed = kills.find(test.test.name);
    const auto relatedCount = static_cast<std::size_t>(std::ranges::count_if(related, reaches));
    ranked.push_back(
        {{test.test.name == lastKiller, killed == kills.end() ? 0 : killed->second, relatedCount, -test.seconds},
         &test});
  }
  std::ranges::sort(ranked, std::greater(), &Ranked::rank);
  std::vector<const KnownTest*> tests;
  for (const Ranked& entry : ranked) tests.push_back(entry.test);
  return tests;
}

RunLimits Campaign::limitsOf(const KnownTest& test) const { return {test.calls * 20 + 100000, test.seconds * 10 + 5}; }

std::optional<MutantResult> Campaign::test(std::size_t mutant, const TestFolder& folder,
                                           const std::vector<const KnownTest*>& tests, TimePoint deadline) const {
  const auto withoutTests = [](State state) { return MutantResult{state, "", Outcome::Passed, 0}; };
  if (tests.empty()) return withoutTests(State::NotExecuted);
  const bool isSwitched = isSwitched_[mutant + 1];
  if (isSwitched) {
    folder.useLibrary(library_.switchedLibrary());
  } else {
    // The link to the library of the last mutant.
    fs::remove(folder.path() / "lib/brim/libBrim.so");
    const LibraryBuild::Result built = library_.buildWith(found_.mutants[mutant], folder.path());
    if (built == LibraryBuild::Result::DoesNotCompile) return withoutTests(State::DoesNotCompile);
    if (built == LibraryBuild::Result::ChangesNothing) return withoutTests(State::ChangesNothing);
  }
  std::size_t count = 0;
  for (const KnownTest* known : tests) {
    if (Clock::now() > deadline) return std::nullopt;
    ++count;
    const auto selected = isSwitched ? static_cast<unsigned>(mutant + 1) : 0;
    const TestRun run = folder.run(known->test, selected, numberCount(), limitsOf(*known));
    if (run.outcome != Outcome::Passed) return MutantResult{State::Killed, known->test.name, run.outcome, count};
  }
  return MutantResult{State::Survived, "", Outcome::Passed, count};
}

std::vector<std::size_t> Campaign::run(const std::map<std::size_t, std::string>& excluded,
                                       const std::optional<Sample>& sample) {
  std::vector<std::size_t> order;
  for (std::size_t index = 0; index < found_.mutants.size(); ++index)
    if (!excluded.contains(index)) order.push_back(index);
  if (sample) {
    std::mt19937_64 random(sample->seed);
    // std::shuffle is not the same in every implementation of the library.
    for (std::size_t remaining = order.size(); remaining > 1; --remaining)
      std::swap(order[remaining - 1], order[random() % remaining]);
  }
  const std::map<std::size_t, MutantResult> known = results();
  const TimePoint deadline =
      sample
          ? Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(sample->seconds))
          : TimePoint::max();
  std::map<std::string, std::string> lastKillers;
  std::map<std::string, std::map<std::string, std::size_t>> initialKills;
  for (const Json& line : linesOf(resultFile())) {
    const std::string test = line.at("test");
    if (test.empty()) continue;
    lastKillers[line.at("key")] = test;
    ++initialKills[line.at("place")][test];
  }
  const ShortFolder temporary;
  inProcesses([&](unsigned worker, Shared& shared) {
    const TestFolder folder(configured_, output_ / ("worker" + std::to_string(worker)),
                            temporary.path() / std::to_string(worker));
    auto kills = initialKills;
    for (std::size_t next = shared.next++; next < order.size(); next = shared.next++) {
      if (Clock::now() > deadline) return;
      const std::size_t mutant = order[next];
      if (known.contains(mutant)) continue;
      const std::string place = placeOf(found_.mutants[mutant]);
      const auto lastKiller = lastKillers.find(keys_[mutant]);
      const std::string killer = lastKiller == lastKillers.end() ? "" : lastKiller->second;
      const std::optional<MutantResult> result = test(mutant, folder, testsFor(mutant, kills[place], killer), deadline);
      if (!result) return;
      if (!result->test.empty()) ++kills[place][result->test];
      appendLine(resultFile(), Json({{"fingerprint", fingerprint_},
                                     {"key", keys_[mutant]},
                                     {"place", place},
                                     {"state", result->state},
                                     {"test", result->test},
                                     {"outcome", result->outcome},
                                     {"testCount", result->testCount}})
                                   .dump());
      if (const std::size_t done = ++shared.done; done % 50 == 0)
        std::cerr << "mutants: tested " << done << " mutants\n";
    }
  });
  if (!sample) return order;
  // The sample ends at the first mutant without a result. The results of later mutants are not used, because survivors
  // take longer and would therefore be rarer among them.
  const std::map<std::size_t, MutantResult> all = results();
  std::vector<std::size_t> tested;
  for (const std::size_t mutant : order) {
    if (!all.contains(mutant)) break;
    tested.push_back(mutant);
  }
  return tested;
}

std::map<std::size_t, MutantResult> Campaign::results() const {
  std::map<std::string, std::size_t> indices;
  for (std::size_t index = 0; index < keys_.size(); ++index) indices[keys_[index]] = index;
  std::map<std::size_t, MutantResult> results;
  for (const Json& line : linesOf(resultFile())) {
    if (line.at("fingerprint") != fingerprint_) continue;
    const auto index = indices.find(line.at("key"));
    if (index == indices.end()) continue;
    results[index->second] = {line.at("state").get<State>(), line.at("test"), line.at("outcome").get<Outcome>(),
                              line.at("testCount")};
  }
  return results;
}

void Campaign::runAllTests(const fs::path& library) const {
  const ShortFolder temporary;
  inProcesses([&](unsigned worker, Shared& shared) {
    const TestFolder folder(configured_, output_ / ("worker" + std::to_string(worker)),
                            temporary.path() / std::to_string(worker));
    folder.useLibrary(library);
    for (std::size_t index = shared.next++; index < tests_.size(); index = shared.next++) {
      const TestRun run = folder.run(tests_[index].test, 0, numberCount(), limitsWithoutMutant);
      if (run.outcome != Outcome::Passed) std::cerr << "mutants: " << tests_[index].test.name << " failed\n";
    }
  });
}

}  // namespace mutation
