#include "library/applications/supported_applications.hpp"

#include "library/photos/provider.hpp"
#include "library/settings/settings.hpp"

namespace {

// clang-format off
constexpr SupportedApplication table[] = {
    {"net.whatsapp.WhatsApp", &settings::enableWhatsApp, &BrimWhatsAppContactPhotoProvider::classObject, &registerWhatsAppProvider, "whatsapp"},
    // The business edition of WhatsApp uses the same provider.
    {"net.whatsapp.WhatsAppSMB", &settings::enableWhatsApp, &BrimWhatsAppContactPhotoProvider::classObject, &registerWhatsAppProvider, "whatsapp"},
    {"com.apple.MobileSMS", &settings::enableMessages, &BrimMessagesContactPhotoProvider::classObject, &registerMessagesProvider, "imessages"},
    {"com.atebits.Tweetie2", &settings::enableTwitter, &BrimTwitterContactPhotoProvider::classObject, &registerTwitterProvider, "twitter"},
    {"com.tinyspeck.chatlyio", &settings::enableSlack, &BrimSlackContactPhotoProvider::classObject, &registerSlackProvider, "slack"},
    {"com.hammerandchisel.discord", &settings::enableDiscord, &BrimDiscordContactPhotoProvider::classObject, &registerDiscordProvider, "discord"},
    {"com.burbn.instagram", &settings::enableInstagram, &BrimInstagramContactPhotoProvider::classObject, &registerInstagramProvider, "instagram"},
    {"com.facebook.Messenger", &settings::enableMessenger, &BrimMessengerContactPhotoProvider::classObject, &registerMessengerProvider, "facebook_messenger"},
    {"ph.telegra.Telegraph", &settings::enableTelegram, &BrimTelegramContactPhotoProvider::classObject, &registerTelegramProvider, "telegram"},
};
// clang-format on

// A provider that several rows share is registered once, because the runtime rejects the second registration of a
// class.
bool sharesProviderWithEarlierRow(const SupportedApplication& application) {
  for (const SupportedApplication* earlier = table; earlier != &application; ++earlier)
    if (earlier->registerPhotoProvider == application.registerPhotoProvider) return true;
  return false;
}

}  // namespace

std::span<const SupportedApplication> supportedApplications() { return table; }

const SupportedApplication* supportedApplication(NSString* bundleIdentifier) {
  if (bundleIdentifier == nullptr) return nullptr;
  for (const SupportedApplication& application : table)
    if (bundleIdentifier->isEqualToString(NSString::stringWithUTF8String(application.bundleIdentifier)))
      return &application;
  return nullptr;
}

bool registerPhotoProviders() {
  for (const SupportedApplication& application : table)
    if (!sharesProviderWithEarlierRow(application) && !application.registerPhotoProvider()) return false;
  return true;
}
