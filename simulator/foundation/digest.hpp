// MD5 digests: CC_MD5 (platform/common_crypto.hpp) and -[NSData ic_md5], computed by Foundation's own implementation.
#pragma once

namespace foundation {

// Adds -[NSData ic_md5], which returns the digest as 32 lower-case hexadecimal digits. Main thread, once.
void installDigests();

}  // namespace foundation
