#include "library/photos/selection.hpp"

#include "library/photos/provider.hpp"
#include "library/startup/settings.hpp"

namespace {

struct Row {
  const char* application;
  const bool* isEnabled;
  Class (*provider)();
};

constexpr Row rows[] = {
    {"net.whatsapp.WhatsApp", &settings::enableWhatsApp, &BrimWhatsAppContactPhotoProvider::classObject},
    {"net.whatsapp.WhatsAppSMB", &settings::enableWhatsApp, &BrimWhatsAppContactPhotoProvider::classObject},
    {"com.apple.MobileSMS", &settings::enableMessages, &BrimMessagesContactPhotoProvider::classObject},
    {"com.atebits.Tweetie2", &settings::enableTwitter, &BrimTwitterContactPhotoProvider::classObject},
    {"com.tinyspeck.chatlyio", &settings::enableSlack, &BrimSlackContactPhotoProvider::classObject},
    {"com.hammerandchisel.discord", &settings::enableDiscord, &BrimDiscordContactPhotoProvider::classObject},
    {"com.burbn.instagram", &settings::enableInstagram, &BrimInstagramContactPhotoProvider::classObject},
    {"com.facebook.Messenger", &settings::enableMessenger, &BrimMessengerContactPhotoProvider::classObject},
    {"ph.telegra.Telegraph", &settings::enableTelegram, &BrimTelegramContactPhotoProvider::classObject},
};

// Null where the application has none, or the user does not want it.
Class providerFor(NSString* application) {
  for (const Row& row : rows)
    if (*row.isEnabled && application->isEqualToString(NSString::stringWithUTF8String(row.application)))
      return row.provider();
  return nullptr;
}

}  // namespace

void updateProfilePicture(BannerController* self, NSString* header, NSString* body, BrimContainer* view) {
  if (!settings::enablePfps) return;
  NSString* application = self->getBundleId();
  const Class chosen = application == nullptr ? nullptr : providerFor(application);
  if (chosen == nullptr) return;
  const auto provider = objc::adopt(objc::send<ContactPhotoProvider*, "new">(chosen));
  provider->contactPhoto(self->notificationRequest(), header, body, view);
}
