// The digest by which the platform recognizes its generic application icon.
#pragma once

namespace springboard {

// Hooks -[NSData ic_md5]. For the JPEG data of the simulator's placeholder icon, the hook returns the digest of the
// platform's icon, because the pixels of the two icons differ. Call this once, after registerApplications.
void installPlaceholderDigest();

}  // namespace springboard
