// Finds the mutants that prevent the switched copy from being compiled.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "mutation/switched_source.hpp"

namespace mutation {

// The folder in which a compiler runs, and the folder in which it finds the switched sources.
struct CompilerFolders {
  std::filesystem::path working;   // paths in the compiler's output can be relative to it
  std::filesystem::path switched;  // the switched sources
};

enum class Lines { Errors, All };

// Returns the numbers of the code to which lines of the compiler's output refer. The keys of `written` are paths
// relative to the folder of the switched sources.
std::set<unsigned> erroneousNumbers(const std::string& output, const CompilerFolders& folders,
                                    const std::map<std::string, SwitchedSource>& written, Lines lines);

}  // namespace mutation
