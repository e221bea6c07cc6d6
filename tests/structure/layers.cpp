#include "tests/structure/layers.hpp"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace test {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> found;
  for (std::string word; stream >> word;) found.push_back(word);
  return found;
}

using Reachable = std::map<std::string, std::set<std::string>>;

void addReachable(const std::map<std::string, const Layer*>& layers, const std::string& name,
                  std::set<std::string>& reached) {
  const auto layer = layers.find(name);
  if (layer == layers.end()) return;
  for (const std::string& below : layer->second->below)
    if (reached.insert(below).second) addReachable(layers, below, reached);
}

Reachable reachableLayers(const std::vector<Layer>& layers) {
  std::map<std::string, const Layer*> byName;
  for (const Layer& layer : layers) byName[layer.name] = &layer;
  Reachable reachable;
  for (const Layer& layer : layers) addReachable(byName, layer.name, reachable[layer.name]);
  return reachable;
}

std::map<std::string, std::string> layersOfFolders(const std::vector<Layer>& layers) {
  std::map<std::string, std::string> names;
  for (const Layer& layer : layers)
    for (const std::string& folder : layer.folders) names[folder] = layer.name;
  return names;
}

bool isSource(const fs::path& file) { return file.extension() == ".cpp" || file.extension() == ".hpp"; }

std::vector<fs::path> sourcesUnder(const fs::path& tree, const std::vector<std::string>& roots) {
  std::vector<fs::path> sources;
  for (const std::string& root : roots)
    for (const auto& entry : fs::recursive_directory_iterator(tree / root))
      if (isSource(entry.path())) sources.push_back(entry.path().lexically_relative(tree));
  std::ranges::sort(sources);
  return sources;
}

}  // namespace

std::vector<Layer> readLayers(const fs::path& file) {
  static const std::regex pattern(R"(([^|]+)\|([^|]+)\|([^|]*))");
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error(file.string() + " cannot be read");
  std::vector<Layer> layers;
  for (std::string line; std::getline(stream, line);) {
    if (line.empty()) continue;
    std::smatch match;
    if (!std::regex_match(line, match, pattern)) throw std::runtime_error("expected \"name|folders|layers\": " + line);
    layers.push_back({match[1], words(match[2]), words(match[3])});
  }
  return layers;
}

std::vector<std::string> invalidDeclarations(const std::vector<Layer>& layers) {
  std::vector<std::string> problems;
  const Reachable reachable = reachableLayers(layers);
  for (const auto& [name, below] : reachable) {
    if (below.contains(name)) problems.push_back(name + " depends on itself");
    for (const std::string& other : below)
      if (!reachable.contains(other))
        problems.push_back(name + " depends on " + other + ", which is not declared as a layer");
  }
  return problems;
}

std::vector<std::string> violations(const fs::path& tree, const std::vector<std::string>& roots,
                                    const std::vector<Layer>& layers) {
  static const std::regex include(R"re(\s*#\s*include\s*"([^"]+)".*)re");
  const Reachable reachable = reachableLayers(layers);
  const auto layerOf = layersOfFolders(layers);
  std::vector<std::string> found;
  for (const fs::path& source : sourcesUnder(tree, roots)) {
    const auto own = layerOf.find(source.parent_path().string());
    if (own == layerOf.end()) {
      found.push_back(source.string() + ": belongs to no layer; declare its folder with brim_layer");
      continue;
    }
    std::ifstream file(tree / source);
    int number = 0;
    for (std::string line; std::getline(file, line);) {
      ++number;
      std::smatch match;
      if (!std::regex_match(line, match, include)) continue;
      const auto included = layerOf.find(fs::path(match[1].str()).parent_path().string());
      const std::string place = source.string() + ":" + std::to_string(number) + ": includes " + match[1].str();
      if (included == layerOf.end()) {
        found.push_back(place + ", which belongs to no layer");
      } else if (included->second != own->second && !reachable.at(own->second).contains(included->second)) {
        found.push_back(place + ", but " + own->second + " is not above " + included->second);
      }
    }
  }
  return found;
}

}  // namespace test
