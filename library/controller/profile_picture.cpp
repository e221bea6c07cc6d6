#include "library/controller/profile_picture.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/photos/provider.hpp"
#include "library/settings/settings.hpp"

void updateProfilePicture(BannerController* self, NSString* header, NSString* body, BrimContainer* view) {
  if (!settings::enablePfps) return;
  const SupportedApplication* application = supportedApplication(self->getBundleId());
  if (application == nullptr || !*application->isEnabled) return;
  const auto provider = objc::adopt(objc::send<ContactPhotoProvider*, "new">(application->photoProvider()));
  provider->contactPhoto(self->notificationRequest(), header, body, view);
}
