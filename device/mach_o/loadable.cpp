#include "device/mach_o/loadable.hpp"

#include <algorithm>
#include <stdexcept>

#include "device/mach_o/byte_reader.hpp"

namespace device {

namespace {

constexpr std::uint32_t arm64 = 0x0100000c;
// A loader must not ignore a command with this bit.
constexpr std::uint32_t requiredCommand = 0x80000000;

void require(bool condition, const std::string& problem) {
  if (!condition) throw std::runtime_error(problem);
}

std::string hexadecimal(std::uint32_t value) {
  constexpr const char* digits = "0123456789abcdef";
  std::string text;
  for (; value > 0; value /= 16) text.insert(text.begin(), digits[value % 16]);
  return "0x" + text;
}

void requireValid(const MachFile& file, const Segment& segment, std::uint64_t endOfPrevious) {
  require(segment.address >= endOfPrevious, "segment " + segment.name + " overlaps the previous one");
  require(segment.size <= maxSizeInMemory && segment.address <= maxSizeInMemory - segment.size,
          "segment " + segment.name + " is too large");
  require(segment.fileSize <= segment.size, "segment " + segment.name + " is smaller than its content");
  part(file.bytes, segment.fileOffset, segment.fileSize);
  for (const Section& section : segment.sections) {
    const std::uint64_t last = section.address + section.size - 1;
    require(section.size == 0 || (segment.contains(section.address) && segment.contains(last)),
            "section " + section.name + " is outside its segment");
  }
}

}  // namespace

void requireLoadable(const MachFile& file, FileType type) {
  require(file.processor == arm64 && file.processorVariant == 0, "the processor type is not arm64");
  require(file.fileType == static_cast<std::uint32_t>(type),
          type == FileType::Library ? "the file is not a dynamic library" : "the file is not a bundle");
  for (const CommandKind kind : file.commands) {
    const auto number = static_cast<std::uint32_t>(kind);
    require((number & requiredCommand) == 0 || kind == CommandKind::DynamicLinkerInformation,
            "load command " + hexadecimal(number) + " is unknown");
  }
  require(file.linkerInformation.weakBinds.size == 0, "the file has weak binds");
  require(!file.segments.empty(), "the file has no segment");
  std::uint64_t end = 0;
  for (const Segment& segment : file.segments) {
    requireValid(file, segment, end);
    end = segment.address + segment.size;
  }
  for (const Section& section : file.sectionsOfType(SectionType::Initializers))
    require(section.size % sizeof(std::uint64_t) == 0, "the size of the initializers is not a multiple of 8");
}

std::uint64_t sizeInMemory(const MachFile& file) {
  const Segment& last = file.segments.back();
  return last.address + last.size;
}

}  // namespace device
