#include <array>

#include "objc/property_entry.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/platter/label_stack.hpp"
#include "simulator/springboard/platter/platter_style.hpp"

namespace springboard {

namespace {

using ContentView = NCNotificationShortLookView;

constexpr CGFloat padding = 12;
constexpr CGFloat textTop = 39;
constexpr CGFloat bottomPadding = 14;
constexpr CGFloat footnoteGap = 4;
constexpr NSInteger maxBodyLines = 4;

ShortLookViewState& partsOf(const ContentView* view) { return objc::state(view); }

objc::Ref<UILabel> addLabel(ContentView* view, UIFont* font, NSInteger lines) {
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(font);
  label->setNumberOfLines(lines);
  view->addSubview(label);
  return label;
}

objc::Ref<UIVisualEffectView> addPlatter(ContentView* view) {
  auto platter = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Regular));
  applyCardShape(platter);
  platter->setUserInteractionEnabled(false);
  view->addSubview(platter);
  return platter;
}

void addParts(ContentView* view, const NCNotificationRequest* request) {
  ShortLookViewState& parts = partsOf(view);
  parts.platter = addPlatter(view);
  parts.header = makePlatterHeader(request, 0);
  view->addSubview(parts.header);
  parts.titleLabel = addLabel(view, UIFont::boldSystemFontOfSize(15), 1);
  parts.subtitleLabel = addLabel(view, UIFont::boldSystemFontOfSize(15), 1);
  parts.bodyLabel = addLabel(view, UIFont::systemFontOfSize(15), maxBodyLines);
  parts.footnoteLabel = addLabel(view, UIFont::systemFontOfSize(13), 1);
}

void setContent(ContentView* view, const NCNotificationRequest* request) {
  ShortLookViewState& parts = partsOf(view);
  const NotificationContentState& content = objc::state(objc::state(request).content.get());
  parts.primaryText = content.title;
  parts.primarySubtitleText = content.subtitle;
  parts.secondaryText = content.message;
  parts.summaryText = content.summary;
  parts.icons = content.icons;

  const bool hasBody = content.message->length() != 0;
  parts.titleLabel->setText(content.title);
  parts.subtitleLabel->setText(content.subtitle);
  parts.bodyLabel->setText(hasBody ? content.message : content.summary);
}

std::array<UILabel*, 4> textsOf(const ContentView* view) {
  const ShortLookViewState& parts = partsOf(view);
  return {parts.titleLabel, parts.subtitleLabel, parts.bodyLabel, parts.footnoteLabel};
}

std::vector<CGRect> textFrames(const ContentView* view, CGFloat width) {
  std::vector<CGRect> frames = stackedFrames(textsOf(view), {padding, textTop}, width - 2 * padding);
  if (!hasNoText(partsOf(view).footnoteLabel)) frames.back().origin.y += footnoteGap;
  return frames;
}

void layOutTexts(const ContentView* view) {
  const std::vector<CGRect> frames = textFrames(view, view->bounds().size.width);
  const std::array<UILabel*, 4> labels = textsOf(view);
  for (std::size_t index = 0; index < labels.size(); ++index) labels[index]->setFrame(frames[index]);
}

void layoutSubviews(ContentView* self) {
  objc::sendSuper<"NCNotificationShortLookView", void, "layoutSubviews">(self);
  if (partsOf(self).platter == nullptr) return;
  partsOf(self).platter->setFrame(self->bounds());
  partsOf(self).header->setFrame({{}, {self->bounds().size.width, platterHeaderHeight}});
  layOutTexts(self);
}

}  // namespace

objc::Ref<ContentView> makeShortLookView(NCNotificationRequest* request) {
  auto view = UIView::withFrame<ContentView>({});
  addParts(view, request);
  setContent(view, request);
  recolorShortLookView(view);
  return view;
}

void setFootnote(ContentView* view, NSString* text) { partsOf(view).footnoteLabel->setText(text); }

void recolorShortLookView(ContentView* view) {
  for (UILabel* label : textsOf(view)) label->setTextColor(textColor(view));
  partsOf(view).footnoteLabel->setTextColor(secondaryTextColor(view));
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
