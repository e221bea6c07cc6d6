// The layers of the source tree, as CMake declares them, and the includes that violate them.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace test {

struct Layer {
  std::string name;
  std::vector<std::string> folders;  // relative to the root of the tree
  std::vector<std::string> below;    // the layers that it may include
};

// Reads lines "name|folder folder|layer layer". Throws std::runtime_error for any other line.
std::vector<Layer> readLayers(const std::filesystem::path& file);

// Layers that depend on themselves, directly or through others, and dependencies that are not declared as layers.
std::vector<std::string> invalidDeclarations(const std::vector<Layer>& layers);

// One line "file:line: includes header, which …" for each #include that leads to a layer that is not below, and for
// each source file whose folder belongs to no layer. Searches the folders under `roots`.
std::vector<std::string> violations(const std::filesystem::path& tree, const std::vector<std::string>& roots,
                                    const std::vector<Layer>& layers);

}  // namespace test
