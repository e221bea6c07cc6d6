#include "simulator/foundation/binary_property_list.hpp"

#include <cstdint>
#include <optional>
#include <string_view>

namespace foundation {

namespace {

constexpr std::string_view magic = "bplist00";
constexpr std::size_t trailerSize = 32;
constexpr int maxNesting = 100;
constexpr int maxVisitedObjects = 200'000;

// The type of an object, which is stored in the upper four bits of its first byte.
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

class Validator {
 public:
  explicit Validator(std::span<const unsigned char> list) : bytes_(list) {}

  bool isValid() {
    if (bytes_.size() < magic.size() + trailerSize || !isBinaryPropertyList(bytes_)) return false;
    const std::size_t trailer = bytes_.size() - trailerSize;
    offsetSize_ = bytes_[trailer + 6];
    referenceSize_ = bytes_[trailer + 7];
    objectCount_ = readInteger(trailer + 8, 8);
    const std::uint64_t rootObject = readInteger(trailer + 16, 8);
    offsetTable_ = readInteger(trailer + 24, 8);
    if (!isIntegerSize(offsetSize_) || !isIntegerSize(referenceSize_)) return false;
    if (offsetTable_ < magic.size() || offsetTable_ > trailer) return false;
    if (objectCount_ == 0 || objectCount_ > (trailer - offsetTable_) / offsetSize_) return false;
    return isValidObject(rootObject, 0);
  }

 private:
  static bool isIntegerSize(std::size_t size) { return size == 1 || size == 2 || size == 4 || size == 8; }

  std::uint64_t readInteger(std::size_t offset, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t index = 0; index < size; ++index) value = value << 8 | bytes_[offset + index];
    return value;
  }

  // Returns whether `count` elements at `offset` end before the offset table, which follows the last object.
  bool fits(std::uint64_t offset, std::uint64_t count, std::uint64_t elementSize) const {
    return offset <= offsetTable_ && count <= (offsetTable_ - offset) / elementSize;
  }

  // The elements of an object: their number, and the offset of the first element.
  struct Elements {
    std::uint64_t count;
    std::uint64_t begin;
  };
  // Returns the elements of the object at this offset. `size` is the lower half of the object's first byte. It is the
  // number of elements, or 15 if the number follows as an integer.
  std::optional<Elements> elementsOf(std::uint64_t object, unsigned size) const {
    if (size != 0xf) return Elements{size, object + 1};
    if (!fits(object + 1, 2, 1) || bytes_[object + 1] >> 4 != Integer) return std::nullopt;
    const unsigned power = bytes_[object + 1] & 0xf;
    if (power > 3 || !fits(object + 2, std::uint64_t{1} << power, 1)) return std::nullopt;
    return Elements{readInteger(object + 2, std::size_t{1} << power), object + 2 + (std::uint64_t{1} << power)};
  }

  bool isValidObject(std::uint64_t reference, int depth) {
    if (reference >= objectCount_ || depth > maxNesting || ++visitedObjects_ > maxVisitedObjects) return false;
    const std::uint64_t object = readInteger(offsetTable_ + reference * offsetSize_, offsetSize_);
    if (object < magic.size() || object >= offsetTable_) return false;
    const unsigned size = bytes_[object] & 0xf;
    switch (bytes_[object] >> 4) {
      case Singleton:
        return true;
      case Integer:
      case Real:
        return size <= 4 && fits(object + 1, std::uint64_t{1} << size, 1);
      case Date:
        return fits(object + 1, 8, 1);
      case Identifier:
        return fits(object + 1, size + 1, 1);
      case Data:
      case Ascii:
        return hasElements(object, size, 1);
      case Utf16:
        return hasElements(object, size, 2);
      case Array:
      case Set:
        return hasValidMembers(object, size, 1, depth);
      case Dictionary:
        return hasValidMembers(object, size, 2, depth);
      default:
        return false;
    }
  }

  bool hasElements(std::uint64_t object, unsigned size, std::uint64_t elementSize) const {
    const std::optional<Elements> elements = elementsOf(object, size);
    return elements && fits(elements->begin, elements->count, elementSize);
  }

  bool hasValidMembers(std::uint64_t object, unsigned size, std::uint64_t referencesEach, int depth) {
    const std::optional<Elements> elements = elementsOf(object, size);
    if (!elements || !fits(elements->begin, elements->count, referenceSize_ * referencesEach)) return false;
    for (std::uint64_t index = 0; index < elements->count * referencesEach; ++index)
      if (!isValidObject(readInteger(elements->begin + index * referenceSize_, referenceSize_), depth + 1))
        return false;
    return true;
  }

  std::span<const unsigned char> bytes_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t offsetTable_ = 0;
  int visitedObjects_ = 0;
};

}  // namespace

bool isBinaryPropertyList(std::span<const unsigned char> bytes) {
  return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()).starts_with("bplist");
}

bool isValidBinaryPropertyList(std::span<const unsigned char> bytes) { return Validator(bytes).isValid(); }

}  // namespace foundation
