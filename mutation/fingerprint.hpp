// Fingerprints of the contents of files. A stored result is not used if its fingerprint differs.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace mutation {

// FNV-1a.
class Fingerprint {
 public:
  void add(const std::string& text);
  // Adds the content of a file under a name.
  void addFile(const std::string& name, const std::filesystem::path& file);
  std::string text() const { return std::to_string(value_); }

 private:
  std::uint64_t value_ = 14695981039346656037U;
};

// Returns the regular files in a folder and its subfolders, sorted.
std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& folder);

// Returns the fingerprint of all sources that determine the mutants and the switched copy, and of the commands that
// compile the copy.
std::string fingerprintOfSources(const std::filesystem::path& tree, const std::vector<std::string>& commands);

}  // namespace mutation
