// The state of a BrimContainer. Each member is an instance variable of the class, in this order.
#pragma once

#include "library/view/brim_container.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_bundle.hpp"
#include "platform/ui_button.hpp"
#include "platform/ui_stack_view.hpp"
#include "platform/ui_visual_effect_view.hpp"

struct BrimContainerState {
  // The content. `header`, `subHeader` and `body` change when the texts are hidden, when the line of a tiny banner is
  // created and when a message is appended. `originalHeader` and `originalBody` do not change.
  objc::Ref<UIImage> image;
  objc::Ref<NSString> header;
  objc::Ref<NSString> subHeader;
  objc::Ref<NSString> body;
  objc::Ref<NSString> originalHeader;
  objc::Ref<NSString> originalBody;
  objc::Ref<NSBundle> assets;

  // The configuration. It is complete before the banner is added to a superview.
  objc::Weak<BrimNotificationDelegate> delegate;
  objc::Ref<BrimColors> colorSet;
  NSUInteger textAlignment = 0;
  bool enableButtons = false;
  bool enablePrivacy = false;
  bool boldButtons = false;
  bool canReply = false;
  bool isAlarm = false;
  bool isSnoozable = false;
  bool tinyBanner = false;
  bool enableGrabber = false;
  bool militaryClock = false;
  bool statusbar = false;
  bool enableGlyphs = false;
  bool useIconsInsteadOfGlyphs = false;
  bool backgroundBlur = false;
  NSInteger containerCornerRadius = 0;
  NSInteger appCornerRadius = 0;
  NSInteger appSize = 0;
  NSInteger appIconTop = 0;
  NSInteger headerFontSize = 0;
  NSInteger textFontSize = 0;
  NSInteger statusbarFontSize = 0;
  NSInteger tinyBannerFontSize = 0;
  objc::Ref<NSString> appDetailImageBundleId;

  // The views, which the layout creates. A view that the configuration does not require is nil.
  objc::Ref<BrimLabel> headerLabel;
  objc::Ref<BrimLabel> subHeaderLabel;
  objc::Ref<BrimLabel> bodyLabel;
  objc::Ref<BrimTextField> reply;
  objc::Ref<UIView> replyBackground;
  NSInteger barTop = 0;
  bool showingAllLines = false;
  objc::Ref<UIVisualEffectView> keyboardBackdrop;
  objc::Ref<UIStackView> buttonRow;
  objc::Ref<UIButton> replyButton;
  objc::Ref<UIButton> clearButton;
  objc::Ref<UIButton> closeButton;
  objc::Ref<UIButton> snoozeButton;
  objc::Ref<UIButton> stopAlarmButton;
  objc::Ref<BrimLabel> clockLabel;
  objc::Ref<BrimLabel> nowLabel;
  objc::Ref<UIView> grabber;
  objc::Ref<UIImageView> iconView;
  objc::Ref<UIImageView> badge;
  // Always nil. The library's public interface contains this instance variable.
  objc::Ref<UIView> scrollView;
  bool showingReply = false;
  NSInteger maxLineCount = 0;

  // The constraints on the banner's top edge, on its bottom edge (three constraints with the same constant), and on the
  // leading edges of the texts. The constraints on the leading edges change when the badge is shown.
  objc::Ref<NSLayoutConstraint> top;
  objc::Ref<NSLayoutConstraint> heightBelowBody;
  objc::Ref<NSLayoutConstraint> heightBelowIcon;
  objc::Ref<NSLayoutConstraint> heightBelowHeader;
  objc::Ref<NSLayoutConstraint> headerLeading;
  objc::Ref<NSLayoutConstraint> subHeaderLeading;
  objc::Ref<NSLayoutConstraint> bodyLeading;
  // Keeps the banner above the keyboard. nil until the keyboard appears.
  objc::Ref<NSLayoutConstraint> heightLimit;
};

template <>
struct objc::StateOf<BrimContainer> {
  using Type = BrimContainerState;
};
