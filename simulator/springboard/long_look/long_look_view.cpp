#include "simulator/springboard/long_look/long_look_view.hpp"

#include <algorithm>

#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/long_look/long_look_close_button.hpp"
#include "simulator/springboard/platter/label_stack.hpp"
#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/uikit/accessibility/accessibility.hpp"
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
  const std::vector<CGRect> frames = textFrames(self, width);
  for (std::size_t index = 0; index < frames.size(); ++index) textsOf(self)[index]->setFrame(frames[index]);
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
  recolor(view);
  return view;
}

CGFloat fitLongLookView(const View* view, CGFloat width, CGFloat maxHeight) {
  UILabel* body = textsOf(view).back();
  body->setNumberOfLines(0);
  const CGRect fullBody = textFrames(view, width).back();
  const CGFloat fullHeight = lowerEdge(fullBody) + bottomPadding;
  if (fullHeight <= maxHeight) return fullHeight;
  const CGFloat bodyHeight = maxHeight - bottomPadding - fullBody.origin.y;
  const auto lines = static_cast<NSInteger>(bodyHeight / objc::send<CGFloat, "lineHeight">(body->font()));
  body->setNumberOfLines(std::max<NSInteger>(lines, 1));
  return lowerEdge(textFrames(view, width).back()) + bottomPadding;
}

void defineLongLookView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
      objc::method<"_accessibleRole", &accessibleRole>(),
      objc::method<"accessibilityLabel", &accessibilityLabel>(),
      objc::method<"_addAccessibleActions:", &addAccessibleActions>(),
  };
  objc::defineClassWithState<View>(methods);
}

}  // namespace springboard
