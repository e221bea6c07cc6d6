#include "library/startup/settings.hpp"

#include <cstddef>

#include "library/startup/inspection.hpp"

namespace settings {

bool enabled;
bool backgroundBlur;
bool showButtons;
bool vibrate_on_send;
bool militaryClock;
bool statusbar;
bool boldButtons;
bool enableGrabber;
bool hideUnlessExpanded;
bool tinyBanner;
bool tinyBannerNoText;
NSInteger maxLineCount;
NSInteger containerCornerRadius;
NSInteger appCornerRadius;
NSInteger appSize;
NSInteger interfaceMode;
NSInteger textAlignment;
NSInteger timeToDismiss;
NSInteger topOffset;
NSInteger messagesAutoReadMode;
bool enablePfps;
NSInteger appIconPfp;
bool enableWhatsApp;
bool enableSlack;
bool enableDiscord;
bool enableTwitter;
bool enableMessages;
bool enableInstagram;
bool enableMessenger;
bool enableTelegram;
NSInteger headerFontSize;
NSInteger textFontSize;
NSInteger statusbarFontSize;
NSInteger tinyBannerFontSize;

HBPreferences* pfs;

namespace {

// A key of the domain, the variable bound to it and the value while nothing is stored.
struct Setting {
  constexpr Setting(const char* storedKey, bool* bound, bool initial)
      : key(storedKey), flag(bound), standard(initial) {}
  constexpr Setting(const char* storedKey, NSInteger* bound, NSInteger initial)
      : key(storedKey), number(bound), standard(initial) {}

  const char* key;
  bool* flag = nullptr;
  NSInteger* number = nullptr;
  NSInteger standard;
};

// The order is that of registration.
constexpr Setting table[] = {
    {"enabled", &enabled, true},
    {"backgroundBlur", &backgroundBlur, true},
    {"showButtons", &showButtons, false},
    {"vibrate_on_send", &vibrate_on_send, true},
    {"24_h_clock", &militaryClock, true},
    {"statusbar", &statusbar, true},
    {"boldButtons", &boldButtons, false},
    {"enableGrabber", &enableGrabber, true},
    {"hide_unless_expanded", &hideUnlessExpanded, false},
    {"tinyBanner", &tinyBanner, false},
    {"tinyBannerNoText", &tinyBannerNoText, false},
    {"maxLineCount", &maxLineCount, 2},
    {"containerCornerRadius", &containerCornerRadius, 30},
    {"appCornerRadius", &appCornerRadius, 20},
    {"appSize", &appSize, 40},
    {"containerColor", &interfaceMode, 0},
    {"textAlignment", &textAlignment, 0},
    {"timeToDismiss", &timeToDismiss, 5},
    {"topOffset", &topOffset, 15},
    {"messagesAutoReadMode", &messagesAutoReadMode, 2},
    {"enablePfps", &enablePfps, true},
    {"appIconPfp", &appIconPfp, 1},
    {"enableWhatsApp", &enableWhatsApp, true},
    {"enableSlack", &enableSlack, true},
    {"enableDiscord", &enableDiscord, true},
    {"enableTwitter", &enableTwitter, true},
    {"enableMessages", &enableMessages, true},
    {"enableInstagram", &enableInstagram, true},
    {"enableMessenger", &enableMessenger, true},
    {"enableTelegram", &enableTelegram, true},
    {"headerFontSize", &headerFontSize, 15},
    {"textFontSize", &textFontSize, 13},
    {"statusbarFontSize", &statusbarFontSize, 15},
    {"tinyBannerFontSize", &tinyBannerFontSize, 15},
};

void registerSetting(const Setting& setting) {
  NSString* key = NSString::stringWithUTF8String(setting.key);
  if (setting.flag != nullptr) {
    pfs->registerBool(setting.flag, setting.standard != 0, key);
  } else {
    pfs->registerInteger(setting.number, setting.standard, key);
  }
}

}  // namespace

void registerAll() {
  pfs = HBPreferences::withIdentifier("com.marrowgate.brimprefs"_ns).leak();
  for (const Setting& setting : table) registerSetting(setting);
}

}  // namespace settings

extern "C" [[gnu::visibility("default")]] const BrimSetting* brim_settings(std::size_t* count) {
  constexpr std::size_t total = sizeof settings::table / sizeof *settings::table;
  static BrimSetting listed[total];
  for (std::size_t index = 0; index < total; ++index) {
    const settings::Setting& setting = settings::table[index];
    const bool isFlag = setting.flag != nullptr;
    listed[index] = {setting.key, isFlag ? BrimSettingType::Bool : BrimSettingType::Integer,
                     isFlag ? static_cast<const void*>(setting.flag) : static_cast<const void*>(setting.number)};
  }
  *count = total;
  return listed;
}
