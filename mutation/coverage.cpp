#include "mutation/coverage.hpp"

#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "mutation/files.hpp"

namespace mutation {

namespace fs = std::filesystem;
using Json = nlohmann::json;

std::map<std::string, FileCoverage> readCoverage(const fs::path& folder, const fs::path& tree,
                                                 const std::string& prefix) {
  const CommandResult listed = runCommand("cd '" + folder.string() +
                                          "' && gcov --stdout --json-format --branch-probabilities *.gcda 2>/dev/null");
  if (listed.status != 0) throw std::runtime_error("gcov failed:\n" + listed.output);
  const std::string root = tree.string() + "/";
  std::map<std::string, FileCoverage> coverage;
  // A branch has several counters if its function is a template or is in a header.
  std::map<std::pair<std::string, unsigned>, std::vector<bool>> branches;
  std::istringstream documents(listed.output);
  for (std::string document; std::getline(documents, document);) {
    const Json json = Json::parse(document);
    for (const Json& file : json.at("files")) {
      const std::string path = fs::path(file.at("file").get<std::string>()).lexically_normal().string();
      if (!path.starts_with(root + prefix)) continue;
      const std::string name = path.substr(root.size());
      for (const Json& line : file.at("lines")) {
        const unsigned number = line.at("line_number");
        bool& isExecuted = coverage[name].lines[number];
        isExecuted = isExecuted || line.at("count").get<double>() > 0;
        std::vector<bool>& taken = branches[{name, number}];
        std::size_t index = 0;
        for (const Json& branch : line.at("branches")) {
          if (taken.size() <= index) taken.push_back(false);
          if (branch.at("count").get<double>() > 0) taken[index] = true;
          ++index;
        }
      }
    }
  }
  for (const auto& [line, taken] : branches) {
    for (const bool isTaken : taken) {
      FileCoverage& file = coverage[line.first];
      ++file.branches;
      file.takenBranches += isTaken ? 1 : 0;
    }
  }
  return coverage;
}

}  // namespace mutation
