#include "tests/library/phone.hpp"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <functional>
#include <iterator>

#include "tests/support/start_time.hpp"

namespace test {

namespace {

// The path of the preferences domain below the phone's root.
constexpr const char* preferencesFile = "var/mobile/Library/GNUstep/Defaults/com.marrowgate.brimprefs.plist";

std::string propertyListValue(const Json& value) {
  if (value.is_boolean()) return value.get<bool>() ? "<true/>" : "<false/>";
  if (value.is_number()) return "<integer>" + value.dump() + "</integer>";
  return "<string>" + value.get<std::string>() + "</string>";
}

void storePreferences(const std::filesystem::path& root, const std::map<std::string, Json>& settings) {
  if (settings.empty()) return;
  const std::filesystem::path path = root / preferencesFile;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path);
  file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>\n";
  for (const auto& [key, value] : settings) file << "<key>" << key << "</key>" << propertyListValue(value) << "\n";
  file << "</dict></plist>\n";
}

std::filesystem::path makeFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brim-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot create a temporary folder");
  return pattern;
}

}  // namespace

Phone::Phone(Setup setup) : folder_(makeFolder()) {
  if (setup.options.root.empty()) setup.options.root = folder_ / "root";
  if (!setup.options.time) setup.options.time = startTime;
  storePreferences(setup.options.root, setup.settings);
  session_.emplace(setup.options);
  pool_.emplace();
}

Phone::~Phone() {
  pool_.reset();
  session_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

Json Phone::runUnchecked(const Json& command) { return session_->run(command); }

Json Phone::run(const Json& command) {
  Json answer = session_->run(command);
  EXPECT_TRUE(answer.at("ok").get<bool>()) << command << " failed: " << answer;
  return answer;
}

std::string Phone::runExpectingError(const Json& command) {
  const Json answer = session_->run(command);
  EXPECT_FALSE(answer.at("ok").get<bool>()) << command << " succeeded, but an error was expected";
  return answer.value("error", "");
}

void Phone::set(const std::string& key, const Json& value) { run({{"do", "set"}, {"key", key}, {"value", value}}); }

void Phone::wait(double seconds) { run({{"do", "wait"}, {"seconds", seconds}}); }

int Phone::present(const Json& fields) {
  Json command = {{"do", "present"}, {"section", "com.apple.MobileSMS"}};
  command.update(fields);
  return run(command).at("controller").get<int>();
}

Json Phone::state(int controller) { return run({{"do", "state"}, {"controller", controller}}); }

Json Phone::log() { return run({{"do", "log"}}).at("events"); }

Json Phone::windows(std::optional<int> controller) {
  Json command = {{"do", "tree"}};
  if (controller) command["controller"] = *controller;
  return run(command).at("windows");
}

Json Phone::banner(int controller) { return firstNode(windows(controller), "class", "BrimContainer"); }

Json Phone::view(int controller, const std::string& property) {
  return firstNode(windows(controller), "property", property);
}

std::string Phone::picture() {
  const std::filesystem::path path = folder_ / "picture.png";
  run({{"do", "screenshot"}, {"path", path.string()}});
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::filesystem::path Phone::root() const { return folder_ / "root"; }

std::vector<Json> nodes(const Json& trees, const std::function<bool(const Json&)>& predicate) {
  std::vector<Json> found;
  for (const Json& node : trees) {
    if (predicate(node)) found.push_back(node);
    if (!node.contains("children")) continue;
    const std::vector<Json> descendants = nodes(node.at("children"), predicate);
    found.insert(found.end(), descendants.begin(), descendants.end());
  }
  return found;
}

Json firstNode(const Json& trees, const std::string& field, const Json& value) {
  const std::vector<Json> found =
      nodes(trees, [&](const Json& node) { return node.contains(field) && node.at(field) == value; });
  return found.empty() ? Json() : found.front();
}

std::vector<Json> eventsOf(const Json& events, const std::string& kind) {
  return nodes(events, [&](const Json& event) { return event.at("event") == kind; });
}

}  // namespace test
