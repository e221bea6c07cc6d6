// Tests of the properties of the library's file that the phone's dynamic linker and kernel require.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "device/mach_o/fixups.hpp"
#include "tests/device/built_files.hpp"
#include "tests/device/code_signature.hpp"

namespace {

using device::CommandKind;
using device::MachFile;
using device::Protection;
using device::SectionType;
using device::Segment;

const MachFile& library() {
  static const MachFile file = MachFile::read(device::builtLibrary());
  return file;
}

std::size_t count(CommandKind kind) {
  return static_cast<std::size_t>(std::count(library().commands.begin(), library().commands.end(), kind));
}

TEST(LibraryFile, IsADynamicLibraryForArm64) {
  EXPECT_EQ(library().processor, 0x0100000cU);
  EXPECT_EQ(library().processorVariant, 0U);
  EXPECT_EQ(library().fileType, 6U);
}

TEST(LibraryFile, SupportsSystemVersion11_2AndLater) {
  EXPECT_EQ(count(CommandKind::MinimumSystemVersion), 1U);
  EXPECT_EQ(library().minimumSystem, device::version(11, 2));
  EXPECT_EQ(library().builtFor, device::version(13, 0));
}

TEST(LibraryFile, HasItsInstallPath) {
  EXPECT_EQ(library().installName, "/Library/MobileSubstrate/DynamicLibraries/Brim.dylib");
}

TEST(LibraryFile, LinksThePlatformsLibrariesButNoCppRuntime) {
  std::vector<std::string> loaded;
  for (const device::LinkedLibrary& linked : library().libraries) loaded.push_back(linked.path);
  std::sort(loaded.begin(), loaded.end());
  EXPECT_EQ(loaded,
            (std::vector<std::string>{"/System/Library/Frameworks/AudioToolbox.framework/AudioToolbox",
                                      "/System/Library/Frameworks/Contacts.framework/Contacts",
                                      "/System/Library/Frameworks/Foundation.framework/Foundation",
                                      "/System/Library/Frameworks/UIKit.framework/UIKit", "/usr/lib/libSystem.B.dylib",
                                      "/usr/lib/libobjc.A.dylib", "/usr/lib/libsqlite3.dylib"}));
}

TEST(LibraryFile, AcceptsEveryVersionOfThePlatformsLibraries) {
  for (const device::LinkedLibrary& linked : library().libraries) {
    EXPECT_EQ(linked.currentVersion, device::Version{}) << linked.path;
    EXPECT_EQ(linked.compatibilityVersion, device::Version{}) << linked.path;
  }
}

TEST(LibraryFile, HasOnlyLoadCommandsOfSystemVersion11_2) {
  for (const CommandKind kind : library().commands) {
    switch (kind) {
      case CommandKind::SymbolTable:
      case CommandKind::DynamicSymbolTable:
      case CommandKind::LoadLibrary:
      case CommandKind::LibraryIdentity:
      case CommandKind::Segment64:
      case CommandKind::Uuid:
      case CommandKind::CodeSignature:
      case CommandKind::EncryptionInformation64:
      case CommandKind::MinimumSystemVersion:
      case CommandKind::FunctionStarts:
      case CommandKind::DynamicLinkerInformation:
        break;
      default:
        ADD_FAILURE() << "load command 0x" << std::hex << static_cast<std::uint32_t>(kind);
    }
  }
}

TEST(LibraryFile, HasClassicFixups) {
  EXPECT_EQ(count(CommandKind::DynamicLinkerInformation), 1U);
  EXPECT_GT(device::rebases(library()).size(), 100U);
  EXPECT_GT(device::binds(library()).size(), 30U);
  EXPECT_EQ(library().linkerInformation.weakBinds.size, 0U);
}

TEST(LibraryFile, IsAlignedToThePhonesPageSize) {
  constexpr std::uint64_t page = 0x4000;
  for (const Segment& segment : library().segments) {
    EXPECT_EQ(segment.address % page, 0U) << segment.name;
    EXPECT_EQ(segment.size % page, 0U) << segment.name;
    EXPECT_EQ(segment.fileOffset % page, 0U) << segment.name;
    EXPECT_LE(segment.fileSize, segment.size) << segment.name;
  }
  const Segment& last = library().segments.back();
  EXPECT_EQ(last.name, "__LINKEDIT");
  EXPECT_EQ(last.fileOffset + last.fileSize, library().bytes.size());
}

TEST(LibraryFile, HasNoFixupsInReadOnlySegments) {
  EXPECT_EQ(library().relocationCount, 0U);
  for (const Segment& segment : library().segments) {
    EXPECT_FALSE(segment.allows(Protection::Write) && segment.allows(Protection::Execute)) << segment.name;
    for (const device::Section& section : segment.sections) EXPECT_EQ(section.relocationCount, 0U) << section.name;
  }
  for (const std::uint64_t address : device::rebases(library()))
    EXPECT_TRUE(library().segmentAt(address).allows(Protection::Write)) << std::hex << address;
  for (const device::Bind& bind : device::binds(library()))
    EXPECT_TRUE(library().segmentAt(bind.address).allows(Protection::Write)) << bind.symbol;
}

TEST(LibraryFile, HasExactlyOneInitializer) {
  const auto initializers = library().sectionsOfType(SectionType::Initializers);
  ASSERT_EQ(initializers.size(), 1U);
  EXPECT_EQ(initializers.front().size, sizeof(std::uint64_t));
  EXPECT_TRUE(library().sectionsOfType(SectionType::InitializerOffsets).empty());
  EXPECT_TRUE(library().sectionsOfType(SectionType::Finalisers).empty());
}

TEST(LibraryFile, HasNoThreadLocalVariables) {
  for (const Segment& segment : library().segments) {
    for (const device::Section& section : segment.sections)
      EXPECT_TRUE(section.type < SectionType::FirstThreadLocal || section.type > SectionType::LastThreadLocal)
          << section.name;
  }
}

TEST(LibraryFile, ExportsOnlyTheInspectionFunctions) {
  std::vector<std::string> exported;
  for (const device::Export& each : device::exports(library())) {
    exported.push_back(each.symbol);
    EXPECT_TRUE(library().segmentAt(each.address).allows(Protection::Execute)) << each.symbol;
  }
  std::sort(exported.begin(), exported.end());
  EXPECT_EQ(exported, (std::vector<std::string>{"_brim_installed_methods", "_brim_settings", "_brim_version"}));
}

TEST(LibraryFile, IsSignedPageByPage) {
  constexpr std::uint32_t adHoc = 0x2;
  constexpr std::uint8_t sha256 = 2;
  const device::CodeSignature signature = device::codeSignature(library());
  EXPECT_NE(signature.flags & adHoc, 0U);
  EXPECT_EQ(signature.digestType, sha256);
  EXPECT_EQ(signature.signedSize, library().codeSignature.offset);
  ASSERT_GT(signature.writtenDigests.size(), 10U);
  EXPECT_EQ(signature.writtenDigests, signature.computedDigests);
}

TEST(LibraryFile, StaysWithinItsSizeBudget) {
  const std::uintmax_t size = library().bytes.size();
  constexpr std::uintmax_t budget = BRIM_SIZE_BUDGET;
  std::cout << "Brim.dylib: " << size << " bytes of " << budget << "\n";
  EXPECT_LE(size, budget);
}

TEST(LibraryFile, IsRejectedIfItIsTruncated) {
  std::vector<std::uint8_t> bytes = library().bytes;
  bytes.resize(600);
  EXPECT_THROW(MachFile{bytes}, std::runtime_error);
  EXPECT_THROW(MachFile({}), std::runtime_error);
}

TEST(LibraryFile, DoesNotMatchItsSignatureAfterAPageHasChanged) {
  std::vector<std::uint8_t> bytes = library().bytes;
  bytes[5000] ^= 1;
  const device::CodeSignature signature = device::codeSignature(MachFile(bytes));
  EXPECT_NE(signature.writtenDigests, signature.computedDigests);
}

}  // namespace
