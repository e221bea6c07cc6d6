// MD5 over Foundation's own digest: CC_MD5 of the platform's C library and -[NSData ic_md5].
#pragma once

namespace foundation {

void installDigests();

}  // namespace foundation
