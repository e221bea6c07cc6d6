// The code signature at the end of a library: a digest of each page. The phone's kernel rejects pages that do not
// match.
#pragma once

#include "device/mach_o/mach_file.hpp"

namespace device {

struct CodeSignature {
  std::uint32_t flags = 0;
  std::uint8_t digestType = 0;
  // The number of signed bytes: all bytes before the signature.
  std::uint32_t signedSize = 0;
  std::uint32_t pageSize = 0;
  // One digest for each page, in lower-case hexadecimal. The signature contains the written digests; the computed
  // digests are calculated from the pages.
  std::vector<std::string> writtenDigests;
  std::vector<std::string> computedDigests;
};

// Throws std::runtime_error if the signature is missing or damaged.
CodeSignature codeSignature(const MachFile& file);

}  // namespace device
