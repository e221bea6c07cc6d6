// The user's settings: process-wide variables that follow the preferences domain. Written by the preferences object
// when the domain changes, read on the main thread at the moment a value is needed.
#pragma once

#include "platform/hb_preferences.hpp"

namespace settings {

extern bool enabled;
extern bool backgroundBlur;
extern bool showButtons;
extern bool vibrate_on_send;
extern bool militaryClock;
extern bool statusbar;
extern bool boldButtons;
extern bool enableGrabber;
extern bool hideUnlessExpanded;
extern bool tinyBanner;
extern bool tinyBannerNoText;
extern NSInteger maxLineCount;
extern NSInteger containerCornerRadius;
extern NSInteger appCornerRadius;
extern NSInteger appSize;
extern NSInteger interfaceMode;
extern NSInteger textAlignment;
extern NSInteger timeToDismiss;
extern NSInteger topOffset;
extern NSInteger messagesAutoReadMode;
extern bool enablePfps;
extern NSInteger appIconPfp;
extern bool enableWhatsApp;
extern bool enableSlack;
extern bool enableDiscord;
extern bool enableTwitter;
extern bool enableMessages;
extern bool enableInstagram;
extern bool enableMessenger;
extern bool enableTelegram;
extern NSInteger headerFontSize;
extern NSInteger textFontSize;
extern NSInteger statusbarFontSize;
extern NSInteger tinyBannerFontSize;

// Lives from start-up to the end of the process.
extern HBPreferences* pfs;

// Makes the preferences object and binds every variable, once, first thing at start-up.
void registerAll();

}  // namespace settings
