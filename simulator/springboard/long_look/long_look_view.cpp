#include "simulator/springboard/long_look/long_look_view.hpp"

#include <algorithm>

#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/long_look/long_look_close_button.hpp"
#include "simulator/springboard/platter/label_stack.hpp"
#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/views/view.hpp"

namespace springboard {

namespace {

using View = NCNotificationLongLookView;

constexpr CGFloat padding = 12;
constexpr CGFloat textTop = platterHeaderHeight + 12;
constexpr CGFloat bottomPadding = 14;
constexpr CGFloat fontSize = 16;
constexpr CGFloat closeButtonSpace = 34;
constexpr NSInteger maxTitleLines = 3;

std::array<UILabel*, 3> textsOf(const View* view) {
  const auto& texts = objc::state(view).texts;
  return {texts[0], texts[1], texts[2]};
}

objc::Ref<UILabel> addLabel(View* view, UIFont* font, NSInteger lines, NSString* text) {
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(font);
  label->setNumberOfLines(lines);
  label->setText(text);
  view->addSubview(label);
  return label;
}

void addHeader(View* view, const NCNotificationRequest* request) {
  LongLookViewState& parts = objc::state(view);
  parts.headerStrip = UIView::withFrame<UIView>({});
  parts.header = makePlatterHeader(request, closeButtonSpace);
  parts.closeButton = makeCloseButton();
  view->addSubview(parts.headerStrip);
  view->addSubview(parts.header);
  view->addSubview(parts.closeButton);
}

void addTexts(View* view, const NotificationContentState& content) {
  const bool hasBody = content.message->length() != 0;
  objc::state(view).texts = {
      addLabel(view, UIFont::boldSystemFontOfSize(fontSize), maxTitleLines, content.title),
      addLabel(view, UIFont::boldSystemFontOfSize(fontSize), maxTitleLines, content.subtitle),
      addLabel(view, UIFont::systemFontOfSize(fontSize), 0, hasBody ? content.message : content.summary)};
}

void recolor(View* self) {
  self->setBackgroundColor(cardColor(self));
  objc::state(self).headerStrip->setBackgroundColor(cardHeaderColor(self));
  for (UILabel* label : textsOf(self)) label->setTextColor(textColor(self));
}

std::vector<CGRect> textFrames(const View* view, CGFloat width) {
  return stackedFrames(textsOf(view), {padding, textTop}, width - 2 * padding);
}

CGFloat lowerEdge(const CGRect& frame) { return frame.origin.y + frame.size.height; }

void layoutSubviews(View* self) {
  objc::sendSuper<"NCNotificationLongLookView", void, "layoutSubviews">(self);
  const LongLookViewState& parts = objc::state(self);
  if (parts.closeButton == nullptr) return;
  const CGFloat width = self->bounds().size.width;
  const CGRect strip = {{}, {width, platterHeaderHeight}};
  parts.headerStrip->setFrame(strip);
  parts.header->setFrame(strip);
  parts.closeButton->setFrame(
      uikit::mirroredIfNeeded(self, {{width - platterHeaderHeight, 0}, {platterHeaderHeight, platterHeaderHeight}}));
  std::vector<CGRect> frames = textFrames(self, width);
  for (std::size_t index = 0; index < frames.size(); ++index) {
    frames[index].origin.y -= parts.scroller->offset();
    textsOf(self)[index]->setFrame(frames[index]);
  }
}

CGFloat maxOffset(const View* view) {
  const CGSize size = view->bounds().size;
  return std::max<CGFloat>(lowerEdge(textFrames(view, size.width).back()) + bottomPadding - size.height, 0);
}

// The functions refer to the view, which outlives the scroller because it owns the scroller.
ScrolledContent scrolledContentOf(View* view) {
  return {.viewport = [view] { return view->bounds().size.height; },
          .maxOffset = [view](CGFloat) { return maxOffset(view); },
          .show =
              [view](CGFloat) {
                uikit::setNeedsLayout(view);
                view->layoutIfNeeded();
              }};
}

// Shows the complete body, whose lower part is clipped by the card, and brings the header in front of the texts.
void beginScrolling(View* self) {
  LongLookViewState& parts = objc::state(self);
  parts.hasScrolled = true;
  parts.texts.back()->setNumberOfLines(0);
  for (UIView* view :
       {parts.headerStrip.get(), static_cast<UIView*>(parts.header), static_cast<UIView*>(parts.closeButton)})
    self->bringSubviewToFront(view);
}

void handlePan(View* self, UIPanGestureRecognizer* recognizer) {
  const LongLookViewState& parts = objc::state(self);
  switch (recognizer->state()) {
    case UIGestureRecognizerState::Began:
      beginScrolling(self);
      parts.scroller->beginDrag();
      [[fallthrough]];
    case UIGestureRecognizerState::Changed:
      return parts.scroller->drag(recognizer->translationInView(self).y);
    default:
      return parts.scroller->endDrag(objc::send<CGPoint, "velocityInView:">(recognizer, static_cast<UIView*>(self)).y);
  }
}

void addScrolling(View* view) {
  LongLookViewState& parts = objc::state(view);
  parts.scroller = std::make_unique<Scroller>(scrolledContentOf(view));
  parts.pan = UIPanGestureRecognizer::withTarget(view, objc::selector<"_handlePanOnCard:">());
  view->addGestureRecognizer(parts.pan);
}

void traitCollectionDidChange(View* self, UITraitCollection* previous) {
  objc::sendSuper<"NCNotificationLongLookView", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

uikit::AccessibleRole accessibleRole(View*) { return uikit::AccessibleRole::Group; }
NSString* accessibilityLabel(View* self) { return base::stringOf(uikit::joined(uikit::textsIn(self))); }
void addAccessibleActions(View*, void* actions) { uikit::accessibleActionsAt(actions).push_back({"activate"}); }

}  // namespace

objc::Ref<View> makeLongLookView(const NCNotificationRequest* request) {
  auto view = UIView::withFrame<View>({});
  applyCardShape(view);
  addHeader(view, request);
  addTexts(view, objc::state(objc::state(request).content.get()));
  addScrolling(view);
  recolor(view);
  return view;
}

CGFloat fitLongLookView(const View* view, CGFloat width, CGFloat maxHeight) {
  UILabel* body = textsOf(view).back();
  body->setNumberOfLines(0);
  const CGRect fullBody = textFrames(view, width).back();
  const CGFloat fullHeight = lowerEdge(fullBody) + bottomPadding;
  objc::send<void, "setEnabled:">(objc::state(view).pan.get(), fullHeight > maxHeight);
  if (fullHeight <= maxHeight) return fullHeight;
  const CGFloat bodyHeight = maxHeight - bottomPadding - fullBody.origin.y;
  const auto lines = static_cast<NSInteger>(bodyHeight / objc::send<CGFloat, "lineHeight">(body->font()));
  body->setNumberOfLines(std::max<NSInteger>(lines, 1));
  const CGFloat height = lowerEdge(textFrames(view, width).back()) + bottomPadding;
  if (objc::state(view).hasScrolled) body->setNumberOfLines(0);
  return height;
}

void defineLongLookView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"_handlePanOnCard:", &handlePan>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
      objc::method<"_accessibleRole", &accessibleRole>(),
      objc::method<"accessibilityLabel", &accessibilityLabel>(),
      objc::method<"_addAccessibleActions:", &addAccessibleActions>(),
  };
  objc::defineClassWithState<View>(methods);
}

}  // namespace springboard
