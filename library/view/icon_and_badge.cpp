#include "library/view/icon_and_badge.hpp"

#include "library/view/construction.hpp"
#include "library/view/glyphs.hpp"

namespace {

constexpr CGFloat iconLeading = 15;
constexpr CGFloat iconBelowClock = 15;
constexpr CGFloat tinyIconSize = 20;
constexpr NSInteger tinyCornerRadius = 10;
constexpr NSInteger glyphBadgeGrowth = 16;
constexpr CGFloat iconBadgeOverhang = 7;
// The distance between the picture and the texts while the badge is shown.
constexpr CGFloat textLeadingBesideBadge = 24;

// Clamps the corner radius to half of the picture's size. The picture of a tiny banner is always 20 points wide and
// high.
NSInteger clampedIconRadius(const BrimContainerState& state) {
  constexpr NSInteger minClampedTinyRadius = 11;
  if (state.tinyBanner && state.appCornerRadius >= minClampedTinyRadius) return tinyCornerRadius;
  const NSInteger half = (state.appSize - state.appSize % 2) / 2;
  return state.appCornerRadius < half ? state.appCornerRadius : half;
}

// Returns the offset of the picture from its default position, clamped to a range. Outside this range, the texts would
// be outside the banner, or the banner outside the screen.
CGFloat iconOffset(const BrimContainerState& state) {
  constexpr NSInteger minOffset = -30;
  constexpr NSInteger maxOffset = 200;
  if (state.appIconTop < minOffset) return points(minOffset);
  return points(state.appIconTop < maxOffset ? state.appIconTop : maxOffset);
}

// Places the glyph so that it extends from the picture's center to the upper right.
void placeGlyphBadge(const BrimContainerState& state, UIImageView* badge) {
  const CGFloat side = points(state.appSize / 2 + glyphBadgeGrowth);
  badge->leadingAnchor()->equalTo(state.iconView->centerXAnchor())->activated();
  badge->bottomAnchor()->equalTo(state.iconView->centerYAnchor())->activated();
  setSize(badge, side, side);
}

// Places the icon over the picture's upper right corner and makes the icon round.
void placeIconBadge(const BrimContainerState& state, UIImageView* badge) {
  const NSInteger side = state.appSize / 2;
  roundCorners(badge, points(side / 2));
  badge->trailingAnchor()->equalTo(state.iconView->trailingAnchor(), iconBadgeOverhang)->activated();
  badge->topAnchor()->equalTo(state.iconView->topAnchor(), -iconBadgeOverhang)->activated();
  setSize(badge, points(side), points(side));
}

void layOutBadge(BrimContainer* self, BrimContainerState& state) {
  state.badge = makeConstrained<UIImageView>();
  state.badge->setClipsToBounds(true);
  state.badge->setContentMode(UIViewContentMode::ScaleAspectFill);
  self->addSubview(state.badge);
  if (state.useIconsInsteadOfGlyphs) {
    placeIconBadge(state, state.badge);
  } else {
    placeGlyphBadge(state, state.badge);
  }
}

void moveTextsAwayFromBadge(const BrimContainerState& state) {
  state.headerLeading->setConstant(textLeadingBesideBadge);
  state.subHeaderLeading->setConstant(textLeadingBesideBadge);
  state.bodyLeading->setConstant(textLeadingBesideBadge);
}

}  // namespace

void layOutIcon(BrimContainer* self, BrimContainerState& state) {
  state.appCornerRadius = clampedIconRadius(state);
  state.iconView = makeConstrained<UIImageView>();
  state.iconView->setImage(state.image);
  state.iconView->setClipsToBounds(true);
  state.iconView->setContentMode(UIViewContentMode::ScaleAspectFill);
  roundCorners(state.iconView, points(state.appCornerRadius));
  self->addSubview(state.iconView);
  state.iconView->leadingAnchor()->equalTo(self->leadingAnchor(), iconLeading)->activated();
  state.iconView->topAnchor()->equalTo(state.clockLabel->topAnchor(), iconOffset(state) + iconBelowClock)->activated();
  const CGFloat side = state.tinyBanner ? tinyIconSize : points(state.appSize);
  setSize(state.iconView, side, side);
  if (!state.tinyBanner && state.enableGlyphs) layOutBadge(self, state);
}

void updateImage(BrimContainer* self, UIImage* photo) {
  const BrimContainerState& state = objc::state(self);
  state.iconView->setImage(photo);
  state.badge->setImage(state.useIconsInsteadOfGlyphs ? state.image.get() : glyph(state));
  moveTextsAwayFromBadge(state);
}

void recolorGlyph(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  if (state.badge->image() == nullptr || state.useIconsInsteadOfGlyphs) return;
  state.badge->setImage(glyph(state));
  moveTextsAwayFromBadge(state);
}
