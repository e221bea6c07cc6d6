// The digest by which the platform recognizes its generic application icon.
#pragma once

namespace springboard {

// Hooks -[NSData ic_md5] to return the platform's digest for the JPEG data of the simulator's placeholder icon, because
// its pixels differ from the platform's icon. Call it once, after registerApplications.
void installPlaceholderDigest();

}  // namespace springboard
