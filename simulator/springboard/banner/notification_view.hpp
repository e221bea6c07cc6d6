// The platform's own banner: the notification view, and the content view in it that shows what the notification says.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/ui_visual_effect_view.hpp"
#include "simulator/springboard/platter/platter_header.hpp"

struct ShortLookViewState {
  objc::Ref<NSString> primaryText;
  objc::Ref<NSString> primarySubtitleText;
  objc::Ref<NSString> secondaryText;
  objc::Ref<NSString> summaryText;
  objc::Ref<NSArray> icons;

  objc::Ref<UIVisualEffectView> platter;
  objc::Ref<PLPlatterHeaderContentView> header;
  objc::Ref<UILabel> titleLabel;
  objc::Ref<UILabel> subtitleLabel;
  objc::Ref<UILabel> bodyLabel;
  objc::Ref<UILabel> footnoteLabel;
};
template <>
struct objc::StateOf<NCNotificationShortLookView> {
  using Type = ShortLookViewState;
};

namespace springboard {

// Shows the request's content, in the colors of the appearance.
objc::Ref<NCNotificationShortLookView> makeShortLookView(NCNotificationRequest* request);
// A line below the text; nil for none.
void setFootnote(NCNotificationShortLookView* view, NSString* text);
// After a change of the appearance.
void recolorShortLookView(NCNotificationShortLookView* view);
CGFloat heightOfShortLookView(const NCNotificationShortLookView* view, CGFloat width);

// The notification view of the system version in force, with this content. It takes touches wherever one of its
// subviews does, also outside its own bounds, and nowhere else.
objc::Ref<UIView> makeNotificationView(NCNotificationShortLookView* content);
NCNotificationShortLookView* contentViewOf(const UIView* notificationView);

void defineShortLookView();
// The notification view's class depends on the system version.
void defineNotificationView();

}  // namespace springboard
