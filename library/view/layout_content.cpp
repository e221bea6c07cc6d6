#include "library/view/layout_parts.hpp"
#include "library/view/tiny_line.hpp"
#include "platform/ns_date.hpp"

namespace {

constexpr CGFloat clockLeading = 25;
constexpr CGFloat nowTrailing = 34;
constexpr CGFloat iconLeading = 15;
constexpr CGFloat iconBelowClock = 15;
constexpr CGFloat tinyIconSize = 20;
constexpr NSInteger tinyCornerRadius = 10;
constexpr NSInteger glyphBadgeGrowth = 16;
constexpr CGFloat iconBadgeOverhang = 7;
constexpr CGFloat textMargin = 16;
constexpr CGFloat bodyBelowHeader = 4;

CGFloat points(NSInteger size) { return static_cast<CGFloat>(size); }

// Where there is no status line its labels still hold its place.
NSString* emptyStatusText() { return "   "_ns; }

NSString* clockText(const BrimContainerState& state) {
  const auto formatter = objc::make<NSDateFormatter>();
  formatter->setDateFormat(state.militaryClock ? "HH:mm"_ns : "h:mm"_ns);
  NSString* text = formatter->stringFromDate(NSDate::date());
  for (NSString* marker : {" AM"_ns, " am"_ns, " PM"_ns, " pm"_ns}) {
    const NSRange found = text->rangeOfString(marker);
    if (found.length != 0) text = text->stringByReplacingCharactersInRange(found, ""_ns);
  }
  return text;
}

NSTextAlignment alignment(const BrimContainerState& state) {
  constexpr NSTextAlignment mapped[] = {NSTextAlignment::Natural, NSTextAlignment::Left, NSTextAlignment::Center,
                                        NSTextAlignment::Right};
  return state.textAlignment < sizeof mapped / sizeof *mapped ? mapped[state.textAlignment] : NSTextAlignment::Natural;
}

// The tiny banner's icon is 20 points wide whatever the settings say.
NSInteger clampedIconRadius(const BrimContainerState& state) {
  constexpr NSInteger largestTinyRadius = 11;
  if (state.tinyBanner && state.appCornerRadius >= largestTinyRadius) return tinyCornerRadius;
  const NSInteger half = (state.appSize - state.appSize % 2) / 2;
  return state.appCornerRadius < half ? state.appCornerRadius : half;
}

void layOutGlyphBadge(const BrimContainerState& state, UIImageView* badge) {
  const CGFloat side = points(state.appSize / 2 + glyphBadgeGrowth);
  badge->leadingAnchor()->equalTo(state.iconView->centerXAnchor())->activated();
  badge->bottomAnchor()->equalTo(state.iconView->centerYAnchor())->activated();
  setSize(badge, side, side);
}

void layOutIconBadge(const BrimContainerState& state, UIImageView* badge) {
  const NSInteger side = state.appSize / 2;
  roundCorners(badge, points(side / 2));
  badge->trailingAnchor()->equalTo(state.iconView->trailingAnchor(), iconBadgeOverhang)->activated();
  badge->topAnchor()->equalTo(state.iconView->topAnchor(), -iconBadgeOverhang)->activated();
  setSize(badge, points(side), points(side));
}

void layOutBadge(BrimContainer* self, BrimContainerState& state) {
  state.badge = placed<UIImageView>();
  state.badge->setClipsToBounds(true);
  state.badge->setContentMode(UIViewContentMode::ScaleAspectFill);
  self->addSubview(state.badge);
  if (state.useIconsInsteadOfGlyphs) {
    layOutIconBadge(state, state.badge);
  } else {
    layOutGlyphBadge(state, state.badge);
  }
}

// The label beside the icon; the constraint of its leading edge is kept, to make room for the badge later.
objc::Ref<NSLayoutConstraint> placeBesideIcon(BrimContainer* self, const BrimContainerState& state, BrimLabel* label) {
  self->addSubview(label);
  objc::Ref<NSLayoutConstraint> leading =
      objc::retain(label->leadingAnchor()->equalTo(state.iconView->trailingAnchor(), textMargin)->activated());
  label->trailingAnchor()->equalTo(self->trailingAnchor(), -textMargin)->activated();
  return leading;
}

void layOutHeader(BrimContainer* self, BrimContainerState& state) {
  state.headerLabel = placed<BrimLabel>();
  BrimLabel* label = state.headerLabel;
  label->setTextAlignment(alignment(state));
  label->setTextColor(state.colorSet->containerTextColor());
  if (state.tinyBanner) {
    showTinyLine(self);
  } else {
    label->setText(state.header);
    label->setFont(UIFont::boldSystemFontOfSize(points(state.headerFontSize)));
  }
  label->setNumberOfLines(1);
  state.headerLeading = placeBesideIcon(self, state, label);
  label->topAnchor()->equalTo(state.iconView->topAnchor(), state.tinyBanner ? 1 : 0)->activated();
}

void layOutSubHeader(BrimContainer* self, BrimContainerState& state) {
  state.subHeaderLabel = placed<BrimLabel>();
  BrimLabel* label = state.subHeaderLabel;
  label->setTextAlignment(alignment(state));
  label->setText(state.subHeader);
  label->setFont(UIFont::boldSystemFontOfSize(points(state.headerFontSize)));
  label->setNumberOfLines(1);
  label->setTextColor(state.colorSet->containerTextColor());
  state.subHeaderLeading = placeBesideIcon(self, state, label);
  label->topAnchor()->equalTo(state.headerLabel->bottomAnchor())->activated();
}

void layOutBody(BrimContainer* self, BrimContainerState& state) {
  state.bodyLabel = placed<BrimLabel>();
  BrimLabel* label = state.bodyLabel;
  label->setTextAlignment(alignment(state));
  if (!state.tinyBanner) {
    label->setNumberOfLines(state.maxLineCount);
    label->setText(state.body);
  }
  label->setContentMode(UIViewContentMode::Top);
  label->setTextColor(state.colorSet->containerTextColor());
  label->setFont(label->font()->fontWithSize(points(state.textFontSize)));
  state.bodyLeading = placeBesideIcon(self, state, label);
  BrimLabel* above = state.subHeaderLabel != nullptr ? state.subHeaderLabel : state.headerLabel;
  label->topAnchor()->equalTo(above->bottomAnchor(), bodyBelowHeader)->activated();
}

}  // namespace

void layOutStatusLine(BrimContainer* self, BrimContainerState& state) {
  state.clockLabel = placed<BrimLabel>();
  state.clockLabel->setText(state.statusbar ? clockText(state) : emptyStatusText());
  state.clockLabel->setTextColor(state.colorSet->containerTextColor());
  state.clockLabel->setFont(UIFont::boldSystemFontOfSize(points(state.statusbarFontSize)));
  self->addSubview(state.clockLabel);
  state.clockLabel->leadingAnchor()->equalTo(self->leadingAnchor(), clockLeading)->activated();
  state.clockLabel->topAnchor()->equalTo(self->topAnchor(), points(state.barTop))->activated();

  state.nowLabel = placed<BrimLabel>();
  state.nowLabel->setText(state.statusbar ? localized(state, "NOW"_ns, "now"_ns) : emptyStatusText());
  state.nowLabel->setTextColor(state.colorSet->containerTextColor());
  state.nowLabel->setFont(UIFont::systemFontOfSize(points(state.statusbarFontSize)));
  self->addSubview(state.nowLabel);
  state.nowLabel->trailingAnchor()->equalTo(self->trailingAnchor(), -nowTrailing)->activated();
  state.nowLabel->topAnchor()->equalTo(self->topAnchor(), points(state.barTop))->activated();
}

void layOutIcon(BrimContainer* self, BrimContainerState& state) {
  state.appCornerRadius = clampedIconRadius(state);
  state.iconView = placed<UIImageView>();
  state.iconView->setImage(state.image);
  state.iconView->setClipsToBounds(true);
  state.iconView->setContentMode(UIViewContentMode::ScaleAspectFill);
  roundCorners(state.iconView, points(state.appCornerRadius));
  self->addSubview(state.iconView);
  state.iconView->leadingAnchor()->equalTo(self->leadingAnchor(), iconLeading)->activated();
  state.iconView->topAnchor()
      ->equalTo(state.clockLabel->topAnchor(), points(state.appIconTop) + iconBelowClock)
      ->activated();
  const CGFloat side = state.tinyBanner ? tinyIconSize : points(state.appSize);
  setSize(state.iconView, side, side);
  if (!state.tinyBanner && state.enableGlyphs) layOutBadge(self, state);
}

void layOutTexts(BrimContainer* self, BrimContainerState& state) {
  layOutHeader(self, state);
  if (!state.tinyBanner && state.subHeader != nullptr) layOutSubHeader(self, state);
  layOutBody(self, state);
}
