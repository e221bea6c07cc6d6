// Tests that every interface of the platform that the library uses is in the list of public interfaces or in the list
// of private interfaces.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "device/mach_o/mach_file.hpp"
#include "tests/device/built_files.hpp"
#include "tests/hook_rows.hpp"

namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;

using Names = std::set<std::string>;

struct PrivateInterface {
  std::string kind;
  std::string className;
  std::string name;
};

constexpr PrivateInterface privateInterface(const char* kind, const char* className, const char* name) {
  return {kind, className, name};
}

const std::vector<PrivateInterface>& privateInterfaces() {
  static const std::vector<PrivateInterface> rows = {
#define BRIM_PRIVATE_INTERFACE(kind, className, name, since, until, requirement, effect) \
  privateInterface(#kind, className, name),
#include "library/startup/private_interface_list.hpp"
  };
  return rows;
}

bool isRow(const std::string& kind, const std::string& className, const std::string& name) {
  for (const PrivateInterface& row : privateInterfaces())
    if (row.kind == kind && row.className == className && row.name == name) return true;
  return false;
}

bool isMethodRow(const std::string& className, const std::string& selector) {
  return isRow("InstanceMethod", className, selector) || isRow("ClassMethod", className, selector);
}

Names privateMessages() {
  Names names;
  for (const PrivateInterface& row : privateInterfaces())
    if (row.kind.ends_with("Method")) names.insert(row.name);
  return names;
}

// Returns the names on the lines of the list of public interfaces that begin with this word.
Names publicNames(const std::string& word) {
  Names names;
  std::ifstream list(device::sourceFolder() / "tests/device/public_interfaces");
  for (std::string line; std::getline(list, line);)
    if (line.starts_with(word + " ")) names.insert(line.substr(word.size() + 1));
  return names;
}

// Returns the names with which this function template of the binding was instantiated. Each instance has a static
// variable, whose symbol contains the characters of the name as numbers: A6_cLc97ELc108ELc108ELc111ELc99EE is "alloc".
Names instancesOf(const std::string& function) {
  static const device::MachFile file = device::MachFile::read(device::buildFolder() / "symbols/Brim.dylib");
  const std::string prefix = "__ZZN4objc" + std::to_string(function.size()) + function + "I";
  static const std::regex characters("A[0-9]+_c((Lc[0-9]+E)+)E");
  static const std::regex number("Lc([0-9]+)E");
  Names names;
  for (const auto& [address, symbol] : file.symbols) {
    std::smatch array;
    if (!symbol.starts_with(prefix) || !std::regex_search(symbol, array, characters)) continue;
    const std::string text = array[1];
    std::string name;
    for (std::sregex_iterator each(text.begin(), text.end(), number), end; each != end; ++each)
      name.push_back(static_cast<char>(std::stoi((*each)[1])));
    names.insert(name);
  }
  return names;
}

std::string contents(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Returns the first capture group of every match in the sources of the folder.
Names matchesInSources(const std::string& folder, const std::string& pattern) {
  const std::regex expression(pattern);
  Names found;
  for (const auto& entry : fs::recursive_directory_iterator(device::sourceFolder() / folder)) {
    if (!entry.path().string().ends_with("pp")) continue;
    const std::string text = contents(entry.path());
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
      found.insert((*match)[1]);
  }
  return found;
}

std::string setterOf(std::string name) {
  name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return "set" + name + ":";
}

Names ownMessages() {
  Names names = matchesInSources("library", "\\b(?:method|classMethod|add)<\"([^\"]+)\"");
  for (const std::string& property : matchesInSources("library", "\\b(?:property|readOnly|stored)<\"([^\"]+)\""))
    names.merge(Names{property, setterOf(property)});
  return names;
}

TEST(PublicInterfaces, ListExactlyTheClassesThatAreNotPrivate) {
  Names used = instancesOf("lookUpClass");
  for (const test::HookRow& row : test::hookRows) used.insert(row.className);
  EXPECT_GT(used.size(), 60U);
  Names rest;
  for (const std::string& name : used)
    if (!isRow("PlatformClass", name, "") && !name.starts_with("Brim") && name != "FolderFinder") rest.insert(name);
  EXPECT_EQ(rest, publicNames("class"));
}

TEST(PublicInterfaces, ListExactlyTheMessagesThatAreNeitherPrivateNorTheLibrarysOwn) {
  const Names used = instancesOf("selector");
  EXPECT_GT(used.size(), 300U);
  const Names own = ownMessages();
  Names rest;
  for (const std::string& name : used)
    if (!own.contains(name)) rest.insert(name);
  for (const test::HookRow& row : test::hookRows)
    if (std::string(row.kind) == "hook") rest.insert(row.selector);
  for (const std::string& name : privateMessages()) rest.erase(name);
  EXPECT_EQ(rest, publicNames("message"));
}

bool isPrivateClass(const std::string& name) {
  static const std::regex prefix("(_|BB|CK|HB|IM|NC|SB|SpringBoard).*");
  return std::regex_match(name, prefix);
}

// A message can be public in one class and private in another. A private class has no public messages.
TEST(PrivateInterfaces, ContainEveryMessageToAPrivateClass) {
  static const std::regex declaration("class \\w+\\s*: public objc::Interface<\"(\\w+)\"[^{]*\\{([^]*?)\n\\};");
  static const std::regex message("send(?:IfAvailable)?<[^\"]*\"([^\"]+)\">");
  std::size_t count = 0;
  for (const auto& header : fs::directory_iterator(device::sourceFolder() / "platform")) {
    const std::string text = contents(header.path());
    for (std::sregex_iterator match(text.begin(), text.end(), declaration), end; match != end; ++match) {
      const std::string className = (*match)[1];
      const std::string body = (*match)[2];
      if (!isPrivateClass(className)) continue;
      for (std::sregex_iterator each(body.begin(), body.end(), message); each != end; ++each, ++count)
        EXPECT_TRUE(isMethodRow(className, (*each)[1])) << className << " " << (*each)[1];
    }
  }
  EXPECT_GT(count, 40U);
}

TEST(PrivateInterfaces, ContainEveryHookedMethodThatIsNotPublic) {
  const Names ofThePlatform = publicNames("message");
  for (const test::HookRow& row : test::hookRows) {
    const bool isHook = std::string(row.kind) == "hook";
    EXPECT_TRUE(!isHook || isMethodRow(row.className, row.selector) || ofThePlatform.contains(row.selector))
        << row.className << " " << row.selector;
  }
}

TEST(PrivateInterfaces, ContainEveryNameThatIsLookedUpByString) {
  const auto require = [](const std::string& kind, const std::string& pattern) {
    const Names names = matchesInSources("library", pattern);
    EXPECT_THAT(names, Not(IsEmpty())) << pattern;
    for (const std::string& name : names) {
      bool isListed = false;
      for (const PrivateInterface& row : privateInterfaces())
        isListed = isListed || (row.kind == kind && (kind == "PlatformClass" ? row.className : row.name) == name);
      EXPECT_TRUE(isListed) << name;
    }
  };
  require("PlatformClass", "objc_getClass\\(\"([^\"]+)\"");
  require("InstanceVariable", "class_getInstanceVariable\\([^\"]*\"([^\"]+)\"");
  require("Symbol", "symbolInProcess\\(\"([^\"]+)\"");
  require("InstanceMethod", "valueForKey\\(\"([^\"]+)\"");
}

}  // namespace
