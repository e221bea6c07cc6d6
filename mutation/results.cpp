#include "mutation/results.hpp"

namespace mutation {

using Json = nlohmann::json;

// The functions that this macro defines are outside the unnamed namespace, because argument-dependent lookup must find
// them.
NLOHMANN_JSON_SERIALIZE_ENUM(State, {{State::Killed, "killed"},
                                     {State::Survived, "survived"},
                                     {State::SurvivedFirstTests, "survived the first tests"},
                                     {State::NotExecuted, "not executed"},
                                     {State::DoesNotCompile, "does not compile"},
                                     {State::ChangesNothing, "changes nothing"}})
NLOHMANN_JSON_SERIALIZE_ENUM(Outcome, {{Outcome::Passed, "passed"},
                                       {Outcome::Failed, "failed"},
                                       {Outcome::TooManyCalls, "too many calls"},
                                       {Outcome::TooLong, "too long"}})

ResultFile::ResultFile(std::filesystem::path file, Fingerprints fingerprints)
    : path_(std::move(file)), reader_(path_), fingerprints_(std::move(fingerprints)) {
  update();
}

// A kill is valid until the test that failed changes. A survivor is valid until any test changes.
const std::string& ResultFile::fingerprintOf(State state, const std::string& test) const {
  static const std::string none;
  switch (state) {
    case State::Killed: {
      const auto found = fingerprints_.test.find(test);
      return found == fingerprints_.test.end() ? none : found->second;
    }
    case State::DoesNotCompile:
    case State::ChangesNothing:
      return fingerprints_.sources;
    default:
      return fingerprints_.tests;
  }
}

void ResultFile::append(const MutantKey& key, const MutantResult& result) {
  appendLine(path_, {{"fingerprint", fingerprintOf(result.state, result.test)},
                     {"key", key.text},
                     {"function", key.function},
                     {"file", key.file},
                     {"state", result.state},
                     {"test", result.test},
                     {"outcome", result.outcome},
                     {"testCount", result.testCount},
                     {"passedTests", result.passedTests},
                     {"unreliableTests", result.unreliableTests},
                     {"seconds", result.seconds}});
}

void ResultFile::update() {
  for (const Json& line : reader_.newLines()) {
    // A line without this member has an earlier format.
    if (!line.contains("unreliableTests")) continue;
    const std::string key = line.at("key");
    const std::string test = line.at("test");
    const auto state = line.at("state").get<State>();
    if (!test.empty()) {
      lastKillers_[key] = test;
      ++functionKills_[line.at("function")][test];
      ++fileKills_[line.at("file")][test];
    }
    const std::string fingerprint = line.at("fingerprint");
    if (fingerprint.empty() || fingerprint != fingerprintOf(state, test)) continue;
    results_[key] = {state,
                     test,
                     line.at("outcome").get<Outcome>(),
                     line.at("testCount"),
                     line.at("passedTests"),
                     line.at("unreliableTests"),
                     line.at("seconds")};
  }
}

const MutantResult* ResultFile::find(const std::string& key) const {
  const auto found = results_.find(key);
  return found == results_.end() ? nullptr : &found->second;
}

void ResultFile::addKills(const MutantKey& key, TestQuery& query) const {
  const auto copy = [](const auto& map, const std::string& name, auto& target) {
    if (const auto found = map.find(name); found != map.end()) target = found->second;
  };
  copy(lastKillers_, key.text, query.lastKiller);
  copy(functionKills_, key.function, query.functionKills);
  copy(fileKills_, key.file, query.fileKills);
}

}  // namespace mutation
