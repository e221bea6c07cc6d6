#include "simulator/springboard/banner/notification_view.hpp"

#include "objc/property_entry.hpp"
#include "platform/ui_device.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/platter/touch_pass_through.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/views/view_geometry.hpp"

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

uikit::AccessibleRole accessibleRole(UIView*) { return uikit::AccessibleRole::Notification; }

NSString* accessibilityLabel(UIView* self) {
  const auto* controller = objc::as<NCNotificationViewController>(uikit::nearestViewController(self));
  if (controller == nullptr) return nullptr;
  return base::stringOf(accessibleNameOf(controller->notificationRequest(), self));
}

// Returns the frame of the frontmost subview, because the view itself is much higher than the banner.
CGRect accessibilityFrame(UIView* self) {
  const NSArray* subviews = self->subviews();
  if (subviews->count() == 0) return {};
  return uikit::frameOnScreen(static_cast<UIView*>(subviews->objectAtIndex(subviews->count() - 1)));
}

// The distances of the drags, in points, are sufficient for both the platform's and the library's banners.
void addAccessibleActions(UIView*, void* actions) {
  auto& added = uikit::accessibleActionsAt(actions);
  added.push_back({"activate"});
  added.push_back({"expand", {0, 120}});
  added.push_back({"dismiss", {0, -100}});
}

template <class View>
void define() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"pointInside:withEvent:", &isInsideSubview>(),
      objc::method<"_accessibleRole", &accessibleRole>(),
      objc::method<"accessibilityLabel", &accessibilityLabel>(),
      objc::method<"accessibilityFrame", &accessibilityFrame>(),
      objc::method<"_addAccessibleActions:", &addAccessibleActions>(),
  };
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

std::string accessibleNameOf(const NCNotificationRequest* request, const UIView* view) {
  const NotificationContentState& content = objc::state(objc::state(request).content.get());
  const auto isShown = [](const std::string& text, NSString* part) {
    return part->length() != 0 && text.find(base::textOf(part)) != std::string::npos;
  };
  std::vector<std::string> texts = uikit::textsIn(view);
  // Omits the other labels, which show the time and the name of the application.
  std::erase_if(texts, [&](const std::string& text) {
    return !isShown(text, content.title) && !isShown(text, content.subtitle) && !isShown(text, content.message) &&
           !isShown(text, content.summary);
  });
  texts.insert(texts.begin(), nameOf(base::textOf(request->sectionIdentifier())));
  return uikit::joined(texts);
}

void defineNotificationView() {
  if (systemIsBefore12()) {
    define<NotificationViewBefore12>();
  } else {
    define<NCNotificationViewControllerView>();
  }
}

}  // namespace springboard
