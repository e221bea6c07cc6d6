// Reads the header and the load commands of a Mach-O file with one 64-bit architecture.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace device {

enum class CommandKind : std::uint32_t {
  SymbolTable = 0x2,
  DynamicSymbolTable = 0xb,
  LoadLibrary = 0xc,
  LibraryIdentity = 0xd,
  Segment64 = 0x19,
  Uuid = 0x1b,
  CodeSignature = 0x1d,
  EncryptionInformation64 = 0x2c,
  MinimumSystemVersion = 0x25,
  FunctionStarts = 0x26,
  DynamicLinkerInformation = 0x80000022,
};

// Section types with initializers or thread-local data.
enum class SectionType : std::uint8_t {
  Initializers = 0x9,
  Finalisers = 0xa,
  FirstThreadLocal = 0x11,
  LastThreadLocal = 0x15,
  InitializerOffsets = 0x16,
};

enum class Protection : std::uint32_t { Read = 1, Write = 2, Execute = 4 };

struct Section {
  std::string name;
  std::uint64_t address;
  std::uint64_t size;
  std::uint32_t relocationCount;
  SectionType type;
};

struct Segment {
  std::string name;
  std::uint64_t address;
  std::uint64_t size;
  std::uint64_t fileOffset;
  std::uint64_t fileSize;
  std::uint32_t protection;
  std::vector<Section> sections;

  bool allows(Protection wanted) const { return (protection & static_cast<std::uint32_t>(wanted)) != 0; }
  bool contains(std::uint64_t at) const { return at >= address && at - address < size; }
};

// A range of bytes in the file.
struct FilePart {
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
};

struct DynamicLinkerInformation {
  FilePart rebases;
  FilePart binds;
  FilePart weakBinds;
  FilePart lazyBinds;
  FilePart exports;
};

// The major version is in the upper 16 bits. The minor version and the patch version are in one byte each.
struct Version {
  std::uint32_t value = 0;
  friend bool operator==(const Version&, const Version&) = default;
};
constexpr Version version(std::uint32_t major, std::uint32_t minor) { return {major << 16 | minor << 8}; }

struct LinkedLibrary {
  std::string path;
  Version currentVersion;
  // The dynamic linker rejects an installed library with a lower version.
  Version compatibilityVersion;
};

struct MachFile {
  // Throws std::runtime_error if the file has another format or is damaged.
  static MachFile read(const std::filesystem::path& path);
  explicit MachFile(std::vector<std::uint8_t> content);

  std::span<const std::uint8_t> partAt(FilePart where) const;
  const Segment& segmentAt(std::uint64_t address) const;
  std::vector<Section> sectionsOfType(SectionType type) const;
  // Returns null if the file has no section with this name.
  const Section* sectionNamed(std::string_view name) const;
  std::span<const std::uint8_t> bytesOf(const Section& section) const;

  std::vector<std::uint8_t> bytes;
  std::uint32_t processor = 0;
  std::uint32_t processorVariant = 0;
  std::uint32_t fileType = 0;
  std::uint32_t flags = 0;
  std::vector<CommandKind> commands;
  std::vector<Segment> segments;
  std::vector<LinkedLibrary> libraries;
  std::string installName;
  Version minimumSystem;
  Version builtFor;
  DynamicLinkerInformation linkerInformation;
  FilePart codeSignature;
  FilePart functionStarts;
  std::uint32_t relocationCount = 0;
  // The names of functions and variables in the symbol table, by address.
  std::map<std::uint64_t, std::string> symbols;

 private:
  void readCommand(CommandKind kind, std::span<const std::uint8_t> command);
  void readSegment(std::span<const std::uint8_t> command);
  void readSymbols(std::span<const std::uint8_t> command);
};

std::vector<std::uint8_t> contentsOf(const std::filesystem::path& path);

}  // namespace device
