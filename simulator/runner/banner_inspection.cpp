#include "simulator/runner/banner_inspection.hpp"

#include <array>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/ui_image.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/recent_values.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "simulator/uikit/views/view.hpp"

namespace runner {

namespace {

using Controller = NCNotificationShortLookViewController;

// The library's banner class. The runner finds it by name, because it does not link to the library.
class BrimContainer : public objc::Interface<"BrimContainer", UIView> {};

struct DismissalFlags {
  bool hasDismissed = false;
  bool autoDimissTriggered = false;
  bool isDismissing = false;
  bool wasExternallyDismissed = false;
  bool dismissCalled = false;
};

struct BannerState {
  std::string identifier;
  bool hasBrim = false;
  bool hasIdentifier = false;
  DismissalFlags flags;
  bool isExpanded = false;
  double height = 0;
  double offset = 0;
};

// The part of a banner's state that a script can read after the controller was deallocated. It is small, because a
// script can present a large number of banners.
struct LastState {
  std::array<char, 8> identifier{};  // the library's identifiers have this length; zero bytes if there is no identifier
  DismissalFlags flags;
};

// The maximum number of stored states. Without a limit, memory would grow steadily on a live phone that runs for weeks.
constexpr std::size_t maxLastStates = 100'000;

RecentValues<LastState>& lastStates() {
  static RecentValues<LastState>& states = *new RecentValues<LastState>(maxLastStates);
  return states;
}

void storeLastState(std::size_t number, const BannerState& state) {
  LastState last;
  state.identifier.copy(last.identifier.data(), last.identifier.size());
  last.flags = state.flags;
  lastStates().store(number, last);
}

BannerState lastState(std::size_t number) {
  const LastState last = lastStates().find(number).value_or(LastState{});
  BannerState state;
  state.hasIdentifier = last.identifier.front() != '\0';
  if (state.hasIdentifier) state.identifier.assign(last.identifier.data(), last.identifier.size());
  state.flags = last.flags;
  return state;
}

// Returns the value of a property. Returns zero if the object does not have the property, for example because the
// library is not loaded.
template <class Value, objc::FixedString name>
Value valueOf(const NSObject* object) {
  return respondsTo<name>(object) ? objc::send<Value, name>(object) : Value{};
}

UIView* brimView(const Controller* controller) { return valueOf<UIView*, "brimView">(controller); }

BannerState read(const Controller* controller) {
  const UIView* brim = brimView(controller);
  NSString* identifier = valueOf<NSString*, "brimIdentifier">(controller);
  return {
      .identifier = base::textOf(identifier),
      .hasBrim = brim != nullptr,
      .hasIdentifier = identifier != nullptr,
      .flags = {valueOf<bool, "hasDismissed">(controller), valueOf<bool, "autoDimissTriggered">(controller),
                valueOf<bool, "isDismissing">(controller), valueOf<bool, "wasExternallyDismissed">(controller),
                valueOf<bool, "dismissCalled">(controller)},
      .isExpanded = valueOf<bool, "isFullyExpanded">(brim),
      .height = valueOf<CGFloat, "height">(brim),
      .offset = valueOf<CGFloat, "offset">(brim),
  };
}

// Returns whether a new banner can replace the visible one. Returns true if the library is not loaded.
bool dismissNotification() {
  Class container = BrimContainer::classObject();
  return container == nullptr || objc::send<bool, "DismissNotification">(container);
}

// Returns the name of the image, or its size if it has no name.
Json nameOf(const UIImage* image) {
  const auto pixels = uikit::imageOf(image);
  if (pixels == nullptr) return nullptr;
  if (!pixels->name().empty()) return pixels->name();
  return std::to_string(pixels->pixelWidth()) + "x" + std::to_string(pixels->pixelHeight());
}

using UpdateImage = objc::Original<void(UIView*, UIImage*)>;

void updateImage(UpdateImage original, UIView* self, UIImage* image) {
  auto* controller = objc::as<Controller>(uikit::nearestViewController(self));
  // The controller is null if the picture arrives after its banner was removed.
  const Json number = controller == nullptr ? Json() : Json(springboard::numberOfBanner(controller));
  base::recordEvent("photo", {{"controller", number}, {"image", nameOf(image)}});
  original(self, image);
}

void observePhotos() {
  Class container = BrimContainer::classObject();
  if (container == nullptr) return;
  using Hook = objc::detail::HookOf<&updateImage>;
  MSHookMessageEx(container, objc::selector<"updateImage:">(), Hook::implementation(), &Hook::replaced);
}

}  // namespace

void observeBanners() {
  observePhotos();
  springboard::observeBannerReleases(
      [](std::size_t number) { storeLastState(number, read(springboard::bannerController(number))); });
}

Json stateOfBanner(std::size_t number) {
  const objc::Ref<Controller> controller = springboard::bannerController(number);
  const BannerState state = controller == nullptr ? lastState(number) : read(controller);
  const auto whileShown = [&state](double value) { return state.hasBrim ? Json(value) : Json(nullptr); };
  return {
      {"brim", state.hasBrim},
      {"identifier", state.hasIdentifier ? Json(state.identifier) : Json(nullptr)},
      {"hasDismissed", state.flags.hasDismissed},
      {"autoDimissTriggered", state.flags.autoDimissTriggered},
      {"isDismissing", state.flags.isDismissing},
      {"wasExternallyDismissed", state.flags.wasExternallyDismissed},
      {"dismissCalled", state.flags.dismissCalled},
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

}  // namespace runner
