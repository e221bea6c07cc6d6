// Reads numbers and strings from a file's bytes in sequence. Reading past the end throws std::runtime_error.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>

namespace device {

class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> read) : bytes(read) {}

  std::size_t position() const { return next; }
  bool atEnd() const { return next == bytes.size(); }
  void skip(std::size_t count) { take(count); }

  // Reads a number in the byte order of this machine, which is also the byte order of the file.
  template <class Number>
  Number number() {
    Number value;
    std::memcpy(&value, take(sizeof value).data(), sizeof value);
    return value;
  }
  std::uint32_t bigEndian32() { return __builtin_bswap32(number<std::uint32_t>()); }

  // Reads a number with seven bits per byte, least significant first. The top bit is set if another byte follows.
  std::uint64_t unsignedLeb128() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      const auto byte = number<std::uint8_t>();
      value |= static_cast<std::uint64_t>(byte & 0x7f) << shift;
      if ((byte & 0x80) == 0) return value;
    }
    throw std::runtime_error("a number has more than 64 bits");
  }

  // Reads up to and including a zero byte.
  std::string text() {
    const auto rest = bytes.subspan(next);
    const auto* end = static_cast<const std::uint8_t*>(std::memchr(rest.data(), 0, rest.size()));
    if (rest.empty() || end == nullptr) throw std::runtime_error("a text has no end");
    const auto length = static_cast<std::size_t>(end - rest.data());
    const auto taken = take(length + 1);
    return {taken.begin(), taken.begin() + static_cast<std::ptrdiff_t>(length)};
  }
  // Reads a text from a field of this size. The text is padded with zero bytes.
  std::string text(std::size_t size) {
    const auto field = take(size);
    std::string value(field.begin(), field.end());
    return value.substr(0, value.find('\0'));
  }

  std::span<const std::uint8_t> take(std::size_t count) {
    if (count > bytes.size() - next) throw std::runtime_error("the file ends too early");
    next += count;
    return bytes.subspan(next - count, count);
  }

 private:
  std::span<const std::uint8_t> bytes;
  std::size_t next = 0;
};

// Returns a part of the bytes. Throws std::runtime_error if the part is outside the file.
inline std::span<const std::uint8_t> part(std::span<const std::uint8_t> bytes, std::size_t offset, std::size_t size) {
  if (offset > bytes.size() || size > bytes.size() - offset) throw std::runtime_error("a part is outside the file");
  return bytes.subspan(offset, size);
}

}  // namespace device
