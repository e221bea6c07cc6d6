#include "simulator/springboard/platter/platter_header.hpp"

#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/springboard/platter/time_text.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/uikit/views/view.hpp"

namespace springboard {

namespace {

using Header = PLPlatterHeaderContentView;

constexpr CGFloat padding = 12;
constexpr CGFloat iconSide = 20;
constexpr CGFloat iconTop = (platterHeaderHeight - iconSide) / 2;
constexpr CGFloat iconCornerRadius = 4.5;
constexpr CGFloat fontSize = 13;

objc::Ref<UIImageView> addIcon(Header* header, UIImage* image) {
  auto icon = UIView::withFrame<UIImageView>({});
  icon->setImage(image);
  icon->layer()->setCornerRadius(iconCornerRadius);
  icon->layer()->setContinuousCorners(true);
  icon->setClipsToBounds(true);
  icon->setContentMode(UIViewContentMode::ScaleAspectFill);
  header->addSubview(icon);
  return icon;
}

objc::Ref<UILabel> addLabel(Header* header, NSString* text) {
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(UIFont::systemFontOfSize(fontSize));
  label->setText(text);
  header->addSubview(label);
  return label;
}

void recolor(Header* self) {
  const PlatterHeaderState& parts = objc::state(self);
  for (UILabel* label : {parts.name.get(), parts.date.get()}) label->setTextColor(secondaryTextColor(self));
}

void layoutSubviews(Header* self) {
  objc::sendSuper<"PLPlatterHeaderContentView", void, "layoutSubviews">(self);
  const PlatterHeaderState& parts = objc::state(self);
  if (parts.icon == nullptr) return;
  const CGSize date = objc::send<CGSize, "sizeThatFits:">(parts.date.get(), CGSize{100, 100});
  const CGFloat nameLeft = padding + iconSide + 7;
  const CGFloat dateLeft = self->bounds().size.width - padding - parts.trailingSpace - date.width;
  parts.icon->setFrame(uikit::mirroredIfNeeded(self, {{padding, iconTop}, {iconSide, iconSide}}));
  parts.name->setFrame(uikit::mirroredIfNeeded(self, {{nameLeft, iconTop}, {dateLeft - nameLeft - 8, iconSide}}));
  parts.date->setFrame(uikit::mirroredIfNeeded(self, {{dateLeft, iconTop}, {date.width, iconSide}}));
}

void traitCollectionDidChange(Header* self, UITraitCollection* previous) {
  objc::sendSuper<"PLPlatterHeaderContentView", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

NSString* upperCased(const std::string& text) { return objc::send<NSString*, "uppercaseString">(base::stringOf(text)); }

}  // namespace

objc::Ref<Header> makePlatterHeader(const NCNotificationRequest* request, CGFloat trailingSpace) {
  const NotificationContentState& content = objc::state(objc::state(request).content.get());
  auto header = UIView::withFrame<Header>({});
  header->setUserInteractionEnabled(false);
  PlatterHeaderState& parts = objc::state(header.get());
  parts.icon = addIcon(header, objc::as<UIImage>(content.icons->firstObject()));
  parts.name = addLabel(header, upperCased(nameOf(base::textOf(request->sectionIdentifier()))));
  parts.date = addLabel(header, timeSince(content.date));
  parts.trailingSpace = trailingSpace;
  recolor(header);
  return header;
}

void refreshDate(Header* header, const NCNotificationRequest* request) {
  const NotificationContentState& content = objc::state(objc::state(request).content.get());
  objc::state(header).date->setText(timeSince(content.date));
  uikit::setNeedsLayout(header);
}

void definePlatterHeader() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<Header>(methods);
}

}  // namespace springboard
