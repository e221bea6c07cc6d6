// The notification view of the platform's banner, and the content view inside it. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

// The content view, which shows the texts of a notification: the title (primaryText), the subtitle
// (primarySubtitleText), the message (secondaryText) and the summary (summaryText). Each text can be nil.
class NCNotificationShortLookView : public objc::Interface<"NCNotificationShortLookView", UIView> {
 public:
  NSString* primaryText() const { return objc::send<NSString*, "primaryText">(this); }
  NSString* primarySubtitleText() const { return objc::send<NSString*, "primarySubtitleText">(this); }
  NSString* secondaryText() const { return objc::send<NSString*, "secondaryText">(this); }
  NSString* summaryText() const { return objc::sendIfAvailable<NSString*, "summaryText">(this); }
  // The icons as UIImage objects.
  NSArray* icons() const { return objc::sendIfAvailable<NSArray*, "icons">(this); }
};

// The superview of the content view. Before system version 12.0, the class is named _NCNotificationViewControllerView.
class NCNotificationViewControllerView : public objc::Interface<"NCNotificationViewControllerView", UIView> {
 public:
  NCNotificationShortLookView* contentView() const {
    return objc::send<NCNotificationShortLookView*, "contentView">(this);
  }
};
