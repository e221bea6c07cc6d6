// An Instagram notification contains the web address of the photo.
#include "library/photos/download.hpp"
#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"

namespace {

void contactPhoto(BrimInstagramContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  downloadPicture(textAt(userInfoOf(request), "a"_ns), view);
}

}  // namespace

bool registerInstagramProvider() { return defineProvider<BrimInstagramContactPhotoProvider, &contactPhoto>(); }
