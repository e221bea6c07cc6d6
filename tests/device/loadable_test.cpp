// Tests that damaged libraries are rejected with an error that names the problem.
#include "device/mach_o/loadable.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <stdexcept>

#include "device/mach_o/fixups.hpp"
#include "device/mach_o/unwind_info.hpp"
#include "tests/device/built_files.hpp"

namespace {

using device::MachFile;

using Bytes = std::vector<std::uint8_t>;

const Bytes& library() {
  static const Bytes bytes = device::contentsOf(device::builtLibrary());
  return bytes;
}

// Reads the library as the loader does.
void load(const Bytes& bytes) {
  const MachFile file(bytes);
  device::requireLoadable(file, device::FileType::Library);
  device::rebases(file);
  device::binds(file);
  device::exports(file);
  device::unwindEntries(file);
  device::functionStarts(file);
}

std::string errorOf(const Bytes& bytes) {
  try {
    load(bytes);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

template <class Number>
void store(Bytes& bytes, std::size_t offset, Number number) {
  std::memcpy(&bytes.at(offset), &number, sizeof number);
}

std::uint32_t numberAt(const Bytes& bytes, std::size_t offset) {
  std::uint32_t number = 0;
  std::memcpy(&number, &bytes.at(offset), sizeof number);
  return number;
}

// Returns the offset of the first load command of this kind.
std::size_t offsetOf(device::CommandKind kind) {
  std::size_t offset = 32;
  while (numberAt(library(), offset) != static_cast<std::uint32_t>(kind)) offset += numberAt(library(), offset + 4);
  return offset;
}

Bytes withNumber(std::size_t offset, std::uint32_t number) {
  Bytes bytes = library();
  store(bytes, offset, number);
  return bytes;
}

// Returns the library with these opcodes at the beginning of its rebase or bind opcodes.
Bytes withOpcodes(std::size_t positionInCommand, const Bytes& opcodes) {
  Bytes bytes = library();
  const std::size_t command = offsetOf(device::CommandKind::DynamicLinkerInformation) + positionInCommand;
  std::copy(opcodes.begin(), opcodes.end(), bytes.begin() + numberAt(bytes, command));
  return bytes;
}
Bytes withRebases(const Bytes& opcodes) { return withOpcodes(8, opcodes); }
Bytes withBinds(const Bytes& opcodes) { return withOpcodes(16, opcodes); }

TEST(LoadableLibrary, BuiltLibraryIsAccepted) {
  EXPECT_EQ(errorOf(library()), "");
  EXPECT_GT(device::sizeInMemory(MachFile(library())), library().size());
}

TEST(LoadableLibrary, OtherFilesAreRejected) {
  EXPECT_EQ(errorOf({}), "the file ends too early");
  EXPECT_EQ(errorOf(Bytes(64, 0)), "not a 64-bit Mach-O file");
  EXPECT_THROW(MachFile::read("/nonexistent/Brim.dylib"), std::runtime_error);
}

TEST(LoadableLibrary, IsNotTruncated) {
  for (std::size_t size = 0; size < library().size(); size += 1021) {
    Bytes bytes = library();
    bytes.resize(size);
    EXPECT_NE(errorOf(bytes), "") << size << " bytes";
  }
}

TEST(LoadableLibrary, IsForArm64) {
  EXPECT_EQ(errorOf(withNumber(4, 0x01000007)), "the processor type is not arm64");
  EXPECT_EQ(errorOf(withNumber(8, 2)), "the processor type is not arm64");
}

TEST(LoadableLibrary, IsADynamicLibrary) { EXPECT_EQ(errorOf(withNumber(12, 2)), "the file is not a dynamic library"); }

TEST(LoadableLibrary, IsNotABundle) {
  const MachFile pane = MachFile::read(device::builtPane() / "BrimPreferences");
  EXPECT_NO_THROW(device::requireLoadable(pane, device::FileType::Bundle));
  EXPECT_THROW(device::requireLoadable(pane, device::FileType::Library), std::runtime_error);
  EXPECT_THROW(device::requireLoadable(MachFile(library()), device::FileType::Bundle), std::runtime_error);
}

TEST(LoadableLibrary, HasNoUnknownRequiredCommand) {
  EXPECT_EQ(errorOf(withNumber(offsetOf(device::CommandKind::Uuid), 0x80000034)), "load command 0x80000034 is unknown");
}

TEST(LoadableLibrary, HasNoCommandWithoutALength) {
  EXPECT_EQ(errorOf(withNumber(offsetOf(device::CommandKind::Uuid) + 4, 0)), "a load command has no length");
}

TEST(LoadableLibrary, HasItsSegmentsInOrderAndInTheFile) {
  const std::size_t text = offsetOf(device::CommandKind::Segment64);
  const std::size_t data = text + numberAt(library(), text + 4);
  constexpr std::size_t address = 24;
  constexpr std::size_t size = 32;
  constexpr std::size_t fileOffset = 40;
  constexpr std::size_t upperHalf = 4;
  EXPECT_NE(errorOf(withNumber(data + address, 0)).find("overlaps the previous one"), std::string::npos);
  EXPECT_NE(errorOf(withNumber(data + size, 1)).find("is smaller than its content"), std::string::npos);
  EXPECT_NE(errorOf(withNumber(data + size + upperHalf, 1)).find("is too large"), std::string::npos);
  EXPECT_EQ(errorOf(withNumber(data + fileOffset, 0x7fff0000)), "a part is outside the file");
}

TEST(LoadableLibrary, HasItsSectionsInTheirSegments) {
  constexpr std::size_t firstSection = 72;
  constexpr std::size_t address = 32;
  const std::size_t text = offsetOf(device::CommandKind::Segment64);
  EXPECT_EQ(errorOf(withNumber(text + firstSection + address + 4, 1)), "section __text is outside its segment");
}

// The upper half of a byte is the opcode, and the lower half is the operand.
TEST(LoadableLibrary, HasNoRebaseOpcodesOutOfRange) {
  EXPECT_EQ(errorOf(withRebases({0x11, 0xf0})), "a rebase opcode is unknown");
  EXPECT_EQ(errorOf(withRebases({0x12})), "a fixup is not a pointer");
  EXPECT_EQ(errorOf(withRebases({0x11, 0x2e, 0x00})), "a fixup is in a segment that does not exist");
  EXPECT_EQ(errorOf(withRebases({0x11, 0x21, 0xff, 0xff, 0xff, 0x7f, 0x51})), "an address is outside all segments");
  // These are more pointers than fit into the segments.
  EXPECT_NE(errorOf(withRebases({0x11, 0x21, 0x00, 0x60, 0xff, 0xff, 0xff, 0xff, 0x7f})), "");
  EXPECT_EQ(errorOf(withRebases({0x30, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01})),
            "a number has more than 64 bits");
}

TEST(LoadableLibrary, HasNoBindOpcodesOutOfRange) {
  EXPECT_EQ(errorOf(withBinds({0xd0})), "a bind opcode is unknown");
  EXPECT_EQ(errorOf(withBinds({0x71, 0x00, 0x90})), "a bind is to a library that does not exist");
  EXPECT_EQ(errorOf(withBinds({0x1f, 0x71, 0x00, 0x90})), "a bind is to a library that does not exist");
  EXPECT_EQ(errorOf(withBinds({0x11, 0x7e, 0x00, 0x90})), "a fixup is in a segment that does not exist");
  EXPECT_EQ(errorOf(withBinds({0x11, 0x71, 0xff, 0xff, 0xff, 0x7f, 0x90})), "an address is outside all segments");
}

TEST(LoadableLibrary, HasNoPointerAcrossTheEndOfASegment) {
  const MachFile file(library());
  // The offset of a pointer four bytes before the end of the first segment, encoded with seven bits per byte.
  Bytes opcodes = {0x11, 0x20};
  std::uint64_t offset = file.segments.front().size - 4;
  for (; offset >= 0x80; offset >>= 7) opcodes.push_back(static_cast<std::uint8_t>(offset | 0x80));
  opcodes.push_back(static_cast<std::uint8_t>(offset));
  opcodes.push_back(0x51);
  EXPECT_EQ(errorOf(withRebases(opcodes)), "a fixup is at the end of a segment");
}

// Damages single bytes of the header, the load commands, the linking information and the unwind information. The
// library is either rejected or accepted.
TEST(LoadableLibrary, NeverCrashesTheReader) {
  const MachFile file(library());
  const std::size_t information = file.linkerInformation.rebases.offset;
  const std::size_t end = file.linkerInformation.exports.offset + file.linkerInformation.exports.size;
  const auto damage = [](std::size_t offset) {
    Bytes bytes = library();
    bytes.at(offset) = static_cast<std::uint8_t>(~bytes.at(offset));
    errorOf(bytes);
  };
  for (std::size_t offset = 0; offset < 32 + numberAt(library(), 20); offset += 3) damage(offset);
  for (std::size_t offset = information; offset < end; offset += 5) damage(offset);
  const auto unwinding = file.bytesOf(*file.sectionNamed("__unwind_info"));
  const auto start = static_cast<std::size_t>(unwinding.data() - file.bytes.data());
  for (std::size_t offset = start; offset < start + unwinding.size(); offset += 7) damage(offset);
}

}  // namespace
