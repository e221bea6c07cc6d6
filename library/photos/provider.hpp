// What finds the picture of a notification's sender. Stateless: one is made for each banner and let go at once.
#pragma once

#include "library/view/brim_container.hpp"
#include "objc/class_definition.hpp"
#include "platform/nc_notification_request.hpp"

class ContactPhotoProvider : public objc::Interface<"NSObject", NSObject> {
 public:
  // May return before the picture is known. A picture that is found goes to the view, on the main thread, any number of
  // times; one that is not found changes nothing. Header and body are the banner's own texts. Main thread.
  void contactPhoto(NCNotificationRequest* request, NSString* header, NSString* body, BrimContainer* view) {
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
  // Shows the picture at the address, once it has come. Either may be nil.
  void resolve(NSString* address, BrimContainer* view) {
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

void registerWhatsAppProvider();
void registerMessagesProvider();
void registerTwitterProvider();
void registerSlackProvider();
void registerDiscordProvider();
void registerInstagramProvider();
void registerMessengerProvider();
void registerTelegramProvider();

// Defines the class of a provider whose one method is the function.
template <class Provider, auto contactPhoto>
void defineProvider() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"contactPhotoForNotification:withHeader:withBody:forView:", contactPhoto>(),
  };
  objc::defineClass<Provider>(methods);
}
