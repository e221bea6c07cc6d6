// Validates property lists in the binary format. GNUstep's reader needs this protection, because it trusts every
// offset, count and reference in the data. Any thread.
#pragma once

#include <cstddef>
#include <span>

namespace foundation {

// Returns whether the data begins with the signature of the binary format.
bool isBinaryPropertyList(std::span<const unsigned char> bytes);

// Returns whether GNUstep can read the list safely: all offsets and references lie inside the data, no object contains
// itself, and nesting depth and object count are below fixed limits.
bool isValidBinaryPropertyList(std::span<const unsigned char> bytes);

}  // namespace foundation
