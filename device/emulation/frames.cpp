#include "device/emulation/frames.hpp"

#include <array>
#include <cstdio>
#include <cstring>
#include <stdexcept>

extern "C" void __register_frame(const void* information);

namespace emulation {

namespace {

using device::UnwindEntry;
using device::UnwindMode;

// Numbers of registers in the DWARF format.
constexpr std::uint8_t framePointer = 29;
constexpr std::uint8_t returnAddress = 30;
constexpr std::uint8_t stackPointer = 31;
constexpr std::uint8_t firstVectorRegister = 64;

constexpr std::uint8_t version = 1;
constexpr std::uint8_t codeAlignment = 4;
constexpr std::uint8_t dataAlignment = 0x78;  // -8
constexpr std::uint8_t sizeOfFrameRecord = 16;

// SavedAt contains the number of the register.
enum class Instruction : std::uint8_t {
  Nothing = 0x00,
  SavedAtExtended = 0x05,
  DefineFrameAddress = 0x0c,
  SavedAt = 0x80
};
constexpr std::uint8_t maxRegisterOfSavedAt = 63;

// Two consecutive registers that a function can save. The pairs are saved in this order, at descending addresses below
// the frame record.
struct RegisterPair {
  std::uint32_t bit;
  std::uint8_t first;
};
constexpr RegisterPair pairs[] = {
    {0x001, 19},
    {0x002, 21},
    {0x004, 23},
    {0x008, 25},
    {0x010, 27},
    {0x100, firstVectorRegister + 8},
    {0x200, firstVectorRegister + 10},
    {0x400, firstVectorRegister + 12},
    {0x800, firstVectorRegister + 14},
};

[[noreturn]] void failForEncoding(const UnwindEntry& entry) {
  std::array<char, 100> text{};
  std::snprintf(text.data(), text.size(), "the function at 0x%llx has the unsupported unwind encoding 0x%08x",
                static_cast<unsigned long long>(entry.begin), static_cast<unsigned>(entry.encoding));
  throw std::runtime_error(text.data());
}

class Writer {
 public:
  explicit Writer(std::uint64_t loadAddress) : loadAddress_(loadAddress) { writeCommonEntry(); }

  void writeFunction(const UnwindEntry& entry) {
    const std::size_t start = begin();
    number(static_cast<std::uint32_t>(bytes_.size()));  // the distance to the common entry, which is at the start
    number(loadAddress_ + entry.begin);
    number(entry.end - entry.begin);
    switch (entry.mode()) {
      case UnwindMode::Frameless:
        requireFrameless(entry);
        break;
      case UnwindMode::Frame:
        writeFrame(entry);
        break;
      default:
        failForEncoding(entry);
    }
    finish(start);
  }

  std::vector<std::uint8_t> finished() {
    number(std::uint32_t{0});
    return std::move(bytes_);
  }

 private:
  void writeCommonEntry() {
    const std::size_t start = begin();
    number(std::uint32_t{0});  // marks a common entry
    bytes_.insert(bytes_.end(), {version, '\0', codeAlignment, dataAlignment, returnAddress});
    defineFrameAddress(stackPointer, 0);
    finish(start);
  }

  // A function that saves nothing needs no instructions, because the common entry already describes it.
  static void requireFrameless(const UnwindEntry& entry) {
    if (entry.encoding != static_cast<std::uint32_t>(UnwindMode::Frameless)) failForEncoding(entry);
  }

  void writeFrame(const UnwindEntry& entry) {
    defineFrameAddress(framePointer, sizeOfFrameRecord);
    std::uint8_t slot = 0;
    savedAt(returnAddress, ++slot);
    savedAt(framePointer, ++slot);
    std::uint32_t known = static_cast<std::uint32_t>(UnwindMode::Frame);
    for (const RegisterPair& pair : pairs) {
      known |= pair.bit;
      if ((entry.encoding & pair.bit) == 0) continue;
      savedAt(pair.first, ++slot);
      savedAt(static_cast<std::uint8_t>(pair.first + 1), ++slot);
    }
    if ((entry.encoding & ~known) != 0) failForEncoding(entry);
  }

  void defineFrameAddress(std::uint8_t baseRegister, std::uint8_t offset) {
    bytes_.insert(bytes_.end(), {code(Instruction::DefineFrameAddress), baseRegister, offset});
  }

  // A slot has eight bytes. Slot 1 is directly below the frame address.
  void savedAt(std::uint8_t savedRegister, std::uint8_t slot) {
    if (savedRegister > maxRegisterOfSavedAt)
      bytes_.insert(bytes_.end(), {code(Instruction::SavedAtExtended), savedRegister, slot});
    else
      bytes_.insert(bytes_.end(), {static_cast<std::uint8_t>(code(Instruction::SavedAt) | savedRegister), slot});
  }

  static std::uint8_t code(Instruction instruction) { return static_cast<std::uint8_t>(instruction); }

  template <class Number>
  void number(Number value) {
    bytes_.resize(bytes_.size() + sizeof value);
    std::memcpy(&bytes_[bytes_.size() - sizeof value], &value, sizeof value);
  }

  // Begins an entry with space for its length, and returns the position of the entry.
  std::size_t begin() {
    number(std::uint32_t{0});
    return bytes_.size() - sizeof(std::uint32_t);
  }

  void finish(std::size_t start) {
    while (bytes_.size() % sizeof(std::uint64_t) != 0) bytes_.push_back(code(Instruction::Nothing));
    const auto length = static_cast<std::uint32_t>(bytes_.size() - start - sizeof(std::uint32_t));
    std::memcpy(&bytes_[start], &length, sizeof length);
  }

  std::uint64_t loadAddress_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace

std::vector<std::uint8_t> callFrameInformation(const std::vector<UnwindEntry>& entries, std::uint64_t loadAddress) {
  Writer writer(loadAddress);
  for (const UnwindEntry& entry : entries)
    if (entry.encoding != 0) writer.writeFunction(entry);
  return writer.finished();
}

void registerFrames(const std::vector<UnwindEntry>& entries, std::uint64_t loadAddress) {
  if (entries.empty()) return;
  // Never destroyed, because exit handlers can raise exceptions too.
  const auto& information = *new std::vector<std::uint8_t>(callFrameInformation(entries, loadAddress));
  __register_frame(information.data());
}

}  // namespace emulation
