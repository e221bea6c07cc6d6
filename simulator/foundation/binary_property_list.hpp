// The binary format of property lists, as far as needed to tell whether one can be read safely.
#pragma once

#include <cstddef>
#include <span>

namespace foundation {

// By its first bytes.
bool isBinaryPropertyList(std::span<const unsigned char> bytes);

// Whether all that the list refers to lies inside it, and it nests neither in itself nor deeper or wider than any list
// that was written in earnest: GNUstep follows whatever a list says.
bool isValidBinaryPropertyList(std::span<const unsigned char> bytes);

}  // namespace foundation
