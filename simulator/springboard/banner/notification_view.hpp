// The views of the platform's banner: the notification view, and in it the content view, which shows the texts. Main
// thread.
#pragma once

#include <string>

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

// Creates a content view that shows the request.
objc::Ref<NCNotificationShortLookView> makeShortLookView(NCNotificationRequest* request);
// Sets the text of the line below the other texts. Nil removes the line.
void setFootnote(NCNotificationShortLookView* view, NSString* text);
// Updates the colors of the view. Call this after a change between the light and the dark appearance.
void recolorShortLookView(NCNotificationShortLookView* view);
// Returns the height of the content at this width. Both are in points.
CGFloat heightOfShortLookView(const NCNotificationShortLookView* view, CGFloat width);

// Creates a notification view of the class that the current system version uses. It accepts touches only on its
// subviews, including subviews outside its bounds.
objc::Ref<UIView> makeNotificationView(NCNotificationShortLookView* content);
NCNotificationShortLookView* contentViewOf(const UIView* notificationView);

// Returns a name for assistive technologies: the name of the request's application and the texts of the request that
// the view shows. Texts that the view hides for privacy are omitted.
std::string accessibleNameOf(const NCNotificationRequest* request, const UIView* view);

void defineShortLookView();
// Defines the classes of the notification view, which depend on the system version.
void defineNotificationView();

}  // namespace springboard
