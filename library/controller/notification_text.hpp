// The texts of a banner: which text of the platform's content view is the header, the sub-header and the body. Main
// thread.
#pragma once

#include "platform/nc_notification_view.hpp"
#include "platform/ns_string.hpp"

// Each text can be nil.
struct BannerTexts {
  objc::Ref<NSString> header;
  objc::Ref<NSString> subHeader;
  objc::Ref<NSString> body;
};

// Copies of the three texts.
BannerTexts bannerTexts(NCNotificationShortLookView* content);

// The title. If the title is empty, the subtitle, which can be nil or empty.
NSString* headerText(NCNotificationShortLookView* content);
// The subtitle. nil if it is empty, and if it is already the header.
NSString* subHeaderText(NCNotificationShortLookView* content);
// The message. If the message is empty, the summary, which can be nil or empty; nil in system versions before 12.0.
NSString* bodyText(NCNotificationShortLookView* content);
