// BrimContainer: the view of a banner. Configure it before you add it to a superview; it then creates its subviews.
// Sizes are in points, durations in seconds. Every text and picture can be nil. Main thread.
//
// The names of the class, of its messages and of its instance variables, including their spelling, are part of the
// library's public interface. Do not change them.
#pragma once

#include "library/photos/photo_receiver.hpp"
#include "library/view/brim_colors.hpp"
#include "library/view/brim_label.hpp"
#include "platform/ui_image_view.hpp"

class BrimContainer : public objc::Interface<"BrimContainer", PhotoReceiver> {
 public:
  static objc::Ref<BrimContainer> make(UIImage* image, NSString* header, NSString* subHeader, NSString* body) {
    return objc::adopt(objc::send<BrimContainer*, "initWithUIImage:andHeader:andSubHeader:andBody:">(
        objc::allocate<BrimContainer>(), image, header, subHeader, body));
  }

  // Whether the newest banner can be dismissed automatically and replaced by a newer banner. If the flag is false, the
  // banner must stay, because it is expanded or because its notification is not dismissed automatically. All banners
  // share this flag; see allowAutomaticDismissal.
  static bool DismissNotification() { return objc::send<bool, "DismissNotification">(classObject()); }
  static void setDismissNotification(bool dismiss) {
    objc::send<void, "setDismissNotification:">(classObject(), dismiss);
  }

  // The banner does not retain the delegate. BrimNotificationDelegate declares the messages that the delegate receives.
  void setDelegate(NSObject* delegate) { objc::send<void, "setDelegate:">(this, delegate); }
  // The banner stores a copy of the colors.
  BrimColors* colorSet() const { return objc::send<BrimColors*, "colorSet">(this); }
  void setColorSet(BrimColors* colors) { objc::send<void, "setColorSet:">(this, colors); }
  // 0 follows the language, 1 is left, 2 is centered, 3 is right.
  void setTextAlignment(NSUInteger alignment) { objc::send<void, "setTextAlignment:">(this, alignment); }
  bool enableButtons() const { return objc::send<bool, "enableButtons">(this); }
  void setEnableButtons(bool enable) { objc::send<void, "setEnableButtons:">(this, enable); }
  // Whether the texts are hidden until showContent is sent.
  bool enablePrivacy() const { return objc::send<bool, "enablePrivacy">(this); }
  void setEnablePrivacy(bool enable) { objc::send<void, "setEnablePrivacy:">(this, enable); }
  void setBoldButtons(bool bold) { objc::send<void, "setBoldButtons:">(this, bold); }
  bool canReply() const { return objc::send<bool, "canReply">(this); }
  void setCanReply(bool can) { objc::send<void, "setCanReply:">(this, can); }
  bool isAlarm() const { return objc::send<bool, "isAlarm">(this); }
  void setIsAlarm(bool alarm) { objc::send<void, "setIsAlarm:">(this, alarm); }
  void setIsSnoozable(bool snoozable) { objc::send<void, "setIsSnoozable:">(this, snoozable); }
  void setTinyBanner(bool tiny) { objc::send<void, "setTinyBanner:">(this, tiny); }
  void setEnableGrabber(bool enable) { objc::send<void, "setEnableGrabber:">(this, enable); }
  void setMilitaryClock(bool military) { objc::send<void, "setMilitaryClock:">(this, military); }
  void setStatusbar(bool statusbar) { objc::send<void, "setStatusbar:">(this, statusbar); }
  // Shows a badge on the sender's photo: the application's glyph, or its icon if useIconsInsteadOfGlyphs is true.
  void setEnableGlyphs(bool enable) { objc::send<void, "setEnableGlyphs:">(this, enable); }
  void setUseIconsInsteadOfGlyphs(bool use) { objc::send<void, "setUseIconsInsteadOfGlyphs:">(this, use); }
  void setBackgroundBlur(bool blur) { objc::send<void, "setBackgroundBlur:">(this, blur); }
  void setContainerCornerRadius(NSInteger radius) { objc::send<void, "setContainerCornerRadius:">(this, radius); }
  void setAppCornerRadius(NSInteger radius) { objc::send<void, "setAppCornerRadius:">(this, radius); }
  void setAppSize(NSInteger size) { objc::send<void, "setAppSize:">(this, size); }
  // Additional distance between the status line and the picture and texts.
  void setAppIconTop(NSInteger top) { objc::send<void, "setAppIconTop:">(this, top); }
  void setHeaderFontSize(NSInteger size) { objc::send<void, "setHeaderFontSize:">(this, size); }
  void setTextFontSize(NSInteger size) { objc::send<void, "setTextFontSize:">(this, size); }
  void setStatusbarFontSize(NSInteger size) { objc::send<void, "setStatusbarFontSize:">(this, size); }
  void setTinyBannerFontSize(NSInteger size) { objc::send<void, "setTinyBannerFontSize:">(this, size); }
  // The bundle identifier of the application whose glyph is shown as the badge.
  void setAppDetailImageBundleId(NSString* identifier) {
    objc::send<void, "setAppDetailImageBundleId:">(this, identifier);
  }

  // The header with which the banner was created.
  NSString* originalHeader() const { return objc::send<NSString*, "originalHeader">(this); }
  BrimLabel* headerLabel() const { return objc::send<BrimLabel*, "headerLabel">(this); }
  // The label is nil if the banner has no sub-header or is tiny.
  BrimLabel* subHeaderLabel() const { return objc::send<BrimLabel*, "subHeaderLabel">(this); }
  BrimLabel* bodyLabel() const { return objc::send<BrimLabel*, "bodyLabel">(this); }
  BrimTextField* reply() const { return objc::send<BrimTextField*, "reply">(this); }
  bool showingAllLines() const { return objc::send<bool, "showingAllLines">(this); }

  // The distance from the lowest of body, picture and header to the banner's bottom edge, not the height of the view.
  CGFloat height() const { return objc::send<CGFloat, "height">(this); }
  // The distance from the superview's top to the banner's top.
  CGFloat offset() const { return objc::send<CGFloat, "offset">(this); }
  // The values of `height` at rest and fully expanded, the value of `offset` at rest, and the translation at which a
  // drag dismisses the banner.
  CGFloat defaultHeight() const { return objc::send<CGFloat, "defaultHeight">(this); }
  CGFloat defaultExpandedHeight() const { return objc::send<CGFloat, "defaultExpandedHeight">(this); }
  CGFloat defaultOffset() const { return objc::send<CGFloat, "defaultOffset">(this); }
  CGFloat defaultDismiss() const { return objc::send<CGFloat, "defaultDismiss">(this); }
  bool isFullyExpanded() const { return objc::send<bool, "isFullyExpanded">(this); }

  // Sets the constant of the top constraint or of the bottom constraints. The completion block, which can be null, is
  // called only after an animation.
  void updateTop(CGFloat value) { objc::send<void, "updateBrimTopConstraint:">(this, value); }
  void updateTop(CGFloat value, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "updateBrimTopConstraint:animated:completion:">(this, value, animated, completion);
  }
  void updateTop(CGFloat value, bool animated, double duration, objc::Block<void(bool)>* completion) {
    objc::send<void, "updateBrimTopConstraint:animated:duration:completion:">(this, value, animated, duration,
                                                                              completion);
  }
  void updateHeight(CGFloat value) { objc::send<void, "updateBrimHeightConstraint:">(this, value); }
  void updateHeight(CGFloat value, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "updateBrimHeightConstraint:animated:completion:">(this, value, animated, completion);
  }
  // Changes the number of lines with an animation. 0 means no limit.
  void setMaxLineCount(NSInteger lines) { objc::send<void, "setMaxLineCount:">(this, lines); }

  // Sets the alpha of the button row, or of the reply field if the banner has no buttons.
  void setButtonsAlpha(CGFloat alpha) { objc::send<void, "setButtonsAlpha:">(this, alpha); }
  void replyButtonPressed(NSObject* sender) { objc::send<void, "replyButtonPressed:">(this, sender); }
  // Fades the keyboard backdrop to the alpha.
  void setOverlayWithAnimation(CGFloat alpha) { objc::send<void, "setOverlayWithAnimation:">(this, alpha); }

  // Applies the colors of the color set immediately.
  void updateColors() { objc::send<void, "updateColors">(this); }
  // Stores a copy of the colors and fades to them. Does nothing if the banner has custom colors.
  void updateColorMode(BrimColors* colors) { objc::send<void, "updateColorMode:">(this, colors); }
  // Appends the text to the body, on a separate line.
  void updateForContinuousNotification(NSString* text) {
    objc::send<void, "updateBannerForContinuousNotification:">(this, text);
  }
  // Shows the texts that setEnablePrivacy hides.
  void showContent() { objc::send<void, "showContent">(this); }
};

// The delegate of a banner. It receives these messages when the user taps a button or the keyboard backdrop, or sends a
// reply.
class BrimNotificationDelegate : public objc::Interface<"NSObject", NSObject> {
 public:
  void attemptDelete(BrimContainer* view) { objc::send<void, "attemptDelete:">(this, view); }
  void forceDismissNotification(BrimContainer* view) {
    objc::send<void, "forceDismissNotificationForView:">(this, view);
  }
  void executeOnAlarm(BrimContainer* view, NSUInteger action) {
    objc::send<void, "executeOnAlarmForView:action:">(this, view, action);
  }
  void sendReply(BrimContainer* view, NSString* text) {
    objc::send<void, "sendReplyForView:withText:">(this, view, text);
  }
};

// Registers BrimLabel, BrimTextField and BrimContainer. Call once. Returns false if one of them cannot be defined.
bool registerBannerClasses();
