// The library's settings in the order of their registration. The default value is used if no value is stored. All
// values are the same on the phone and in the simulator.
#pragma once

namespace test {

enum class SettingType { Bool, Integer };

struct SettingRow {
  const char* key;
  SettingType type;
  int defaultValue;  // 0 or 1 for a Bool
};

inline constexpr SettingRow settingRows[] = {
    {"enabled", SettingType::Bool, 1},
    {"backgroundBlur", SettingType::Bool, 1},
    {"showButtons", SettingType::Bool, 0},
    {"vibrate_on_send", SettingType::Bool, 1},
    {"24_h_clock", SettingType::Bool, 1},
    {"statusbar", SettingType::Bool, 1},
    {"boldButtons", SettingType::Bool, 0},
    {"enableGrabber", SettingType::Bool, 1},
    {"hide_unless_expanded", SettingType::Bool, 0},
    {"tinyBanner", SettingType::Bool, 0},
    {"tinyBannerNoText", SettingType::Bool, 0},
    {"maxLineCount", SettingType::Integer, 2},
    {"containerCornerRadius", SettingType::Integer, 30},
    {"appCornerRadius", SettingType::Integer, 20},
    {"appSize", SettingType::Integer, 40},
    {"containerColor", SettingType::Integer, 0},
    {"textAlignment", SettingType::Integer, 0},
    {"timeToDismiss", SettingType::Integer, 5},
    {"topOffset", SettingType::Integer, 15},
    {"messagesAutoReadMode", SettingType::Integer, 2},
    {"enablePfps", SettingType::Bool, 1},
    {"appIconPfp", SettingType::Integer, 1},
    {"enableWhatsApp", SettingType::Bool, 1},
    {"enableSlack", SettingType::Bool, 1},
    {"enableDiscord", SettingType::Bool, 1},
    {"enableTwitter", SettingType::Bool, 1},
    {"enableMessages", SettingType::Bool, 1},
    {"enableInstagram", SettingType::Bool, 1},
    {"enableMessenger", SettingType::Bool, 1},
    {"enableTelegram", SettingType::Bool, 1},
    {"headerFontSize", SettingType::Integer, 15},
    {"textFontSize", SettingType::Integer, 13},
    {"statusbarFontSize", SettingType::Integer, 15},
    {"tinyBannerFontSize", SettingType::Integer, 15},
};

}  // namespace test
