// The list of all settings, in registration order. To use the list, define the macro BRIM_SETTING and then include this
// file, which expands the macro for each setting:
//
//   BRIM_SETTING(type, variable, key, default)
//
// The type is bool or NSInteger. Do not change the keys, because the settings pane uses them, or the names of the
// variables, because debuggers use them. Sizes are in points.
#ifndef BRIM_SETTING
#error "define BRIM_SETTING(type, variable, key, default) before you include settings_list.hpp"
#endif

// Master switch. It is read once, at startup.
BRIM_SETTING(bool, enabled, "enabled", true)
// Blurs the background of the banner, and blurs the whole screen while the user types a reply.
BRIM_SETTING(bool, backgroundBlur, "backgroundBlur", true)
// Shows a row of buttons in the expanded banner. If it is off, an expanded banner shows the reply field.
BRIM_SETTING(bool, showButtons, "showButtons", false)
// Vibrates to confirm a sent reply or another executed action.
BRIM_SETTING(bool, vibrate_on_send, "vibrate_on_send", true)
// Shows the time in 24-hour format instead of 12-hour format.
BRIM_SETTING(bool, militaryClock, "24_h_clock", true)
// Shows the status line with the time above the content.
BRIM_SETTING(bool, statusbar, "statusbar", true)
// Makes the titles of the buttons bold.
BRIM_SETTING(bool, boldButtons, "boldButtons", false)
// Shows the grabber at the banner's bottom edge.
BRIM_SETTING(bool, enableGrabber, "enableGrabber", true)
// Hides the texts until the banner is expanded.
BRIM_SETTING(bool, hideUnlessExpanded, "hide_unless_expanded", false)
// Shows every banner as a single line.
BRIM_SETTING(bool, tinyBanner, "tinyBanner", false)
// Shows a banner as a single line if it has no header or no body.
BRIM_SETTING(bool, tinyBannerNoText, "tinyBannerNoText", false)
// Maximum number of lines of the body in a banner that is not expanded. 0 means no limit.
BRIM_SETTING(NSInteger, maxLineCount, "maxLineCount", 2)
// Corner radius of the banner.
BRIM_SETTING(NSInteger, containerCornerRadius, "containerCornerRadius", 30)
// Corner radius of the picture, at most half of appSize.
BRIM_SETTING(NSInteger, appCornerRadius, "appCornerRadius", 20)
// Width and height of the picture.
BRIM_SETTING(NSInteger, appSize, "appSize", 40)
// Color mode: 0 follows the system, 1 is dark, 2 is light, 3 is black.
BRIM_SETTING(NSInteger, interfaceMode, "containerColor", 0)
// Alignment of the texts: 0 follows the language, 1 is left, 2 is centered, 3 is right.
BRIM_SETTING(NSInteger, textAlignment, "textAlignment", 0)
// Number of seconds until a banner is dismissed automatically.
BRIM_SETTING(NSInteger, timeToDismiss, "timeToDismiss", 5)
// Additional distance between the status line and the picture and texts.
BRIM_SETTING(NSInteger, topOffset, "topOffset", 15)
// When a Messages conversation is marked as read; see AutoReadMode.
BRIM_SETTING(NSInteger, messagesAutoReadMode, "messagesAutoReadMode", 2)
// Shows the sender's photo in place of the application's icon.
BRIM_SETTING(bool, enablePfps, "enablePfps", true)
// Badge on the photo: 0 is none, 1 is the application's glyph, 2 is the application's icon.
BRIM_SETTING(NSInteger, appIconPfp, "appIconPfp", 1)
// Shows the photos of WhatsApp senders.
BRIM_SETTING(bool, enableWhatsApp, "enableWhatsApp", true)
// Shows the photos of Slack senders.
BRIM_SETTING(bool, enableSlack, "enableSlack", true)
// Shows the photos of Discord senders.
BRIM_SETTING(bool, enableDiscord, "enableDiscord", true)
// Shows the photos of Twitter senders.
BRIM_SETTING(bool, enableTwitter, "enableTwitter", true)
// Shows the photos of Messages senders.
BRIM_SETTING(bool, enableMessages, "enableMessages", true)
// Shows the photos of Instagram senders.
BRIM_SETTING(bool, enableInstagram, "enableInstagram", true)
// Shows the photos of Messenger senders.
BRIM_SETTING(bool, enableMessenger, "enableMessenger", true)
// Shows the photos of Telegram senders.
BRIM_SETTING(bool, enableTelegram, "enableTelegram", true)
// Font size of header and sub-header.
BRIM_SETTING(NSInteger, headerFontSize, "headerFontSize", 15)
// Font size of the body.
BRIM_SETTING(NSInteger, textFontSize, "textFontSize", 13)
// Font size of the status line.
BRIM_SETTING(NSInteger, statusbarFontSize, "statusbarFontSize", 15)
// Font size of a single-line banner.
BRIM_SETTING(NSInteger, tinyBannerFontSize, "tinyBannerFontSize", 15)

#undef BRIM_SETTING
