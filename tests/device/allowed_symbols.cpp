#include "tests/device/allowed_symbols.hpp"

#include <algorithm>
#include <fstream>
#include <regex>

#include "tests/device/built_files.hpp"

namespace device {

namespace {

void readStub(const std::filesystem::path& path, std::vector<AllowedSymbol>& found) {
  static const std::regex installName("install-name: '(.*)'");
  static const std::regex entry(" +- ([A-Za-z0-9_]+) *(# *(.*))?");
  std::ifstream stub(path);
  std::string library;
  std::smatch match;
  for (std::string line; std::getline(stub, line);) {
    if (std::regex_match(line, match, installName)) library = match[1];
    if (std::regex_match(line, match, entry)) found.push_back({match[1], library, match[3]});
  }
}

}  // namespace

std::vector<AllowedSymbol> allowedSymbols() {
  std::vector<std::filesystem::path> stubs;
  for (const auto& file : std::filesystem::directory_iterator(sourceFolder() / "device/stubs"))
    if (file.path().extension() == ".tbd") stubs.push_back(file.path());
  std::sort(stubs.begin(), stubs.end());
  std::vector<AllowedSymbol> found;
  for (const std::filesystem::path& stub : stubs) readStub(stub, found);
  return found;
}

}  // namespace device
