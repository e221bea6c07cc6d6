#include "simulator/springboard/banner/notification_view.hpp"

#include "objc/property_entry.hpp"
#include "platform/ui_device.hpp"
#include "simulator/springboard/platter/touch_pass_through.hpp"

namespace springboard {

// The class as it is called below system version 12.0.
class EarlierNotificationView : public objc::Interface<"_NCNotificationViewControllerView", UIView> {};

}  // namespace springboard

struct NotificationViewState {
  objc::Ref<NCNotificationShortLookView> contentView;
};
template <>
struct objc::StateOf<NCNotificationViewControllerView> {
  using Type = NotificationViewState;
};
template <>
struct objc::StateOf<springboard::EarlierNotificationView> {
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

bool hasEarlierName() { return systemVersionIsBelow("12.0"_ns); }

}  // namespace

objc::Ref<UIView> makeNotificationView(NCNotificationShortLookView* content) {
  Class viewClass =
      hasEarlierName() ? EarlierNotificationView::classObject() : NCNotificationViewControllerView::classObject();
  auto view = objc::adopt(objc::send<UIView*, "initWithFrame:">(objc::send<id, "alloc">(viewClass), CGRect{}));
  objc::send<void, "setContentView:">(view.get(), content);
  view->addSubview(content);
  return view;
}

NCNotificationShortLookView* contentViewOf(const UIView* notificationView) {
  return objc::send<NCNotificationShortLookView*, "contentView">(notificationView);
}

void defineNotificationView() {
  if (hasEarlierName()) {
    define<EarlierNotificationView>();
  } else {
    define<NCNotificationViewControllerView>();
  }
}

}  // namespace springboard
