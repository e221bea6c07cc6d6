#include <gtest/gtest.h>

#include <set>

#include "library/photos/provider.hpp"
#include "library/view/brim_container.hpp"
#include "objc/hook.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "tests/photos/photo_phone.hpp"

namespace {

using test::Json;
using test::PhotoPhone;

struct Application {
  const char* identifier;
  const char* setting;
  const char* provider;
};

constexpr Application applications[] = {
    {"net.whatsapp.WhatsApp", "enableWhatsApp", "BrimWhatsAppContactPhotoProvider"},
    {"net.whatsapp.WhatsAppSMB", "enableWhatsApp", "BrimWhatsAppContactPhotoProvider"},
    {"com.apple.MobileSMS", "enableMessages", "BrimMessagesContactPhotoProvider"},
    {"com.atebits.Tweetie2", "enableTwitter", "BrimTwitterContactPhotoProvider"},
    {"com.tinyspeck.chatlyio", "enableSlack", "BrimSlackContactPhotoProvider"},
    {"com.hammerandchisel.discord", "enableDiscord", "BrimDiscordContactPhotoProvider"},
    {"com.burbn.instagram", "enableInstagram", "BrimInstagramContactPhotoProvider"},
    {"com.facebook.Messenger", "enableMessenger", "BrimMessengerContactPhotoProvider"},
    {"ph.telegra.Telegraph", "enableTelegram", "BrimTelegramContactPhotoProvider"},
};

// The arguments of one call of a provider.
struct Call {
  objc::Ref<ContactPhotoProvider> provider;
  objc::Ref<NCNotificationRequest> request;
  std::string header;
  std::string body;
  objc::Ref<BrimContainer> view;

  std::string providerClass() const { return class_getName(object_getClass(objc::detail::toId(provider.get()))); }
};

std::vector<Call>& calls() {
  static std::vector<Call> recorded;
  return recorded;
}

void recordCall(ContactPhotoProvider* self, SEL, NCNotificationRequest* request, NSString* header, NSString* body,
                BrimContainer* view) {
  calls().push_back({objc::retain(self), objc::retain(request), header == nullptr ? "(nil)" : header->UTF8String(),
                     body == nullptr ? "(nil)" : body->UTF8String(), objc::retain(view)});
}

// A phone whose providers only record their calls.
struct SelectionPhone : PhotoPhone {
  explicit SelectionPhone(const std::map<std::string, Json>& settings = {}) : PhotoPhone(settings) {
    for (const Application& application : applications) {
      MSHookMessageEx(reinterpret_cast<Class>(objc_getClass(application.provider)),
                      objc::selector<"contactPhotoForNotification:withHeader:withBody:forView:">(),
                      objc::toImplementation(&recordCall), nullptr);
    }
  }
  ~SelectionPhone() { calls().clear(); }

  // Presents a banner of the application and returns the names of the provider classes that were called for it.
  std::vector<std::string> providersOf(const char* application) {
    calls().clear();
    present(application, Json::object());
    std::vector<std::string> names;
    for (const Call& call : calls()) names.push_back(call.providerClass());
    return names;
  }
};

TEST(ProviderSelection, EachApplicationHasItsProvider) {
  SelectionPhone phone;
  for (const Application& application : applications)
    EXPECT_EQ(phone.providersOf(application.identifier), std::vector<std::string>{application.provider});
}

TEST(ProviderSelection, MasterSwitchDisablesEveryProvider) {
  SelectionPhone phone({{"enablePfps", false}});
  for (const Application& application : applications)
    EXPECT_TRUE(phone.providersOf(application.identifier).empty()) << application.identifier;
}

TEST(ProviderSelection, SettingDisablesOnlyTheProviderOfItsApplication) {
  SelectionPhone phone;
  for (const Application& disabled : applications) {
    phone.phone.set(disabled.setting, false);
    for (const Application& application : applications)
      EXPECT_EQ(phone.providersOf(application.identifier).empty(), std::string(application.setting) == disabled.setting)
          << application.identifier << " without " << disabled.setting;
    phone.phone.set(disabled.setting, nullptr);
  }
}

TEST(ProviderSelection, IdentifiersAreComparedExactly) {
  SelectionPhone phone;
  for (const char* application : {"com.apple.mobilesms", "COM.APPLE.MOBILESMS", "com.apple.MobileSMS ",
                                  "com.apple.MobileSMS.more", "org.example.other", "net.whatsapp.whatsapp"})
    EXPECT_TRUE(phone.providersOf(application).empty()) << application;
}

TEST(ProviderSelection, ProviderReceivesRequestTextsAndView) {
  SelectionPhone phone;
  const int controller = phone.present("ph.telegra.Telegraph", {{"from_id", "42"}},
                                       {{"title", "Anna"}, {"message", "Hello"}, {"thread", "T"}});
  ASSERT_EQ(calls().size(), 1U);
  const Call& call = calls().front();
  EXPECT_STREQ(call.request->threadIdentifier()->UTF8String(), "T");
  EXPECT_EQ(call.header, "Anna");
  EXPECT_EQ(call.body, "Hello");
  EXPECT_FALSE(phone.phone.banner(controller).is_null());
  EXPECT_STREQ(class_getName(object_getClass(objc::detail::toId(call.view.get()))), "BrimContainer");
}

TEST(ProviderSelection, EachBannerHasItsOwnProvider) {
  SelectionPhone phone;
  for (int count = 0; count < 3; ++count) phone.present("com.burbn.instagram", Json::object());
  std::set<ContactPhotoProvider*> providers;
  for (const Call& call : calls()) providers.insert(call.provider.get());
  EXPECT_EQ(providers.size(), 3U);
}

TEST(ProviderSelection, ProviderIsReleasedAfterTheCall) {
  SelectionPhone phone;
  phone.present("com.burbn.instagram", Json::object());
  ASSERT_EQ(calls().size(), 1U);
  const auto references = objc::send<NSUInteger, "retainCount">(calls().front().provider.get());
  EXPECT_EQ(references, 1U);
}

TEST(ProviderSelection, WithoutAPictureTheApplicationsIconStays) {
  PhotoPhone phone;
  const int controller = phone.present("org.example.other", Json::object());
  const Json icon = phone.phone.view(controller, "_appIV").at("image");
  phone.waitUntilIdle();
  EXPECT_TRUE(phone.pictures.all().empty());
  EXPECT_EQ(phone.phone.view(controller, "_appIV").at("image"), icon);
}

}  // namespace
