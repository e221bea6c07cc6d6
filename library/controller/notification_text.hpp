// The texts of a banner. These functions select the header, the sub-header and the body from the texts of the
// platform's content view. Main thread.
#pragma once

#include "platform/nc_notification_view.hpp"
#include "platform/ns_string.hpp"

// Each text can be nil.
struct BannerTexts {
  objc::Ref<NSString> header;
  objc::Ref<NSString> subHeader;
  objc::Ref<NSString> body;
};

// Returns copies of the three texts. An empty header becomes nil.
BannerTexts bannerTexts(NCNotificationShortLookView* content);

// Returns the title. If the title is nil or empty, returns the subtitle, which can be nil or empty.
NSString* headerText(NCNotificationShortLookView* content);
// Returns the subtitle. Returns nil if the subtitle is empty or is used as the header.
NSString* subHeaderText(NCNotificationShortLookView* content);
// Returns the message. If the message is nil or empty, returns the summary, which can be nil or empty. System versions
// before 12.0 have no summary; the result is then nil.
NSString* bodyText(NCNotificationShortLookView* content);
