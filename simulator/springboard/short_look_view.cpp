#include <algorithm>
#include <array>

#include "objc/property_entry.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/json_objects.hpp"
#include "simulator/springboard/notification_view.hpp"
#include "simulator/springboard/time_text.hpp"
#include "simulator/uikit/trait_collection.hpp"
#include "simulator/uikit/view.hpp"

namespace springboard {

namespace {

using ContentView = NCNotificationShortLookView;

constexpr CGFloat padding = 12;
constexpr CGFloat iconSide = 20;
constexpr CGFloat iconTop = 10;
constexpr CGFloat textTop = iconTop + iconSide + 9;
constexpr CGFloat bottomPadding = 14;
constexpr CGFloat footnoteGap = 4;
constexpr CGFloat platterCornerRadius = 13;
constexpr CGFloat iconCornerRadius = 4.5;
constexpr NSInteger bodyLines = 4;
constexpr CGFloat unlimitedHeight = 10000;

ShortLookViewState& partsOf(const ContentView* view) { return objc::state(view); }

UIColor* gray(CGFloat white, CGFloat alpha) { return UIColor::withRed(white, white, white, alpha); }

objc::Ref<UILabel> addLabel(ContentView* view, UIFont* font, NSInteger lines) {
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(font);
  label->setNumberOfLines(lines);
  view->addSubview(label);
  return label;
}

objc::Ref<UIImageView> addIcon(ContentView* view) {
  auto icon = UIView::withFrame<UIImageView>({});
  icon->layer()->setCornerRadius(iconCornerRadius);
  icon->layer()->setContinuousCorners(true);
  icon->setClipsToBounds(true);
  icon->setContentMode(UIViewContentMode::ScaleAspectFill);
  view->addSubview(icon);
  return icon;
}

objc::Ref<UIVisualEffectView> addPlatter(ContentView* view) {
  auto platter = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Regular));
  platter->layer()->setCornerRadius(platterCornerRadius);
  platter->layer()->setContinuousCorners(true);
  platter->setClipsToBounds(true);
  platter->setUserInteractionEnabled(false);
  view->addSubview(platter);
  return platter;
}

void addParts(ContentView* view) {
  ShortLookViewState& parts = partsOf(view);
  parts.platter = addPlatter(view);
  parts.iconView = addIcon(view);
  parts.nameLabel = addLabel(view, UIFont::systemFontOfSize(13), 1);
  parts.dateLabel = addLabel(view, UIFont::systemFontOfSize(13), 1);
  parts.titleLabel = addLabel(view, UIFont::boldSystemFontOfSize(15), 1);
  parts.subtitleLabel = addLabel(view, UIFont::boldSystemFontOfSize(15), 1);
  parts.bodyLabel = addLabel(view, UIFont::systemFontOfSize(15), bodyLines);
  parts.footnoteLabel = addLabel(view, UIFont::systemFontOfSize(13), 1);
}

NSString* upperCased(const std::string& text) { return objc::send<NSString*, "uppercaseString">(stringOf(text)); }

void fillIn(ContentView* view, NCNotificationRequest* request) {
  ShortLookViewState& parts = partsOf(view);
  const NotificationContentState& content = objc::state(objc::state(request).content.get());
  parts.primaryText = content.title;
  parts.primarySubtitleText = content.subtitle;
  parts.secondaryText = content.message;
  parts.summaryText = content.summary;
  parts.icons = content.icons;

  const bool hasBody = content.message->length() != 0;
  parts.iconView->setImage(objc::as<UIImage>(content.icons->firstObject()));
  parts.nameLabel->setText(upperCased(nameOf(textOf(request->sectionIdentifier()))));
  parts.dateLabel->setText(timeSince(content.date));
  parts.titleLabel->setText(content.title);
  parts.subtitleLabel->setText(content.subtitle);
  parts.bodyLabel->setText(hasBody ? content.message : content.summary);
}

std::array<UILabel*, 4> textsOf(const ContentView* view) {
  const ShortLookViewState& parts = partsOf(view);
  return {parts.titleLabel, parts.subtitleLabel, parts.bodyLabel, parts.footnoteLabel};
}

bool saysNothing(const UILabel* label) { return label->text()->length() == 0; }

// The texts stand below one another; one that says nothing takes no room.
std::array<CGRect, 4> textFrames(const ContentView* view, CGFloat width) {
  const CGFloat textWidth = width - 2 * padding;
  std::array<CGRect, 4> frames;
  CGFloat top = textTop;
  std::ranges::transform(textsOf(view), frames.begin(), [&](const UILabel* label) {
    const CGSize size = objc::send<CGSize, "sizeThatFits:">(label, CGSize{textWidth, unlimitedHeight});
    if (label == partsOf(view).footnoteLabel.get() && !saysNothing(label)) top += footnoteGap;
    const CGRect frame = {{padding, top}, {textWidth, saysNothing(label) ? 0 : size.height}};
    top += frame.size.height;
    return frame;
  });
  return frames;
}

void layoutTexts(ContentView* view) {
  const std::array<CGRect, 4> frames = textFrames(view, view->bounds().size.width);
  const std::array<UILabel*, 4> labels = textsOf(view);
  for (std::size_t index = 0; index < labels.size(); ++index) labels[index]->setFrame(frames[index]);
}

CGRect mirroredIfNeeded(const ContentView* view, CGRect frame) {
  if (uikit::effectiveDirection(view) == uikit::LayoutDirection::RightToLeft)
    frame.origin.x = view->bounds().size.width - frame.origin.x - frame.size.width;
  return frame;
}

void layoutHeaderRow(ContentView* view) {
  const ShortLookViewState& parts = partsOf(view);
  const CGFloat width = view->bounds().size.width;
  const CGSize date = objc::send<CGSize, "sizeThatFits:">(parts.dateLabel.get(), CGSize{100, 100});
  const CGFloat nameLeft = padding + iconSide + 7;
  const CGFloat dateLeft = width - padding - date.width;
  parts.iconView->setFrame(mirroredIfNeeded(view, {{padding, iconTop}, {iconSide, iconSide}}));
  parts.nameLabel->setFrame(mirroredIfNeeded(view, {{nameLeft, iconTop}, {dateLeft - nameLeft - 8, iconSide}}));
  parts.dateLabel->setFrame(mirroredIfNeeded(view, {{dateLeft, iconTop}, {date.width, iconSide}}));
}

void layoutSubviews(ContentView* self) {
  objc::sendSuper<"NCNotificationShortLookView", void, "layoutSubviews">(self);
  if (partsOf(self).platter == nullptr) return;
  partsOf(self).platter->setFrame(self->bounds());
  layoutHeaderRow(self);
  layoutTexts(self);
}

}  // namespace

objc::Ref<ContentView> makeShortLookView(NCNotificationRequest* request) {
  auto view = UIView::withFrame<ContentView>({});
  addParts(view);
  fillIn(view, request);
  recolorShortLookView(view);
  return view;
}

void setFootnote(ContentView* view, NSString* text) { partsOf(view).footnoteLabel->setText(text); }

void recolorShortLookView(ContentView* view) {
  const ShortLookViewState& parts = partsOf(view);
  const bool dark = uikit::styleOf(view) == UIUserInterfaceStyle::Dark;
  const CGFloat white = dark ? 1 : 0;
  for (UILabel* label : textsOf(view)) label->setTextColor(gray(white, 1));
  for (UILabel* label : {parts.nameLabel.get(), parts.dateLabel.get(), parts.footnoteLabel.get()})
    label->setTextColor(gray(white, 0.6));
}

CGFloat heightOfShortLookView(const ContentView* view, CGFloat width) {
  const CGRect last = textFrames(view, width).back();
  return last.origin.y + last.size.height + bottomPadding;
}

void defineShortLookView() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"layoutSubviews", &layoutSubviews>()};
  static constexpr objc::PropertyEntry properties[] = {
      objc::readOnly<"primaryText", ContentView, &ShortLookViewState::primaryText>(),
      objc::readOnly<"primarySubtitleText", ContentView, &ShortLookViewState::primarySubtitleText>(),
      objc::readOnly<"secondaryText", ContentView, &ShortLookViewState::secondaryText>(),
      objc::readOnly<"summaryText", ContentView, &ShortLookViewState::summaryText>(),
      objc::readOnly<"icons", ContentView, &ShortLookViewState::icons>(),
  };
  objc::defineClassWithState<ContentView>(methods);
  objc::addProperties(ContentView::classObject(), properties);
}

}  // namespace springboard
