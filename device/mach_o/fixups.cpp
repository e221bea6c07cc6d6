#include "device/mach_o/fixups.hpp"

#include <set>
#include <stdexcept>

#include "device/mach_o/byte_reader.hpp"

namespace device {

namespace {

constexpr std::uint64_t pointerSize = 8;
constexpr std::uint8_t pointerKind = 1;

enum class RebaseOpcode : std::uint8_t {
  Done = 0x00,
  SetType = 0x10,
  SetSegmentAndOffset = 0x20,
  AddAddress = 0x30,
  AddAddressScaled = 0x40,
  RebaseTimesImmediate = 0x50,
  RebaseTimes = 0x60,
  RebaseAndAddAddress = 0x70,
  RebaseTimesSkipping = 0x80,
};

enum class BindOpcode : std::uint8_t {
  Done = 0x00,
  SetLibraryImmediate = 0x10,
  SetLibrary = 0x20,
  SetSymbol = 0x40,
  SetType = 0x50,
  SetSegmentAndOffset = 0x70,
  AddAddress = 0x80,
  Bind = 0x90,
  BindAndAddAddress = 0xa0,
  BindAndAddScaled = 0xb0,
  BindTimesSkipping = 0xc0,
};

template <class Opcode>
struct Instruction {
  Opcode opcode;
  std::uint8_t immediate;
};

template <class Opcode>
Instruction<Opcode> instruction(ByteReader& reader) {
  const auto byte = reader.number<std::uint8_t>();
  return {static_cast<Opcode>(byte & 0xf0), static_cast<std::uint8_t>(byte & 0x0f)};
}

void requirePointer(std::uint8_t kind) {
  if (kind != pointerKind) throw std::runtime_error("a fixup is not a pointer");
}

std::uint64_t startOfSegment(const MachFile& file, std::size_t number) {
  if (number >= file.segments.size()) throw std::runtime_error("a fixup is in a segment that does not exist");
  return file.segments[number].address;
}

void requirePlace(const MachFile& file, std::uint64_t address) {
  const Segment& segment = file.segmentAt(address);
  if (segment.size - (address - segment.address) < pointerSize)
    throw std::runtime_error("a fixup is at the end of a segment");
}

class RebaseProgram {
 public:
  explicit RebaseProgram(const MachFile& program)
      : file(program), reader(program.partAt(program.linkerInformation.rebases)) {}

  std::vector<std::uint64_t> run() {
    while (!reader.atEnd() && step()) {
    }
    return std::move(found);
  }

 private:
  bool step() {
    const auto [opcode, immediate] = instruction<RebaseOpcode>(reader);
    switch (opcode) {
      case RebaseOpcode::Done:
        return false;
      case RebaseOpcode::SetType:
        requirePointer(immediate);
        return true;
      case RebaseOpcode::SetSegmentAndOffset:
        address = startOfSegment(file, immediate) + reader.unsignedLeb128();
        return true;
      case RebaseOpcode::AddAddress:
        address += reader.unsignedLeb128();
        return true;
      case RebaseOpcode::AddAddressScaled:
        address += immediate * pointerSize;
        return true;
      case RebaseOpcode::RebaseTimesImmediate:
        rebase(immediate, 0);
        return true;
      case RebaseOpcode::RebaseTimes:
        rebase(reader.unsignedLeb128(), 0);
        return true;
      case RebaseOpcode::RebaseAndAddAddress:
        rebase(1, reader.unsignedLeb128());
        return true;
      case RebaseOpcode::RebaseTimesSkipping: {
        const std::uint64_t times = reader.unsignedLeb128();
        rebase(times, reader.unsignedLeb128());
        return true;
      }
    }
    throw std::runtime_error("a rebase opcode is unknown");
  }

  void rebase(std::uint64_t times, std::uint64_t skipped) {
    for (; times > 0; --times) {
      requirePlace(file, address);
      found.push_back(address);
      address += pointerSize + skipped;
    }
  }

  const MachFile& file;
  ByteReader reader;
  std::uint64_t address = 0;
  std::vector<std::uint64_t> found;
};

// Determines whether an end mark ends the opcodes or only separates them. It separates them between lazy binds.
enum class EndMark { Ends, Separates };

class BindProgram {
 public:
  BindProgram(const MachFile& program, FilePart where, EndMark meaning)
      : file(program), reader(program.partAt(where)), endMark(meaning) {}

  void run(std::vector<Bind>& binds) {
    while (!reader.atEnd() && step(binds)) {
    }
  }

 private:
  bool step(std::vector<Bind>& binds) {
    const auto [opcode, immediate] = instruction<BindOpcode>(reader);
    switch (opcode) {
      case BindOpcode::Done:
        return endMark == EndMark::Separates;
      case BindOpcode::SetLibraryImmediate:
        library = immediate;
        return true;
      case BindOpcode::SetLibrary:
        library = reader.unsignedLeb128();
        return true;
      case BindOpcode::SetSymbol:
        symbol = reader.text();
        return true;
      case BindOpcode::SetType:
        requirePointer(immediate);
        return true;
      case BindOpcode::SetSegmentAndOffset:
        address = startOfSegment(file, immediate) + reader.unsignedLeb128();
        return true;
      case BindOpcode::AddAddress:
        address += reader.unsignedLeb128();
        return true;
      case BindOpcode::Bind:
        bind(binds, 1, 0);
        return true;
      case BindOpcode::BindAndAddAddress:
        bind(binds, 1, reader.unsignedLeb128());
        return true;
      case BindOpcode::BindAndAddScaled:
        bind(binds, 1, immediate * pointerSize);
        return true;
      case BindOpcode::BindTimesSkipping: {
        const std::uint64_t times = reader.unsignedLeb128();
        bind(binds, times, reader.unsignedLeb128());
        return true;
      }
    }
    throw std::runtime_error("a bind opcode is unknown");
  }

  void bind(std::vector<Bind>& binds, std::uint64_t times, std::uint64_t skipped) {
    if (library == 0 || library > file.libraries.size())
      throw std::runtime_error("a bind is to a library that does not exist");
    for (; times > 0; --times) {
      requirePlace(file, address);
      binds.push_back({address, symbol, file.libraries[library - 1].path});
      address += pointerSize + skipped;
    }
  }

  const MachFile& file;
  ByteReader reader;
  EndMark endMark;
  std::uint64_t address = 0;
  std::uint64_t library = 0;
  std::string symbol;
};

// Exported names are stored in a prefix tree. `visited` contains the nodes that were read.
void readExports(std::span<const std::uint8_t> tree, std::size_t node, const std::string& prefix,
                 std::set<std::size_t>& visited, std::vector<Export>& found) {
  if (!visited.insert(node).second) throw std::runtime_error("the tree of exported names has a cycle");
  ByteReader reader(part(tree, node, tree.size() - node));
  if (reader.unsignedLeb128() != 0) {
    if (reader.unsignedLeb128() != 0) throw std::runtime_error("an export is not a plain definition");
    found.push_back({prefix, reader.unsignedLeb128()});
  }
  const auto children = reader.number<std::uint8_t>();
  for (std::uint8_t child = 0; child < children; ++child) {
    const std::string piece = reader.text();
    readExports(tree, static_cast<std::size_t>(reader.unsignedLeb128()), prefix + piece, visited, found);
  }
}

}  // namespace

std::vector<std::uint64_t> rebases(const MachFile& file) { return RebaseProgram(file).run(); }

std::vector<Bind> binds(const MachFile& file) {
  std::vector<Bind> found;
  BindProgram(file, file.linkerInformation.binds, EndMark::Ends).run(found);
  BindProgram(file, file.linkerInformation.lazyBinds, EndMark::Separates).run(found);
  return found;
}

std::vector<Export> exports(const MachFile& file) {
  std::vector<Export> found;
  const auto tree = file.partAt(file.linkerInformation.exports);
  std::set<std::size_t> visited;
  if (!tree.empty()) readExports(tree, 0, "", visited, found);
  return found;
}

}  // namespace device
