#include "mutation/fingerprint.hpp"

#include <algorithm>

#include "mutation/files.hpp"

namespace mutation {

namespace fs = std::filesystem;

void Fingerprint::add(const std::string& text) {
  for (const char character : text) value_ = (value_ ^ static_cast<unsigned char>(character)) * 1099511628211U;
  value_ = (value_ ^ 0xFFU) * 1099511628211U;
}

void Fingerprint::addFile(const std::string& name, const fs::path& file) {
  add(name);
  add(readFile(file));
}

std::vector<fs::path> filesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

std::string fingerprintOfSources(const fs::path& tree, const std::vector<std::string>& commands) {
  Fingerprint result;
  for (const char* folder : {"library", "mutation", "objc", "platform"}) {
    for (const fs::path& file : filesBelow(tree / folder))
      if (file.extension() == ".cpp" || file.extension() == ".hpp")
        result.addFile(file.lexically_relative(tree).string(), file);
  }
  for (const std::string& command : commands) result.add(command);
  return result.text();
}

}  // namespace mutation
