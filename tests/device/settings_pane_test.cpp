// Tests of the executable of the settings pane.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "device/mach_o/fixups.hpp"
#include "tests/device/allowed_symbols.hpp"
#include "tests/device/built_files.hpp"
#include "tests/device/code_signature.hpp"

namespace {

using device::MachFile;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const MachFile& executableFile() {
  static const MachFile file = MachFile::read(device::builtPane() / "BrimPreferences");
  return file;
}

TEST(PaneFile, IsABundleForArm64AndSystemVersion11_2) {
  constexpr std::uint32_t bundle = 8;
  EXPECT_EQ(executableFile().processor, 0x0100000cU);
  EXPECT_EQ(executableFile().fileType, bundle);
  EXPECT_EQ(executableFile().minimumSystem, device::version(11, 2));
}

// The pane does not link the Settings framework: the Settings application has already loaded it, and a process without
// the framework must be able to load the pane.
TEST(PaneFile, LinksOnlyTheRuntimeAndTheCLibraries) {
  std::vector<std::string> linked;
  for (const device::LinkedLibrary& library : executableFile().libraries) linked.push_back(library.path);
  EXPECT_THAT(linked, UnorderedElementsAre("/usr/lib/libSystem.B.dylib", "/usr/lib/libobjc.A.dylib"));
}

TEST(PaneFile, ImportsOnlySymbolsThatTheLibraryMayImport) {
  std::set<std::string> allowed;
  for (const device::AllowedSymbol& each : device::allowedSymbols()) allowed.insert(each.symbol);
  const std::vector<device::Bind> imported = device::binds(executableFile());
  EXPECT_GT(imported.size(), 5U);
  for (const device::Bind& bind : imported) EXPECT_TRUE(allowed.contains(bind.symbol)) << bind.symbol;
}

TEST(PaneFile, ExportsNothing) {
  EXPECT_THAT(device::exports(executableFile()), IsEmpty());
  EXPECT_EQ(executableFile().linkerInformation.weakBinds.size, 0U);
}

TEST(PaneFile, HasOneInitializer) {
  const auto initializers = executableFile().sectionsOfType(device::SectionType::Initializers);
  ASSERT_EQ(initializers.size(), 1U);
  EXPECT_EQ(initializers.front().size, sizeof(std::uint64_t));
}

TEST(PaneFile, IsSigned) {
  const device::CodeSignature signature = device::codeSignature(executableFile());
  EXPECT_GT(signature.writtenDigests.size(), 3U);
  EXPECT_EQ(signature.writtenDigests, signature.computedDigests);
}

}  // namespace
