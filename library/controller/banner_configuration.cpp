#include "library/controller/banner_configuration.hpp"

#include "library/settings/settings.hpp"
#include "library/utilities/empty_text.hpp"

namespace {

// Values of the setting appIconPfp. Values above these also select the glyph; values below them select no badge.
constexpr NSInteger glyphBadge = 1;
constexpr NSInteger iconBadge = 2;

bool isTiny(const BannerTexts& texts) {
  if (settings::tinyBanner) return true;
  return settings::tinyBannerNoText && (isNilOrEmpty(texts.body) || isNilOrEmpty(texts.header));
}

void configureSizes(BrimContainer* banner) {
  banner->setHeaderFontSize(settings::headerFontSize);
  banner->setTextFontSize(settings::textFontSize);
  banner->setTinyBannerFontSize(settings::tinyBannerFontSize);
  banner->setAppIconTop(settings::topOffset);
  banner->setMilitaryClock(settings::militaryClock);
  banner->setStatusbar(settings::statusbar);
  banner->setAppSize(settings::appSize);
  banner->setBoldButtons(settings::boldButtons);
}

}  // namespace

void configureBanner(BrimContainer* banner, BannerController* controller, BrimColors* colors,
                     const BannerTexts& texts) {
  constexpr NSUInteger snoozeAndClose = 2;
  banner->setDelegate(controller);
  banner->setIsAlarm(controller->isAlarm());
  banner->setIsSnoozable(controller->getAlarmActions()->count() == snoozeAndClose);
  banner->setEnableButtons(settings::showButtons || banner->isAlarm());
  banner->setMaxLineCount(settings::maxLineCount);
  banner->setCanReply(controller->canReply() && !banner->isAlarm());
  banner->setColorSet(colors);
  banner->setContainerCornerRadius(settings::containerCornerRadius);
  banner->setAppCornerRadius(settings::appCornerRadius);
  banner->setTinyBanner(isTiny(texts));
  banner->setBackgroundBlur(settings::backgroundBlur);
  configureSizes(banner);
  banner->setAppDetailImageBundleId(controller->getBundleId());
  banner->setUseIconsInsteadOfGlyphs(settings::appIconPfp == iconBadge);
  banner->setEnableGlyphs(settings::appIconPfp >= glyphBadge);
  banner->setEnableGrabber(settings::enableGrabber);
  banner->setEnablePrivacy(settings::hideUnlessExpanded);
  banner->setTextAlignment(static_cast<NSUInteger>(settings::textAlignment));
  banner->setStatusbarFontSize(settings::statusbarFontSize);
}
