#include "simulator/host/banner_state.hpp"

#include <map>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/ui_image.hpp"
#include "simulator/host/command.hpp"
#include "simulator/host/event_log.hpp"
#include "simulator/springboard/banner_presenter.hpp"
#include "simulator/springboard/json_objects.hpp"
#include "simulator/springboard/notification_view.hpp"
#include "simulator/uikit/image.hpp"
#include "simulator/uikit/view.hpp"

namespace host {

namespace {

using Controller = NCNotificationShortLookViewController;

// The library's banner, as far as a script looks at it.
class BrimContainer : public objc::Interface<"BrimContainer", UIView> {};

struct BannerState {
  std::string identifier;
  bool hasBrim = false;
  bool hasIdentifier = false;
  bool hasDismissed = false;
  bool autoDimissTriggered = false;
  bool isDismissing = false;
  bool wasExternallyDismissed = false;
  bool dismissCalled = false;
  bool isExpanded = false;
  double height = 0;
  double offset = 0;
};

std::map<std::size_t, BannerState>& lastStates() {
  static std::map<std::size_t, BannerState>& states = *new std::map<std::size_t, BannerState>;
  return states;
}

// Zero where the object does not answer, as without the library.
template <class Value, objc::FixedString name>
Value ask(const NSObject* object) {
  return answers<name>(object) ? objc::send<Value, name>(object) : Value{};
}

UIView* brimView(const Controller* controller) { return ask<UIView*, "brimView">(controller); }

BannerState read(const Controller* controller) {
  const UIView* brim = brimView(controller);
  NSString* identifier = ask<NSString*, "brimIdentifier">(controller);
  return {
      .identifier = springboard::textOf(identifier),
      .hasBrim = brim != nullptr,
      .hasIdentifier = identifier != nullptr,
      .hasDismissed = ask<bool, "hasDismissed">(controller),
      .autoDimissTriggered = ask<bool, "autoDimissTriggered">(controller),
      .isDismissing = ask<bool, "isDismissing">(controller),
      .wasExternallyDismissed = ask<bool, "wasExternallyDismissed">(controller),
      .dismissCalled = ask<bool, "dismissCalled">(controller),
      .isExpanded = ask<bool, "isFullyExpanded">(brim),
      .height = ask<CGFloat, "height">(brim),
      .offset = ask<CGFloat, "offset">(brim),
  };
}

// Without the library no banner has to stay.
bool dismissNotification() {
  Class container = BrimContainer::classObject();
  return container == nullptr || objc::send<bool, "DismissNotification">(container);
}

// Where the picture came from, else its size.
Json nameOf(const UIImage* image) {
  const auto pixels = uikit::imageOf(image);
  if (pixels == nullptr) return nullptr;
  if (!pixels->name().empty()) return pixels->name();
  return std::to_string(pixels->pixelWidth()) + "x" + std::to_string(pixels->pixelHeight());
}

using UpdateImage = objc::Original<void(UIView*, UIImage*)>;

void updateImage(UpdateImage original, UIView* self, UIImage* image) {
  auto* controller = objc::as<Controller>(uikit::nearestViewController(self));
  // A picture may come when its banner has gone.
  const Json number = controller == nullptr ? Json() : Json(springboard::numberOfBanner(controller));
  recordEvent("photo", {{"controller", number}, {"image", nameOf(image)}});
  original(self, image);
}

void observePictures() {
  Class container = BrimContainer::classObject();
  if (container == nullptr) return;
  using Hook = objc::detail::HookOf<&updateImage>;
  MSHookMessageEx(container, objc::selector<"updateImage:">(), Hook::implementation(), &Hook::replaced);
}

}  // namespace

void observeBanners() {
  observePictures();
  springboard::observeBannerEnds(
      [](std::size_t number) { lastStates()[number] = read(springboard::bannerController(number)); });
}

Json stateOfBanner(std::size_t number) {
  const objc::Ref<Controller> controller = springboard::bannerController(number);
  const BannerState state = controller == nullptr ? lastStates()[number] : read(controller);
  const auto whileShown = [&state](double value) { return state.hasBrim ? Json(value) : Json(nullptr); };
  return {
      {"brim", state.hasBrim},
      {"identifier", state.hasIdentifier ? Json(state.identifier) : Json(nullptr)},
      {"hasDismissed", state.hasDismissed},
      {"autoDimissTriggered", state.autoDimissTriggered},
      {"isDismissing", state.isDismissing},
      {"wasExternallyDismissed", state.wasExternallyDismissed},
      {"dismissCalled", state.dismissCalled},
      {"dismissNotification", dismissNotification()},
      {"dismissed", !springboard::isBannerOnScreen(number)},
      {"height", whileShown(state.height)},
      {"offset", whileShown(state.offset)},
      {"expanded", state.isExpanded},
  };
}

UIView* visibleBanner(const Controller* controller) {
  if (UIView* brim = brimView(controller)) return brim;
  NCNotificationShortLookView* content = springboard::contentViewOf(controller->view());
  return content->superview() == nullptr ? nullptr : content;
}

}  // namespace host
