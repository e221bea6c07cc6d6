// Providers find the photo of a notification's sender; each supports one application. A provider has no state: it is
// created for one banner and released at once. The class names are fixed by the interface.
#pragma once

#include "library/photos/photo_receiver.hpp"
#include "objc/class_definition.hpp"
#include "platform/nc_notification_request.hpp"

class ContactPhotoProvider : public objc::Interface<"NSObject", NSObject> {
 public:
  // Can return before the photo is found. Gives a photo to the view on the main thread, once or several times. Changes
  // nothing if there is no photo. Header and body are the banner's texts and can be nil. Main thread.
  void contactPhoto(NCNotificationRequest* request, NSString* header, NSString* body, PhotoReceiver* view) {
    objc::send<void, "contactPhotoForNotification:withHeader:withBody:forView:">(this, request, header, body, view);
  }
};

class BrimWhatsAppContactPhotoProvider
    : public objc::Interface<"BrimWhatsAppContactPhotoProvider", ContactPhotoProvider> {};
class BrimMessagesContactPhotoProvider
    : public objc::Interface<"BrimMessagesContactPhotoProvider", ContactPhotoProvider> {};
class BrimTwitterContactPhotoProvider
    : public objc::Interface<"BrimTwitterContactPhotoProvider", ContactPhotoProvider> {
 public:
  // Downloads the photo at the address and shows it in the view. Both can be nil.
  void resolve(NSString* address, PhotoReceiver* view) {
    objc::send<void, "resolveForUrl:forView:">(this, address, view);
  }
};
class BrimSlackContactPhotoProvider : public objc::Interface<"BrimSlackContactPhotoProvider", ContactPhotoProvider> {};
class BrimDiscordContactPhotoProvider
    : public objc::Interface<"BrimDiscordContactPhotoProvider", ContactPhotoProvider> {};
class BrimInstagramContactPhotoProvider
    : public objc::Interface<"BrimInstagramContactPhotoProvider", ContactPhotoProvider> {};
class BrimMessengerContactPhotoProvider
    : public objc::Interface<"BrimMessengerContactPhotoProvider", ContactPhotoProvider> {};
class BrimTelegramContactPhotoProvider
    : public objc::Interface<"BrimTelegramContactPhotoProvider", ContactPhotoProvider> {};

// Register the classes of the providers. Call each function once. They return false if the class cannot be defined.
bool registerWhatsAppProvider();
bool registerMessagesProvider();
bool registerTwitterProvider();
bool registerSlackProvider();
bool registerDiscordProvider();
bool registerInstagramProvider();
bool registerMessengerProvider();
bool registerTelegramProvider();

// Defines the class of a provider. The function is its only method.
template <class Provider, auto contactPhoto>
[[nodiscard]] bool defineProvider() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"contactPhotoForNotification:withHeader:withBody:forView:", contactPhoto>(),
  };
  return objc::tryToDefineClass<Provider>(methods);
}
