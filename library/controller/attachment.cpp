#include "library/controller/attachment.hpp"

#include "library/controller/application_icon.hpp"
#include "library/controller/banner_configuration.hpp"
#include "library/controller/color_mode.hpp"
#include "library/controller/commands.hpp"
#include "library/controller/dismissal.hpp"
#include "library/controller/gestures.hpp"
#include "library/utilities/ns_string_md5.hpp"
#include "library/utilities/parent_view_controller.hpp"
#include "platform/dispatch.hpp"

namespace {

constexpr int identifierLength = 8;

// Gives the controller an identifier, and dismisses the older banners in a later run-loop iteration. Does nothing if
// the controller already has an identifier.
void replaceOlderBanners(BannerController* controller) {
  if (controller->brimIdentifier() != nullptr) return;
  const objc::Ref<NSString> identifier = objc::retain<NSString>(generateRandomString(identifierLength));
  controller->setBrimIdentifier(identifier);
  onMainQueue([identifier] { postReplacement(identifier); });
}

void attach(BannerController* controller, NCNotificationViewControllerView* view,
            NCNotificationShortLookView* content) {
  replaceOlderBanners(controller);
  const objc::Ref<BrimColors> colors = colorsFor(controller);
  content->removeFromSuperview();
  // While an older banner must stay, the controller gets no banner, because its banner would cover the older one.
  if (!BrimContainer::DismissNotification()) return;
  BrimContainer::setDismissNotification(controller->shouldAutoDismiss());

  const BannerTexts texts = bannerTexts(content);
  const auto banner =
      BrimContainer::make(applicationIcon(controller, content), texts.header, texts.subHeader, texts.body);
  configureBanner(banner, controller, colors, texts);
  view->addSubview(banner);
  controller->updateProfilePicture(texts.header, texts.body, banner);
  controller->setBrimView(banner);
  prepareDismissal(controller);
  replaceGestureRecognizers(controller, view, content, banner);
}

}  // namespace

void notificationViewDidMove(objc::Original<void(NCNotificationViewControllerView*)> original,
                             NCNotificationViewControllerView* self) {
  original(self);
  const objc::Ref<NCNotificationShortLookView> content = objc::retain(self->contentView());
  auto* controller = objc::as<BannerController>(parentViewController(self));
  if (controller == nullptr || !controller->isPartOfBanner() || controller->brimView() != nullptr) return;
  attach(controller, self, content);
}
