// The notification view of the platform's banner and the content view inside it.
#pragma once

#include "platform/ui_view.hpp"

// What a notification says. Each text may be nil.
class NCNotificationShortLookView : public objc::Interface<"NCNotificationShortLookView", UIView> {
 public:
  NSString* primaryText() const { return objc::send<NSString*, "primaryText">(this); }
  NSString* primarySubtitleText() const { return objc::send<NSString*, "primarySubtitleText">(this); }
  NSString* secondaryText() const { return objc::send<NSString*, "secondaryText">(this); }
  NSString* summaryText() const { return objc::send<NSString*, "summaryText">(this); }
  NSArray* icons() const { return objc::send<NSArray*, "icons">(this); }
};

// Holds the content view. Below system version 12.0 the class is called _NCNotificationViewControllerView.
class NCNotificationViewControllerView : public objc::Interface<"NCNotificationViewControllerView", UIView> {
 public:
  NCNotificationShortLookView* contentView() const {
    return objc::send<NCNotificationShortLookView*, "contentView">(this);
  }
};
