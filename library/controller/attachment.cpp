#include "library/controller/attachment.hpp"

#include "library/controller/banner_configuration.hpp"
#include "library/controller/commands.hpp"
#include "library/controller/dismissal.hpp"
#include "library/controller/notification_text.hpp"
#include "library/startup/settings.hpp"
#include "library/startup/utilities/ns_string_md5.hpp"
#include "library/startup/utilities/ui_view_plon.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_device.hpp"

namespace {

constexpr int identifierLength = 8;

// Only compared.
const BannerController* newest = nullptr;

// The platform's formats of an application's icon, best first.
constexpr int iconFormats[] = {8, 2, 0};
// What the platform shows for applications without an icon of their own.
constexpr CGFloat placeholderQuality = 100;
NSString* placeholderDigest() { return "543507683f16c45f72e8acbaa3827cbc"_ns; }

objc::Ref<NSString> ownCopy(NSString* text) {
  if (text == nullptr) return nullptr;
  return NSString::decoded(text->dataUsingEncoding(NSStringEncoding::Unicode), NSStringEncoding::Unicode);
}

BannerTexts textsOf(NCNotificationShortLookView* content) {
  NSString* title = presentText(content->primaryText());
  NSString* subtitle = presentText(content->primarySubtitleText());
  // A subtitle that stands in for the title is not shown a second time.
  return {ownCopy(title != nullptr ? title : subtitle), ownCopy(title != nullptr ? subtitle : nullptr),
          ownCopy(bodyText(content))};
}

bool isPlaceholder(UIImage* icon) {
  return UIImageJPEGRepresentation(icon, placeholderQuality)->md5()->isEqualToString(placeholderDigest());
}

UIImage* applicationIcon(BannerController* controller, NCNotificationShortLookView* content) {
  UIImage* icon = nullptr;
  for (const int format : iconFormats) {
    icon = UIImage::applicationIcon(controller->getBundleId(), format);
    if (icon != nullptr) break;
  }
  if (icon != nullptr && !isPlaceholder(icon)) return icon;
  return objc::as<UIImage>(content->icons()->firstObject());
}

void announce(BannerController* controller) {
  if (controller->brimIdentifier() != nullptr) return;
  const objc::Ref<NSString> identifier = objc::retain<NSString>(generateRandomString(identifierLength));
  controller->setBrimIdentifier(identifier);
  onMainQueue([identifier] { postReplacement(identifier); });
}

objc::Ref<BrimColors> coloursFor(BannerController* controller) {
  const NSInteger chosen = settings::interfaceMode;
  if (systemVersionIsBelow("13.0"_ns)) return BrimColors::withMode(chosen != 0 ? chosen : lightMode);
  if (chosen == 0) {
    const bool isDark = UIScreen::mainScreen()->traitCollection()->userInterfaceStyle() == UIUserInterfaceStyle::Dark;
    return BrimColors::withMode(isDark ? darkMode : lightMode);
  }
  objc::Ref<BrimColors> colours = BrimColors::withMode(chosen);
  const bool isDark = colours->mode() == darkMode || colours->mode() == blackMode;
  controller->setOverrideUserInterfaceStyle(isDark ? UIUserInterfaceStyle::Dark : UIUserInterfaceStyle::Light);
  return colours;
}

// Removes what is in the list now; the list may hold nil where an entry has gone.
void removeRecognizers(UIView* view, NSArray* recognizers) {
  const objc::Ref<NSArray> listed = recognizers->copied();
  for (NSUInteger index = 0; index < listed->count(); ++index)
    if (auto* recognizer = objc::as<UIGestureRecognizer>(listed->objectAtIndex(index)))
      view->removeGestureRecognizer(recognizer);
}

NSArray* recognizersInside(UIView* view) {
  const id object = objc::detail::identifier(view);
  const Ivar variable = class_getInstanceVariable(object_getClass(object), "_gestureRecognizers");
  return variable == nullptr ? nullptr : objc::as<NSArray>(object_getIvar(object, variable));
}

void listenToFinger(BannerController* controller, BrimContainer* banner) {
  banner->addGestureRecognizer(UITapGestureRecognizer::withTarget(controller, objc::selector<"_handleTapOnView:">()));
  banner->addGestureRecognizer(UIPanGestureRecognizer::withTarget(controller, objc::selector<"panGestureHandler:">()));
}

void attach(BannerController* controller, NCNotificationViewControllerView* view,
            NCNotificationShortLookView* content) {
  announce(controller);
  const objc::Ref<BrimColors> colours = coloursFor(controller);
  content->removeFromSuperview();
  // A banner that must stay is never covered by a newer one.
  if (!BrimContainer::DismissNotification()) return;
  BrimContainer::setDismissNotification(controller->shouldAutoDismiss());

  const BannerTexts texts = textsOf(content);
  const auto banner =
      BrimContainer::make(applicationIcon(controller, content), texts.header, texts.subHeader, texts.body);
  configureBanner(banner, controller, colours, texts);
  view->addSubview(banner);
  controller->updateProfilePicture(texts.header, texts.body, banner);
  controller->setBrimView(banner);
  newest = controller;
  clearDismissalFlags(controller);
  scheduleAutomaticDismissal(controller);
  removeRecognizers(view, recognizersInside(view));
  removeRecognizers(content, content->gestureRecognizers());
  listenToFinger(controller, banner);
}

}  // namespace

bool hasNewestBanner(const BannerController* controller) { return controller == newest; }

void notificationViewDidMove(objc::Original<void(NCNotificationViewControllerView*)> original,
                             NCNotificationViewControllerView* self) {
  original(self);
  const objc::Ref<NCNotificationShortLookView> content = objc::retain(self->contentView());
  auto* controller = objc::as<BannerController>(parentViewController(self));
  if (controller == nullptr || !controller->isPartOfBanner() || controller->brimView() != nullptr) return;
  attach(controller, self, content);
}

bool userInteractionEnabled(objc::Original<bool(NCNotificationContentContainerViewController*)>,
                            NCNotificationContentContainerViewController*) {
  return true;
}

bool performAction(objc::Original<bool(NCNotificationContentContainerViewController*, NCNotificationAction*,
                                       NCNotificationRequest*, NSDictionary*)>
                       original,
                   NCNotificationContentContainerViewController* self, NCNotificationAction* action,
                   NCNotificationRequest* request, NSDictionary* userInfo) {
  return original(self, action, request, userInfo);
}

bool canBecomeKeyWindow(objc::Original<bool(UIWindow*)>, UIWindow*) { return true; }

void traitCollectionDidChange(objc::Original<void(BannerController*, UITraitCollection*)> original,
                              BannerController* self, UITraitCollection* previous) {
  original(self, previous);
  if (self->brimView() == nullptr || systemVersionIsBelow("13.0"_ns) || settings::interfaceMode != 0) return;
  const UIUserInterfaceStyle style = UIScreen::mainScreen()->traitCollection()->userInterfaceStyle();
  if (style == previous->userInterfaceStyle()) return;
  self->brimView()->updateColorMode(BrimColors::withMode(style == UIUserInterfaceStyle::Dark ? darkMode : lightMode));
}
