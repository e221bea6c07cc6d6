// A photo provider finds the photo of a notification's sender. Each provider supports one application. A provider has
// no state: it is created for one banner and released after use. The class names are part of the library's public
// interface; do not change them. Main thread.
#pragma once

#include "library/photos/photo_receiver.hpp"
#include "objc/class_definition.hpp"
#include "platform/nc_notification_request.hpp"

class ContactPhotoProvider : public objc::Interface<"NSObject", NSObject> {
 public:
  // Searches for the sender's photo and passes it to the view, once or several times, before or after the function
  // returns. If there is no photo, the view does not change. `header` and `body` are the texts of the banner and can be
  // nil.
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
  // Downloads the photo at the address and shows it in the view. Both arguments can be nil.
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

// Defines the class of a provider. Its only method calls the function `contactPhoto`.
template <class Provider, auto contactPhoto>
[[nodiscard]] bool defineProvider() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"contactPhotoForNotification:withHeader:withBody:forView:", contactPhoto>(),
  };
  return objc::tryToDefineClass<Provider>(methods);
}
