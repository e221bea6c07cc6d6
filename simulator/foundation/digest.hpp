// MD5 digests: CC_MD5, which platform/common_crypto.hpp declares, and -[NSData ic_md5]. Foundation computes them.
#pragma once

namespace foundation {

// Adds -[NSData ic_md5], which returns the digest as 32 lower-case hexadecimal digits. Call this once. Main thread.
void installDigests();

}  // namespace foundation
