// Computes from the type encoding of a method or block how arm64 passes its arguments and its result. The phone and
// Linux pass the same values in the same registers, with two differences: the phone's code expects integers of fewer
// than 32 bits to be extended to 32 bits, and it packs arguments of fewer than 64 bits on the stack.
#pragma once

#include <cstddef>
#include <cstdint>

namespace objc {

enum class NarrowInteger : std::uint8_t { None, SignedByte, UnsignedByte, SignedHalf, UnsignedHalf };

// The value that the lower 32 bits of the register must have.
constexpr std::uint32_t extended(std::uint64_t value, NarrowInteger type) {
  switch (type) {
    case NarrowInteger::SignedByte:
      return static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<std::int8_t>(value)));
    case NarrowInteger::UnsignedByte:
      return static_cast<std::uint8_t>(value);
    case NarrowInteger::SignedHalf:
      return static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<std::int16_t>(value)));
    case NarrowInteger::UnsignedHalf:
      return static_cast<std::uint16_t>(value);
    case NarrowInteger::None:
      break;
  }
  return static_cast<std::uint32_t>(value);
}

struct CallingConvention {
  static constexpr std::size_t registerCount = 8;

  NarrowInteger result = NarrowInteger::None;
  // Indexed by the number of the general-purpose register.
  NarrowInteger arguments[registerCount] = {};
  bool usesStack = false;
  // True if an argument of fewer than 64 bits is on the stack, where its position differs between the phone and Linux.
  bool packsStack = false;
  // False if the encoding contains a type that this header does not know. The other members are then incomplete.
  bool isKnown = true;

  constexpr bool hasNarrowArguments() const {
    for (const NarrowInteger argument : arguments)
      if (argument != NarrowInteger::None) return true;
    return false;
  }
};

namespace detail {

// The properties of a type that determine where its values are passed.
struct PassedType {
  std::size_t size = 0;
  std::size_t alignment = 1;
  NarrowInteger narrow = NarrowInteger::None;
  bool isStruct = false;
  // The number of members if all members are floating-point numbers of the same size, and 0 otherwise.
  std::size_t floatingMembers = 0;
};

class PassedTypeReader {
 public:
  explicit constexpr PassedTypeReader(const char* encoding) : next_(encoding) {}

  constexpr bool atEnd() {
    skipDecoration();
    return *next_ == 0;
  }
  constexpr bool isKnown() const { return isKnown_; }

  constexpr PassedType read() {
    skipDecoration();
    switch (*next_++) {
      case 'v':
        return {};
      case 'B':
      case 'C':
        return {1, 1, NarrowInteger::UnsignedByte};
      case 'c':
        return {1, 1, NarrowInteger::SignedByte};
      case 'S':
        return {2, 2, NarrowInteger::UnsignedHalf};
      case 's':
        return {2, 2, NarrowInteger::SignedHalf};
      case 'i':
      case 'I':
        return {4, 4};
      case 'l':
      case 'L':
      case 'q':
      case 'Q':
      case '#':
      case ':':
      case '*':
        return pointer;
      case 'f':
        return {4, 4, NarrowInteger::None, false, 1};
      case 'd':
        return {8, 8, NarrowInteger::None, false, 1};
      case '@':
        if (*next_ == '?') ++next_;
        if (*next_ == '"') skipQuoted();
        return pointer;
      case '^':
        // A pointer to an unknown type, such as a function, is passed like any other pointer.
        if (*next_ == '?') {
          ++next_;
        } else {
          read();
        }
        return pointer;
      case '{':
        return readStruct();
      default:
        --next_;
        isKnown_ = false;
        return {};
    }
  }

 private:
  static constexpr PassedType pointer = {8, 8};

  constexpr PassedType readStruct() {
    PassedType whole;
    whole.isStruct = true;
    while (*next_ != '=' && *next_ != '}' && *next_ != 0) ++next_;
    if (*next_ == '=') ++next_;
    std::size_t members = 0;
    std::size_t memberSize = 0;
    bool isUniform = true;
    while (isKnown_ && !atEnd() && *next_ != '}') {
      const PassedType member = read();
      whole.size = (whole.size + member.alignment - 1) / member.alignment * member.alignment + member.size;
      if (member.alignment > whole.alignment) whole.alignment = member.alignment;
      if (member.floatingMembers == 0 || (members > 0 && member.alignment != memberSize)) isUniform = false;
      memberSize = member.alignment;
      members += member.floatingMembers;
    }
    if (*next_ == '}') {
      ++next_;
    } else {
      isKnown_ = false;
    }
    whole.size = (whole.size + whole.alignment - 1) / whole.alignment * whole.alignment;
    whole.floatingMembers = isUniform && members <= 4 ? members : 0;
    return whole;
  }

  static constexpr bool isDecoration(char code) {
    for (const char* each = "0123456789rnNoORV+-"; *each != 0; ++each)
      if (*each == code) return true;
    return false;
  }
  constexpr void skipDecoration() {
    while (*next_ != 0 && isDecoration(*next_)) ++next_;
  }
  constexpr void skipQuoted() {
    ++next_;
    while (*next_ != '"' && *next_ != 0) ++next_;
    if (*next_ == '"') ++next_;
  }

  const char* next_;
  bool isKnown_ = true;
};

}  // namespace detail

// The encoding begins with the type of the result. Names, qualifiers and offsets in the encoding are ignored.
constexpr CallingConvention callingConventionOf(const char* encoding) {
  constexpr std::size_t maxSizeInRegisters = 16;
  CallingConvention convention;
  detail::PassedTypeReader reader(encoding);
  convention.result = reader.read().narrow;
  std::size_t general = 0;
  std::size_t vector = 0;
  while (reader.isKnown() && !reader.atEnd()) {
    detail::PassedType argument = reader.read();
    // A large struct is passed as a pointer to it.
    if (argument.isStruct && argument.floatingMembers == 0 && argument.size > maxSizeInRegisters) argument = {8, 8};
    const bool isFloating = argument.floatingMembers > 0;
    std::size_t& used = isFloating ? vector : general;
    const std::size_t count = isFloating ? argument.floatingMembers : (argument.size + 7) / 8;
    if (used + count > CallingConvention::registerCount) {
      used = CallingConvention::registerCount;
      convention.usesStack = true;
      if (argument.alignment < 8) convention.packsStack = true;
    } else {
      if (!isFloating && count > 0) convention.arguments[used] = argument.narrow;
      used += count;
    }
  }
  convention.isKnown = reader.isKnown();
  return convention;
}

// Returns whether code for the phone and code for Linux expect the arguments in the same places.
constexpr bool isPassedAlike(const char* encoding) {
  const CallingConvention convention = callingConventionOf(encoding);
  return convention.isKnown && !convention.packsStack;
}

}  // namespace objc
