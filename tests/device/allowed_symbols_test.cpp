// Tests that the library imports exactly the symbols that the stubs list.
#include "tests/device/allowed_symbols.hpp"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <map>

#include "device/mach_o/fixups.hpp"
#include "tests/device/built_files.hpp"
#include "tests/device/command_output.hpp"

namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> imports() {
  std::map<std::string, std::string> found;
  for (const device::Bind& bind : device::binds(device::MachFile::read(device::builtLibrary())))
    found[bind.symbol] = bind.library;
  return found;
}

// Returns the path of a program that built the library. `variable` is the name of its CMake variable.
std::string builtWith(const std::string& variable) {
  std::ifstream cache(device::buildFolder() / "CMakeCache.txt");
  for (std::string line; std::getline(cache, line);)
    if (line.starts_with(variable + ":")) return line.substr(line.find('=') + 1);
  ADD_FAILURE() << "the build has no " << variable;
  return "false";
}

TEST(AllowedSymbols, AreExactlyTheImportsOfTheLibrary) {
  std::map<std::string, std::string> allowed;
  for (const device::AllowedSymbol& each : device::allowedSymbols()) allowed[each.symbol] = each.library;
  EXPECT_EQ(imports(), allowed);
}

TEST(AllowedSymbols, HaveAReason) {
  for (const device::AllowedSymbol& each : device::allowedSymbols()) EXPECT_GT(each.reason.size(), 8U) << each.symbol;
}

TEST(AllowedSymbols, LinkingFailsForOtherSymbols) {
  std::string folder = (fs::temp_directory_path() / "brim-link-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  std::ofstream(folder + "/stray.cpp") << "extern \"C\" int system(const char*);\n"
                                          "extern \"C\" int stray() { return system(\"\"); }\n";
  const std::string compile =
      builtWith("BRIM_CLANG") + " -target arm64-apple-ios11.2 -c -o " + folder + "/stray.o " + folder + "/stray.cpp";
  const std::string link = builtWith("BRIM_LINKER") + " -arch arm64 -platform_version ios 11.2 13.0 -dylib -o " +
                           folder + "/stray.dylib " + folder + "/stray.o " + device::sourceFolder().string() +
                           "/device/stubs/*.tbd";
  const device::CommandOutput compiled = device::outputOf(compile);
  EXPECT_EQ(compiled.status, 0) << compiled.text;
  const device::CommandOutput linked = device::outputOf(link);
  EXPECT_NE(linked.status, 0);
  EXPECT_NE(linked.text.find("undefined symbol: _system"), std::string::npos) << linked.text;
  fs::remove_all(folder);
}

}  // namespace
