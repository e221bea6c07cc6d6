#include "tests/device/code_signature.hpp"

#include <glib.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "device/mach_o/byte_reader.hpp"

namespace device {

namespace {

constexpr std::uint32_t containerMagic = 0xfade0cc0;
constexpr std::uint32_t directoryMagic = 0xfade0c02;
constexpr std::uint32_t directorySlot = 0;

std::string sha256(std::span<const std::uint8_t> bytes) {
  const std::unique_ptr<char, decltype(&g_free)> digest(
      g_compute_checksum_for_data(G_CHECKSUM_SHA256, bytes.data(), bytes.size()), &g_free);
  return digest.get();
}

std::string hexadecimal(std::span<const std::uint8_t> bytes) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += digits[byte >> 4];
    text += digits[byte & 0xf];
  }
  return text;
}

std::span<const std::uint8_t> directoryIn(std::span<const std::uint8_t> signature) {
  ByteReader container(signature);
  if (container.bigEndian32() != containerMagic) throw std::runtime_error("no signature");
  container.skip(4);
  for (std::uint32_t left = container.bigEndian32(); left > 0; --left) {
    const std::uint32_t slot = container.bigEndian32();
    const std::uint32_t offset = container.bigEndian32();
    if (slot == directorySlot) return part(signature, offset, signature.size() - offset);
  }
  throw std::runtime_error("a signature without a directory of pages");
}

}  // namespace

CodeSignature codeSignature(const MachFile& file) {
  const auto directory = directoryIn(file.partAt(file.codeSignature));
  ByteReader reader(directory);
  if (reader.bigEndian32() != directoryMagic) throw std::runtime_error("no directory of pages");
  reader.skip(8);  // length and version

  CodeSignature read;
  read.flags = reader.bigEndian32();
  const std::uint32_t digestsOffset = reader.bigEndian32();
  reader.skip(8);  // identifier and special slots
  const std::uint32_t pages = reader.bigEndian32();
  read.signedSize = reader.bigEndian32();
  const auto digestSize = reader.number<std::uint8_t>();
  read.digestType = reader.number<std::uint8_t>();
  reader.skip(1);
  read.pageSize = 1U << (reader.number<std::uint8_t>() & 31);

  ByteReader digests(part(directory, digestsOffset, std::size_t{pages} * digestSize));
  for (std::uint32_t page = 0; page < pages; ++page)
    read.writtenDigests.push_back(hexadecimal(digests.take(digestSize)));
  for (std::uint32_t start = 0; start < read.signedSize; start += read.pageSize)
    read.computedDigests.push_back(sha256(part(file.bytes, start, std::min(read.pageSize, read.signedSize - start))));
  return read;
}

}  // namespace device
