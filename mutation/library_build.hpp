// Compiles changed copies of the library, with the commands of a configured build folder.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "mutation/mutant.hpp"

namespace mutation {

class LibraryBuild {
 public:
  // `tree` is the root of the repository, `configured` a build folder of it with Ninja, and `output` the folder of the
  // copies.
  LibraryBuild(std::filesystem::path tree, std::filesystem::path configured, std::filesystem::path output);

  // The library's sources, relative to the root.
  const std::vector<std::string>& sources() const { return sources_; }
  // Returns the compiler options that affect how the source is parsed, for use with another compiler.
  std::vector<std::string> languageOptions(const std::string& source) const;

  // The commands that compile and link the library.
  std::vector<std::string> commands() const;

  // Builds the switched copy. Returns the numbers of the mutants and bodies that it contains. A mutant has the number
  // index + 1, and a body the number mutants.size() + index + 1. The other mutants cannot be selected at run time.
  std::vector<bool> buildSwitched(const Mutants& mutants);
  std::filesystem::path switchedLibrary() const { return output_ / "libBrim.so"; }

  enum class Result { Built, DoesNotCompile, ChangesNothing };
  // Builds a library that contains the mutant and is otherwise the switched copy. Writes the files to `folder`.
  Result buildWith(const Mutant& mutant, const std::filesystem::path& folder) const;

  // Builds the library with counters for the executed lines.
  void buildForCoverage(const std::filesystem::path& folder) const;

 private:
  std::string compilation(const std::string& source, const std::string& file, const std::vector<std::string>& includes,
                          const std::string& options, const std::string& target) const;
  void link(const std::map<std::string, std::string>& objects, const std::filesystem::path& library) const;
  std::string object(const std::string& source) const;

  std::filesystem::path tree_;
  std::filesystem::path configured_;
  std::filesystem::path output_;
  std::vector<std::string> sources_;
  std::map<std::string, std::string> commands_;  // by source
  std::string linkCommand_;
};

}  // namespace mutation
