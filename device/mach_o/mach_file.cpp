#include "device/mach_o/mach_file.hpp"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "device/mach_o/byte_reader.hpp"

namespace device {

namespace {

constexpr std::uint32_t magic64 = 0xfeedfacf;
constexpr std::size_t headerSize = 32;
constexpr std::size_t commandHeaderSize = 8;

ByteReader bodyOf(std::span<const std::uint8_t> command) { return ByteReader(command.subspan(commandHeaderSize)); }

FilePart filePart(ByteReader& reader) {
  const auto offset = reader.number<std::uint32_t>();
  return {offset, reader.number<std::uint32_t>()};
}

Section section(ByteReader& reader) {
  Section read;
  read.name = reader.text(16);
  reader.skip(16);  // the segment's name, repeated
  read.address = reader.number<std::uint64_t>();
  read.size = reader.number<std::uint64_t>();
  reader.skip(12);  // offset, alignment, position of relocations
  read.relocationCount = reader.number<std::uint32_t>();
  read.type = static_cast<SectionType>(reader.number<std::uint32_t>() & 0xff);
  reader.skip(12);
  return read;
}

// Reads the text of a command. It follows the fields of the command, at an offset from the start of the command.
std::string textIn(std::span<const std::uint8_t> command) {
  const auto offset = bodyOf(command).number<std::uint32_t>();
  return ByteReader(part(command, offset, command.size() - offset)).text();
}

}  // namespace

std::vector<std::uint8_t> contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

MachFile MachFile::read(const std::filesystem::path& path) { return MachFile(contentsOf(path)); }

MachFile::MachFile(std::vector<std::uint8_t> content) : bytes(std::move(content)) {
  ByteReader header(bytes);
  if (header.number<std::uint32_t>() != magic64) throw std::runtime_error("not a 64-bit Mach-O file");
  processor = header.number<std::uint32_t>();
  processorVariant = header.number<std::uint32_t>();
  fileType = header.number<std::uint32_t>();
  const auto count = header.number<std::uint32_t>();
  const auto size = header.number<std::uint32_t>();
  flags = header.number<std::uint32_t>();

  ByteReader reader(part(bytes, headerSize, size));
  for (std::uint32_t index = 0; index < count; ++index) {
    const std::size_t start = reader.position();
    const auto kind = static_cast<CommandKind>(reader.number<std::uint32_t>());
    const auto length = reader.number<std::uint32_t>();
    if (length < commandHeaderSize) throw std::runtime_error("a load command has no length");
    reader.skip(length - commandHeaderSize);
    commands.push_back(kind);
    readCommand(kind, part(bytes, headerSize + start, length));
  }
}

void MachFile::readCommand(CommandKind kind, std::span<const std::uint8_t> command) {
  ByteReader body = bodyOf(command);
  switch (kind) {
    case CommandKind::Segment64:
      return readSegment(command);
    case CommandKind::LoadLibrary:
      body.skip(2 * sizeof(std::uint32_t));
      libraries.push_back({textIn(command), {body.number<std::uint32_t>()}, {}});
      libraries.back().compatibilityVersion = {body.number<std::uint32_t>()};
      return;
    case CommandKind::LibraryIdentity:
      installName = textIn(command);
      return;
    case CommandKind::MinimumSystemVersion:
      minimumSystem = {body.number<std::uint32_t>()};
      builtFor = {body.number<std::uint32_t>()};
      return;
    case CommandKind::DynamicLinkerInformation:
      for (FilePart* where : {&linkerInformation.rebases, &linkerInformation.binds, &linkerInformation.weakBinds,
                              &linkerInformation.lazyBinds, &linkerInformation.exports})
        *where = filePart(body);
      return;
    case CommandKind::CodeSignature:
      codeSignature = filePart(body);
      return;
    case CommandKind::FunctionStarts:
      functionStarts = filePart(body);
      return;
    case CommandKind::DynamicSymbolTable:
      body.skip(60);
      relocationCount += body.number<std::uint32_t>();
      body.skip(4);
      relocationCount += body.number<std::uint32_t>();
      return;
    case CommandKind::SymbolTable:
      return readSymbols(command);
    default:
      return;
  }
}

void MachFile::readSegment(std::span<const std::uint8_t> command) {
  ByteReader body = bodyOf(command);
  Segment read;
  read.name = body.text(16);
  read.address = body.number<std::uint64_t>();
  read.size = body.number<std::uint64_t>();
  read.fileOffset = body.number<std::uint64_t>();
  read.fileSize = body.number<std::uint64_t>();
  body.skip(4);  // maximum protection
  read.protection = body.number<std::uint32_t>();
  const auto count = body.number<std::uint32_t>();
  body.skip(4);
  for (std::uint32_t index = 0; index < count; ++index) read.sections.push_back(section(body));
  segments.push_back(std::move(read));
}

void MachFile::readSymbols(std::span<const std::uint8_t> command) {
  constexpr std::size_t entrySize = 16;
  constexpr std::uint8_t debuggingMask = 0xe0;
  constexpr std::uint8_t typeMask = 0x0e;
  constexpr std::uint8_t definedInSection = 0x0e;
  ByteReader body = bodyOf(command);
  const auto offset = body.number<std::uint32_t>();
  const auto count = body.number<std::uint32_t>();
  const auto texts = partAt(filePart(body));
  ByteReader entries(part(bytes, offset, count * entrySize));
  while (!entries.atEnd()) {
    const auto name = entries.number<std::uint32_t>();
    const auto type = entries.number<std::uint8_t>();
    entries.skip(3);
    const auto address = entries.number<std::uint64_t>();
    if ((type & debuggingMask) == 0 && (type & typeMask) == definedInSection)
      symbols[address] = ByteReader(part(texts, name, texts.size() - name)).text();
  }
}

std::span<const std::uint8_t> MachFile::partAt(FilePart where) const { return part(bytes, where.offset, where.size); }

const Segment& MachFile::segmentAt(std::uint64_t address) const {
  for (const Segment& segment : segments)
    if (segment.contains(address)) return segment;
  throw std::runtime_error("an address is outside all segments");
}

std::vector<Section> MachFile::sectionsOfType(SectionType type) const {
  std::vector<Section> found;
  for (const Segment& segment : segments)
    for (const Section& section : segment.sections)
      if (section.type == type) found.push_back(section);
  return found;
}

const Section* MachFile::sectionNamed(std::string_view name) const {
  for (const Segment& segment : segments)
    for (const Section& section : segment.sections)
      if (section.name == name) return &section;
  return nullptr;
}

std::span<const std::uint8_t> MachFile::bytesOf(const Section& section) const {
  const Segment& segment = segmentAt(section.address);
  return part(part(bytes, segment.fileOffset, segment.fileSize), section.address - segment.address, section.size);
}

}  // namespace device
