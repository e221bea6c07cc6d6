#include "library/view/brim_container.hpp"

#include <cstddef>

#include "library/utilities/asset_bundle.hpp"
#include "library/view/blur.hpp"
#include "library/view/brim_container_state.hpp"
#include "library/view/button_row.hpp"
#include "library/view/button_taps.hpp"
#include "library/view/color_update.hpp"
#include "library/view/continuous_update.hpp"
#include "library/view/glyphs.hpp"
#include "library/view/height_and_position.hpp"
#include "library/view/icon_and_badge.hpp"
#include "library/view/keyboard_avoidance.hpp"
#include "library/view/layout.hpp"
#include "library/view/privacy.hpp"
#include "library/view/reply_field.hpp"
#include "library/view/texts.hpp"
#include "objc/property_entry.hpp"

namespace {

bool canDismiss = true;

bool dismissNotification(Class) { return canDismiss; }
void setDismissNotification(Class, bool dismiss) { canDismiss = dismiss; }

BrimContainer* initialize(BrimContainer* self, UIImage* image, NSString* header, NSString* subHeader, NSString* body) {
  auto* banner = objc::sendSuper<"BrimContainer", BrimContainer*, "initWithFrame:">(self, CGRect{});
  if (banner == nullptr) return nullptr;
  BrimContainerState& state = objc::state(banner);
  state.image = objc::retain(image);
  state.header = objc::retain(header);
  state.subHeader = objc::retain(subHeader);
  state.body = objc::retain(body);
  state.showingReply = false;
  state.originalHeader = objc::adopt(objc::send<NSString*, "copy">(header));
  state.originalBody = objc::retain(body);
  state.assets = objc::retain(assetBundle());
  resetGlyphTable();
  return banner;
}

BrimNotificationDelegate* delegate(BrimContainer* self) { return objc::autorelease(objc::state(self).delegate.lock()); }
void setDelegate(BrimContainer* self, BrimNotificationDelegate* delegate) { objc::state(self).delegate = delegate; }

BrimColors* colorSet(BrimContainer* self) { return objc::state(self).colorSet; }
void setColorSet(BrimContainer* self, BrimColors* colors) {
  objc::state(self).colorSet = objc::adopt(objc::send<BrimColors*, "copy">(colors));
}

void didMoveToSuperview(BrimContainer* self) {
  objc::sendSuper<"BrimContainer", void, "didMoveToSuperview">(self);
  if (self->superview() != nullptr) layOut(self);
}

#define BRIM_FIELD(member, name) \
  objc::field<decltype(BrimContainerState::member)>(name, offsetof(BrimContainerState, member))

constexpr objc::FieldEntry fields[] = {
    BRIM_FIELD(image, "_image"),
    BRIM_FIELD(header, "_header"),
    BRIM_FIELD(subHeader, "_subHeader"),
    BRIM_FIELD(body, "_body"),
    BRIM_FIELD(originalHeader, "_originalHeader"),
    BRIM_FIELD(originalBody, "_originalBody"),
    BRIM_FIELD(assets, "_lBundle"),
    BRIM_FIELD(delegate, "_delegate"),
    BRIM_FIELD(colorSet, "_colorSet"),
    BRIM_FIELD(textAlignment, "_textAlignment"),
    BRIM_FIELD(enableButtons, "_enableButtons"),
    BRIM_FIELD(enablePrivacy, "_enablePrivacy"),
    BRIM_FIELD(boldButtons, "_boldButtons"),
    BRIM_FIELD(canReply, "_canReply"),
    BRIM_FIELD(isAlarm, "_isAlarm"),
    BRIM_FIELD(isSnoozable, "_isSnoozable"),
    BRIM_FIELD(tinyBanner, "_tinyBanner"),
    BRIM_FIELD(enableGrabber, "_enableGrabber"),
    BRIM_FIELD(militaryClock, "_militaryClock"),
    BRIM_FIELD(statusbar, "_statusbar"),
    BRIM_FIELD(enableGlyphs, "_enableGlyphs"),
    BRIM_FIELD(useIconsInsteadOfGlyphs, "_useIconsInsteadOfGlyphs"),
    BRIM_FIELD(backgroundBlur, "_backgroundBlur"),
    BRIM_FIELD(containerCornerRadius, "_containerCornerRadius"),
    BRIM_FIELD(appCornerRadius, "_appCornerRadius"),
    BRIM_FIELD(appSize, "_appSize"),
    BRIM_FIELD(appIconTop, "_appIconTop"),
    BRIM_FIELD(headerFontSize, "_headerFontSize"),
    BRIM_FIELD(textFontSize, "_textFontSize"),
    BRIM_FIELD(statusbarFontSize, "_statusbarFontSize"),
    BRIM_FIELD(tinyBannerFontSize, "_tinyBannerFontSize"),
    BRIM_FIELD(appDetailImageBundleId, "_appDetailImageBundleId"),
    BRIM_FIELD(headerLabel, "_headerLabel"),
    BRIM_FIELD(subHeaderLabel, "_subHeaderLabel"),
    BRIM_FIELD(bodyLabel, "_bodyLabel"),
    BRIM_FIELD(reply, "_reply"),
    BRIM_FIELD(replyBackground, "_replyBg"),
    BRIM_FIELD(barTop, "_barTop"),
    BRIM_FIELD(showingAllLines, "_showingAllLines"),
    BRIM_FIELD(keyboardBackdrop, "_keyboardBackdrop"),
    BRIM_FIELD(buttonRow, "_buttonStackView"),
    BRIM_FIELD(replyButton, "_replyButton"),
    BRIM_FIELD(clearButton, "_clearButton"),
    BRIM_FIELD(closeButton, "_closeButton"),
    BRIM_FIELD(snoozeButton, "_snoozeButton"),
    BRIM_FIELD(stopAlarmButton, "_stopAlarmButton"),
    BRIM_FIELD(clockLabel, "_clockLabel"),
    BRIM_FIELD(nowLabel, "_nowLabel"),
    BRIM_FIELD(grabber, "_grabberView"),
    BRIM_FIELD(iconView, "_appIV"),
    BRIM_FIELD(badge, "_appDetailImage"),
    BRIM_FIELD(scrollView, "_scrollView"),
    BRIM_FIELD(showingReply, "_showingReply"),
    BRIM_FIELD(maxLineCount, "_maxLineCount"),
    BRIM_FIELD(top, "_brimTopConstraint"),
    BRIM_FIELD(heightBelowBody, "_brimHeightConstraint"),
    BRIM_FIELD(heightBelowIcon, "_brimAlternateHeightConstraint"),
    BRIM_FIELD(heightBelowHeader, "_brimOtherHeightConstraint"),
    BRIM_FIELD(headerLeading, "_brimHeaderLeadingConstraint"),
    BRIM_FIELD(subHeaderLeading, "_brimSubHeaderLeadingConstraint"),
    BRIM_FIELD(bodyLeading, "_brimBodyLeadingConstraint"),
    BRIM_FIELD(heightLimit, "_brimHeightLimitConstraint"),
};

#undef BRIM_FIELD

constexpr objc::PropertyEntry properties[] = {
    objc::stored<"textAlignment", BrimContainer, &BrimContainerState::textAlignment>(),
    objc::stored<"enableButtons", BrimContainer, &BrimContainerState::enableButtons>(),
    objc::stored<"enablePrivacy", BrimContainer, &BrimContainerState::enablePrivacy>(),
    objc::stored<"boldButtons", BrimContainer, &BrimContainerState::boldButtons>(),
    objc::stored<"canReply", BrimContainer, &BrimContainerState::canReply>(),
    objc::stored<"isAlarm", BrimContainer, &BrimContainerState::isAlarm>(),
    objc::stored<"isSnoozable", BrimContainer, &BrimContainerState::isSnoozable>(),
    objc::stored<"tinyBanner", BrimContainer, &BrimContainerState::tinyBanner>(),
    objc::stored<"enableGrabber", BrimContainer, &BrimContainerState::enableGrabber>(),
    objc::stored<"militaryClock", BrimContainer, &BrimContainerState::militaryClock>(),
    objc::stored<"statusbar", BrimContainer, &BrimContainerState::statusbar>(),
    objc::stored<"enableGlyphs", BrimContainer, &BrimContainerState::enableGlyphs>(),
    objc::stored<"useIconsInsteadOfGlyphs", BrimContainer, &BrimContainerState::useIconsInsteadOfGlyphs>(),
    objc::stored<"backgroundBlur", BrimContainer, &BrimContainerState::backgroundBlur>(),
    objc::stored<"containerCornerRadius", BrimContainer, &BrimContainerState::containerCornerRadius>(),
    objc::stored<"appCornerRadius", BrimContainer, &BrimContainerState::appCornerRadius>(),
    objc::stored<"appSize", BrimContainer, &BrimContainerState::appSize>(),
    objc::stored<"appIconTop", BrimContainer, &BrimContainerState::appIconTop>(),
    objc::stored<"headerFontSize", BrimContainer, &BrimContainerState::headerFontSize>(),
    objc::stored<"textFontSize", BrimContainer, &BrimContainerState::textFontSize>(),
    objc::stored<"statusbarFontSize", BrimContainer, &BrimContainerState::statusbarFontSize>(),
    objc::stored<"tinyBannerFontSize", BrimContainer, &BrimContainerState::tinyBannerFontSize>(),
    objc::stored<"appDetailImageBundleId", BrimContainer, &BrimContainerState::appDetailImageBundleId>(),
    objc::readOnly<"originalHeader", BrimContainer, &BrimContainerState::originalHeader>(),
    objc::readOnly<"headerLabel", BrimContainer, &BrimContainerState::headerLabel>(),
    objc::readOnly<"subHeaderLabel", BrimContainer, &BrimContainerState::subHeaderLabel>(),
    objc::readOnly<"bodyLabel", BrimContainer, &BrimContainerState::bodyLabel>(),
    objc::readOnly<"reply", BrimContainer, &BrimContainerState::reply>(),
    objc::readOnly<"replyBg", BrimContainer, &BrimContainerState::replyBackground>(),
    objc::readOnly<"barTop", BrimContainer, &BrimContainerState::barTop>(),
    objc::readOnly<"showingAllLines", BrimContainer, &BrimContainerState::showingAllLines>(),
};

constexpr objc::MethodEntry methods[] = {
    objc::classMethod<"DismissNotification", &dismissNotification>(),
    objc::classMethod<"setDismissNotification:", &setDismissNotification>(),
    objc::method<"initWithUIImage:andHeader:andSubHeader:andBody:", &initialize>(),
    objc::method<"delegate", &delegate>(),
    objc::method<"setDelegate:", &setDelegate>(),
    objc::method<"colorSet", &colorSet>(),
    objc::method<"setColorSet:", &setColorSet>(),
    objc::method<"didMoveToSuperview", &didMoveToSuperview>(),
    objc::method<"defaultHeight", &defaultHeight>(),
    objc::method<"defaultExpandedHeight", &defaultExpandedHeight>(),
    objc::method<"defaultOffset", &defaultOffset>(),
    objc::method<"defaultDismiss", &defaultDismiss>(),
    objc::method<"height", &height>(),
    objc::method<"offset", &offset>(),
    objc::method<"isFullyExpanded", &isFullyExpanded>(),
    objc::method<"updateBrimTopConstraint:", &updateTop>(),
    objc::method<"updateBrimTopConstraint:animated:completion:", &updateTopAnimated>(),
    objc::method<"updateBrimTopConstraint:animated:duration:completion:", &updateTopWithDuration>(),
    objc::method<"updateBrimHeightConstraint:", &updateHeight>(),
    objc::method<"updateBrimHeightConstraint:animated:completion:", &updateHeightAnimated>(),
    objc::method<"setMaxLineCount:", &setMaxLineCount>(),
    objc::method<"setButtonsAlpha:", &setButtonsAlpha>(),
    objc::method<"setReplyAlpha:", &setReplyAlpha>(),
    objc::method<"replyButtonPressed:", &replyButtonPressed>(),
    objc::method<"clearButtonPressed:", &clearButtonPressed>(),
    objc::method<"closeButtonPressed:", &closeButtonPressed>(),
    objc::method<"dismissButtonPressed:", &dismissButtonPressed>(),
    objc::method<"snoozeButtonPressed:", &snoozeButtonPressed>(),
    objc::method<"stopAlarmButtonPressed:", &stopAlarmButtonPressed>(),
    objc::method<"startEditing", &startEditing>(),
    objc::method<"endEditing", &endEditing>(),
    objc::method<"finishedEditing", &finishedEditing>(),
    objc::method<"setOverlayWithAnimation:", &setOverlay>(),
    objc::method<"updateColors", &updateColors>(),
    objc::method<"updateColorMode:", &updateColorMode>(),
    objc::method<"updateImage:", &updateImage>(),
    objc::method<"updateBannerForContinuousNotification:", &updateForContinuousNotification>(),
    objc::method<"showContent", &showContent>(),
};

}  // namespace

bool registerBannerClasses() {
  if (!objc::tryToDefineClass<BrimLabel>({}) || !objc::tryToDefineClass<BrimTextField>(replyFieldMethods()) ||
      !objc::tryToDefineClassWithState<BrimContainer>(methods, fields))
    return false;
  objc::addProperties(BrimContainer::classObject(), properties);
  return true;
}
