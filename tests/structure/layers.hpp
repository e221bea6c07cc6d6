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
  std::vector<std::string> folders;  // paths relative to the root of the tree
  std::vector<std::string> below;    // the layers that it may include
};

// Reads a file whose lines are "name|folder folder|layer layer". Throws std::runtime_error if the file cannot be read
// or contains another line.
std::vector<Layer> readLayers(const std::filesystem::path& file);

// Returns an error for each layer that depends on itself, directly or through other layers, and for each dependency
// that is not declared as a layer.
std::vector<std::string> invalidDeclarations(const std::vector<Layer>& layers);

// Searches the sources in the folders `roots` of the tree. Returns an error with file and line for each #include of a
// header whose layer is not below the layer of the source, and an error for each source whose folder belongs to no
// layer.
std::vector<std::string> violations(const std::filesystem::path& tree, const std::vector<std::string>& roots,
                                    const std::vector<Layer>& layers);

}  // namespace test
