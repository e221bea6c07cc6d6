#include "simulator/springboard/banner/notification_view.hpp"

#include "objc/property_entry.hpp"
#include "platform/ui_device.hpp"
#include "simulator/springboard/platter/touch_pass_through.hpp"

namespace springboard {

// The class of the notification view in systems before version 12.0.
class NotificationViewBefore12 : public objc::Interface<"_NCNotificationViewControllerView", UIView> {};

}  // namespace springboard

struct NotificationViewState {
  objc::Ref<NCNotificationShortLookView> contentView;
};
template <>
struct objc::StateOf<NCNotificationViewControllerView> {
  using Type = NotificationViewState;
};
template <>
struct objc::StateOf<springboard::NotificationViewBefore12> {
  using Type = NotificationViewState;
};

namespace springboard {

namespace {

template <class View>
void define() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"pointInside:withEvent:", &isInsideSubview>()};
  static constexpr objc::PropertyEntry properties[] = {
      objc::stored<"contentView", View, &NotificationViewState::contentView>()};
  objc::defineClassWithState<View>(methods);
  objc::addProperties(View::classObject(), properties);
}

bool systemIsBefore12() { return systemVersionIsBelow("12.0"_ns); }

}  // namespace

objc::Ref<UIView> makeNotificationView(NCNotificationShortLookView* content) {
  Class viewClass =
      systemIsBefore12() ? NotificationViewBefore12::classObject() : NCNotificationViewControllerView::classObject();
  auto view = objc::adopt(objc::send<UIView*, "initWithFrame:">(objc::send<id, "alloc">(viewClass), CGRect{}));
  objc::send<void, "setContentView:">(view.get(), content);
  view->addSubview(content);
  return view;
}

NCNotificationShortLookView* contentViewOf(const UIView* notificationView) {
  return objc::send<NCNotificationShortLookView*, "contentView">(notificationView);
}

void defineNotificationView() {
  if (systemIsBefore12()) {
    define<NotificationViewBefore12>();
  } else {
    define<NCNotificationViewControllerView>();
  }
}

}  // namespace springboard
