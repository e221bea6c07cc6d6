#include "mutation/reference_run.hpp"

#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <stdexcept>

#include "mutation/fingerprint.hpp"
#include "mutation/json_lines.hpp"
#include "mutation/worker_processes.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

// Returns, for each test, the latest line that has the test's fingerprint.
std::map<std::string, Json> storedLines(const fs::path& file, const std::map<std::string, std::string>& fingerprints) {
  std::map<std::string, Json> lines;
  for (const Json& line : LineReader(file).newLines()) {
    const std::string name = line.at("test");
    const auto fingerprint = fingerprints.find(name);
    if (fingerprint != fingerprints.end() && line.value("fingerprint", "") == fingerprint->second)
      lines.insert_or_assign(name, line);
  }
  return lines;
}

Json measured(const Test& test, const std::string& fingerprint, const TestFolder& folder, std::size_t count) {
  TestRun run = folder.run(test, 0, count, limitsWithoutMutant);
  if (run.outcome != Outcome::Passed) run = folder.run(test, 0, count, limitsWithoutMutant);
  std::vector<std::size_t> reached;
  for (std::size_t number = 0; number < run.reached.size(); ++number)
    if (run.reached[number]) reached.push_back(number);
  return {{"test", test.name},
          {"fingerprint", fingerprint},
          {"passed", run.outcome == Outcome::Passed},
          {"seconds", run.seconds},
          {"processorSeconds", run.processorSeconds},
          {"calls", run.calls},
          {"reached", reached}};
}

void runMissing(const ReferenceFolders& folders, const fs::path& file, const std::vector<Test>& missing,
                const std::map<std::string, std::string>& fingerprints, std::size_t count) {
  std::cerr << "mutants: running " << missing.size() << " tests without a mutant\n";
  const ShortFolder temporary(folders.output / "temporary");
  inProcesses([&](unsigned worker, Shared& shared) {
    const TestFolder folder(folders.configured, folders.output / ("worker" + std::to_string(worker)),
                            temporary.path() / std::to_string(worker));
    folder.useLibrary(folders.library);
    for (std::size_t index = shared.next++; index < missing.size(); index = shared.next++) {
      const Test& test = missing[index];
      appendLine(file, measured(test, fingerprints.at(test.name), folder, count));
      if (const std::size_t done = ++shared.done; done % 200 == 0)
        std::cerr << "mutants: ran " << done << " tests without a mutant\n";
    }
  });
}

}  // namespace

RunLimits limitsOf(const KnownTest& test) {
  return {test.calls * 20 + 100000, test.processorSeconds * 4 + 2, test.seconds * 4 + 4};
}

std::vector<std::string> fingerprintsOf(const std::vector<Test>& tests, const fs::path& configured,
                                        const std::string& sources) {
  std::set<fs::path> programs;
  for (const Test& test : tests) programs.insert(test.command.at(0));
  Fingerprint shared;
  shared.add(sources);
  for (const char* folder : {"bin", "lib/brim"}) {
    for (const fs::path& file : filesBelow(configured / folder))
      if (!programs.contains(file) && file.filename() != "mutants" && file.filename() != "libBrim.so")
        shared.addFile(file.lexically_relative(configured).string(), file);
  }
  std::map<std::string, std::string> contents;
  std::vector<std::string> fingerprints;
  for (const Test& test : tests) {
    Fingerprint own = shared;
    for (const std::string& word : test.command) {
      own.add(word);
      if (!fs::is_regular_file(word)) continue;
      if (!contents.contains(word)) {
        Fingerprint content;
        content.addFile(word, word);
        contents[word] = content.text();
      }
      own.add(contents[word]);
    }
    fingerprints.push_back(own.text());
  }
  return fingerprints;
}

ReferenceRun runWithoutMutant(const ReferenceFolders& folders, const std::string& sources, std::size_t count) {
  const fs::path file = folders.output / "reach.jsonl";
  const std::vector<Test> listed = listTests(folders.configured);
  const std::vector<std::string> known = fingerprintsOf(listed, folders.configured, sources);
  std::map<std::string, std::string> fingerprints;
  Fingerprint all;
  for (std::size_t index = 0; index < listed.size(); ++index) {
    fingerprints[listed[index].name] = known[index];
    all.add(known[index]);
  }
  std::map<std::string, Json> lines = storedLines(file, fingerprints);
  std::vector<Test> missing;
  for (const Test& test : listed)
    if (!lines.contains(test.name)) missing.push_back(test);
  if (!missing.empty()) {
    runMissing(folders, file, missing, fingerprints, count);
    lines = storedLines(file, fingerprints);
    fs::remove(file);
    for (const auto& [name, line] : lines) appendLine(file, line);
  }
  ReferenceRun result;
  result.fingerprint = all.text();
  for (const Test& test : listed) {
    const Json& line = lines.at(test.name);
    const std::vector<std::size_t> numbers = line.at("reached");
    if (numbers.empty()) continue;
    if (!line.at("passed")) {
      result.failedTests.push_back(test.name);
      continue;
    }
    KnownTest entry = {test,
                       fingerprints.at(test.name),
                       line.at("seconds"),
                       line.at("processorSeconds"),
                       line.at("calls"),
                       std::vector<bool>(count),
                       numbers.size()};
    for (const std::size_t number : numbers) entry.reached.at(number) = true;
    result.tests.push_back(std::move(entry));
  }
  if (result.tests.empty()) throw std::runtime_error("no test executes the library and passes");
  std::ranges::sort(result.failedTests);
  std::ranges::sort(result.tests, {}, [](const KnownTest& test) { return test.test.name; });
  return result;
}

}  // namespace mutation
