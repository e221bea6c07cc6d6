// The signature at a library's end: a digest of each page, by which the phone's kernel accepts the page or refuses it.
#pragma once

#include "tests/device/mach_file.hpp"

namespace device {

struct CodeSignature {
  std::uint32_t flags = 0;
  std::uint8_t digestType = 0;
  // Bytes of the file that are signed: all before the signature.
  std::uint32_t signedSize = 0;
  std::uint32_t pageSize = 0;
  // In lower-case hexadecimal digits, a page each: as written, and as computed from the file.
  std::vector<std::string> writtenDigests;
  std::vector<std::string> computedDigests;
};

// Throws std::runtime_error where there is none, or a damaged one.
CodeSignature codeSignature(const MachFile& file);

}  // namespace device
