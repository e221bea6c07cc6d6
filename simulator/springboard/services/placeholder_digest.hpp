// The digest by which the platform's own parts know its generic icon.
#pragma once

namespace springboard {

// From now on -[NSData ic_md5] answers the platform's constant for the JPEG of this phone's placeholder, whose pixels
// are not the platform's. Once, after the placeholder is known.
void installPlaceholderDigest();

}  // namespace springboard
