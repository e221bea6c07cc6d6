#include "simulator/springboard/long_look/reply_bar.hpp"

#include "platform/ui_trait_collection.hpp"
#include "simulator/springboard/platter/platter_style.hpp"

namespace springboard {

namespace {

using Bar = NCNotificationReplyBar;

constexpr CGFloat fontSize = 17;
constexpr CGFloat padding = 16;

void recolor(Bar* self) {
  self->setBackgroundColor(cardColor(self));
  objc::state(self).field->setTextColor(textColor(self));
}

void traitCollectionDidChange(Bar* self, UITraitCollection* previous) {
  objc::sendSuper<"NCNotificationReplyBar", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

void layoutSubviews(Bar* self) {
  objc::sendSuper<"NCNotificationReplyBar", void, "layoutSubviews">(self);
  const CGSize size = self->bounds().size;
  if (UITextField* field = objc::state(self).field)
    field->setFrame({{padding, 0}, {size.width - 2 * padding, size.height}});
}

}  // namespace

objc::Ref<Bar> makeReplyBar(NCNotificationAction* action, NSObject* target) {
  auto bar = UIView::withFrame<Bar>({});
  applyCardShape(bar);
  objc::state(bar.get()).action = objc::retain(action);
  auto field = UIView::withFrame<UITextField>({});
  field->setFont(UIFont::systemFontOfSize(fontSize));
  field->setReturnKeyType(UIReturnKeyType::Send);
  objc::send<void, "setEnablesReturnKeyAutomatically:">(field.get(), true);
  field->addTarget(target, objc::selector<"_replyFieldReturned:">(), UIControlEvents::EditingDidEndOnExit);
  objc::state(bar.get()).field = field;
  bar->addSubview(field);
  recolor(bar);
  return bar;
}

void defineReplyBar() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<Bar>(methods);
}

}  // namespace springboard
