#include "simulator/foundation/binary_property_list.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace foundation {

namespace {

constexpr std::string_view magic = "bplist00";
constexpr std::size_t trailerSize = 32;
constexpr int maxNesting = 100;
constexpr int maxVisits = 200'000;

// The upper half of an object's first byte.
enum Kind : unsigned {
  Singleton = 0x0,
  Integer = 0x1,
  Real = 0x2,
  Date = 0x3,
  Data = 0x4,
  Ascii = 0x5,
  Utf16 = 0x6,
  Identifier = 0x8,
  Array = 0xa,
  Set = 0xc,
  Dictionary = 0xd,
};

class Reader {
 public:
  explicit Reader(std::span<const unsigned char> list) : bytes(list) {}

  bool isSound() {
    if (bytes.size() < magic.size() + trailerSize || !isBinaryPropertyList(bytes)) return false;
    const std::size_t trailer = bytes.size() - trailerSize;
    offsetSize = bytes[trailer + 6];
    referenceSize = bytes[trailer + 7];
    objectCount = number(trailer + 8, 8);
    const std::uint64_t top = number(trailer + 16, 8);
    table = number(trailer + 24, 8);
    if (!isSize(offsetSize) || !isSize(referenceSize) || table < magic.size() || table > trailer) return false;
    if (objectCount == 0 || objectCount > (trailer - table) / offsetSize) return false;
    return isValidObject(top, 0);
  }

 private:
  static bool isSize(std::size_t size) { return size == 1 || size == 2 || size == 4 || size == 8; }

  std::uint64_t number(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t index = 0; index < size; ++index) value = value << 8 | bytes[at + index];
    return value;
  }

  bool fits(std::uint64_t at, std::uint64_t count, std::uint64_t size) const {
    return at <= table && count <= (table - at) / size;
  }

  // The number of what follows, and where it begins.
  struct Extent {
    std::uint64_t count;
    std::uint64_t begin;
  };
  std::optional<Extent> extent(std::uint64_t at, unsigned low) const {
    if (low != 0xf) return Extent{low, at + 1};
    if (!fits(at + 1, 2, 1) || bytes[at + 1] >> 4 != Integer) return std::nullopt;
    const unsigned power = bytes[at + 1] & 0xf;
    if (power > 3 || !fits(at + 2, std::uint64_t{1} << power, 1)) return std::nullopt;
    return Extent{number(at + 2, std::size_t{1} << power), at + 2 + (std::uint64_t{1} << power)};
  }

  bool isValidObject(std::uint64_t object, int depth) {
    if (object >= objectCount || depth > maxNesting || ++visits > maxVisits) return false;
    const std::uint64_t at = number(table + object * offsetSize, offsetSize);
    if (at < magic.size() || at >= table) return false;
    const unsigned low = bytes[at] & 0xf;
    switch (bytes[at] >> 4) {
      case Singleton:
        return true;
      case Integer:
      case Real:
        return low <= 4 && fits(at + 1, std::uint64_t{1} << low, 1);
      case Date:
        return fits(at + 1, 8, 1);
      case Identifier:
        return fits(at + 1, low + 1, 1);
      case Data:
      case Ascii:
        return hasRoom(at, low, 1);
      case Utf16:
        return hasRoom(at, low, 2);
      case Array:
      case Set:
        return areSoundMembers(at, low, 1, depth);
      case Dictionary:
        return areSoundMembers(at, low, 2, depth);
      default:
        return false;
    }
  }

  bool hasRoom(std::uint64_t at, unsigned low, std::uint64_t size) const {
    const std::optional<Extent> found = extent(at, low);
    return found && fits(found->begin, found->count, size);
  }

  bool areSoundMembers(std::uint64_t at, unsigned low, std::uint64_t referencesEach, int depth) {
    const std::optional<Extent> found = extent(at, low);
    if (!found || !fits(found->begin, found->count, referenceSize * referencesEach)) return false;
    for (std::uint64_t index = 0; index < found->count * referencesEach; ++index)
      if (!isValidObject(number(found->begin + index * referenceSize, referenceSize), depth + 1)) return false;
    return true;
  }

  std::span<const unsigned char> bytes;
  std::size_t offsetSize = 0;
  std::size_t referenceSize = 0;
  std::uint64_t objectCount = 0;
  std::uint64_t table = 0;
  int visits = 0;
};

}  // namespace

bool isBinaryPropertyList(std::span<const unsigned char> bytes) {
  return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()).starts_with("bplist");
}

bool isValidBinaryPropertyList(std::span<const unsigned char> bytes) { return Reader(bytes).isSound(); }

}  // namespace foundation
