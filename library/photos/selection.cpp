#include "library/photos/selection.hpp"

void updateProfilePicture(BannerController*, NSString*, NSString*, BrimContainer*) {}
