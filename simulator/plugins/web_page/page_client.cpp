#include "simulator/plugins/web_page/page_client.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/plugins/phone_display/phone_drawing.hpp"
#include "simulator/plugins/web_page/composer_data.hpp"
#include "simulator/plugins/web_page/element_tree.hpp"
#include "simulator/plugins/web_page/frame_encoder.hpp"
#include "simulator/runner/accessible_actions.hpp"
#include "simulator/runner/typing.hpp"
#include "simulator/uikit/accessibility/screen_elements.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace web_page {

namespace {

using phone_display::FocusMove;
using phone_display::Json;
using phone_display::WindowLayout;

constexpr int maxUnacknowledged = 2;
constexpr int maxScheduledCommands = 100;
// In pixels per point. A picture of a higher density would not look better.
constexpr double maxScale = 4;
constexpr int minPageSide = 64;
// In seconds. The elements are described once for all changes in this time.
constexpr double descriptionInterval = 0.1;

struct MoveRow {
  PageKey key;
  FocusMove move;
};
constexpr MoveRow moves[] = {
    {PageKey::Next, FocusMove::Next}, {PageKey::Previous, FocusMove::Previous}, {PageKey::Up, FocusMove::Up},
    {PageKey::Down, FocusMove::Down}, {PageKey::Left, FocusMove::Left},         {PageKey::Right, FocusMove::Right},
};

const base::DeviceProfile& device() { return uikit::environment().device; }

// Returns the layout of a picture that contains the phone and its shadow, but not the rest of the page.
WindowLayout pictureLayout(int pageWidth, int pageHeight) {
  const drawing::Size size = phone_display::windowSize(device());
  const auto limited = [](int side, double points) {
    return std::clamp(side, minPageSide, static_cast<int>(std::ceil(points * maxScale)));
  };
  const double scale =
      phone_display::layOut(device(), limited(pageWidth, size.width), limited(pageHeight, size.height)).scale;
  return phone_display::layOut(device(), static_cast<int>(std::ceil(size.width * scale)),
                               static_cast<int>(std::ceil(size.height * scale)));
}

// Handles the input on the main queue, because input can run the run loop, which a GLib callback must not do.
void type(std::string text) {
  foundation::onMainThread([text = std::move(text)] { static_cast<void>(runner::typeText(text)); });
}

void press(runner::Key key) {
  foundation::onMainThread([key] { static_cast<void>(runner::pressKey(key)); });
}

}  // namespace

PageClient::PageClient(SoupWebsocketConnection* connection, phone_display::FingerInput& finger,
                       std::function<void()> whenChanged)
    : connection_(static_cast<SoupWebsocketConnection*>(g_object_ref(connection))),
      finger_(finger),
      whenChanged_(std::move(whenChanged)) {
  const auto received = +[](SoupWebsocketConnection*, int type, GBytes* content, PageClient* self) {
    self->receive(static_cast<SoupWebsocketDataType>(type), content);
  };
  const auto closed = +[](SoupWebsocketConnection*, PageClient* self) {
    self->finger_.cancel(self);
    self->whenChanged_();
  };
  // The library ends a connection without a close code if it receives a larger frame.
  soup_websocket_connection_set_max_incoming_payload_size(connection, maxStoredBytes);
  g_signal_connect(connection, "message", G_CALLBACK(received), this);
  g_signal_connect(connection, "closed", G_CALLBACK(closed), this);
  proceed();
}

PageClient::~PageClient() {
  *exists_ = false;
  finger_.cancel(this);
  g_signal_handlers_disconnect_by_data(connection_.get(), this);
}

bool PageClient::isClosed() const {
  return soup_websocket_connection_get_state(connection_.get()) == SOUP_WEBSOCKET_STATE_CLOSED;
}

void PageClient::end() {
  if (soup_websocket_connection_get_state(connection_.get()) == SOUP_WEBSOCKET_STATE_OPEN)
    soup_websocket_connection_close(connection_.get(), SOUP_WEBSOCKET_CLOSE_GOING_AWAY, "the phone has ended");
}

void PageClient::refuse(const char* reason, SoupWebsocketCloseCode code) {
  isRefused_ = true;
  finger_.cancel(this);
  if (soup_websocket_connection_get_state(connection_.get()) == SOUP_WEBSOCKET_STATE_OPEN)
    soup_websocket_connection_close(connection_.get(), static_cast<gushort>(code), reason);
}

void PageClient::receive(SoupWebsocketDataType type, GBytes* content) {
  if (isRefused_) return;
  gsize size = 0;
  const auto* const text = static_cast<const char*>(g_bytes_get_data(content, &size));
  if (size > maxMessageBytes) return refuse("the message is too large", SOUP_WEBSOCKET_CLOSE_TOO_BIG);
  if (type != SOUP_WEBSOCKET_DATA_TEXT) return refuse("the message is not a text message");
  const std::optional<PageMessage> message = parseMessage(std::string_view(text, size));
  if (!message) return refuse("the message is not valid");
  std::visit([this](const auto& each) { handle(each); }, *message);
}

void PageClient::handle(const ShowMessage& message) {
  const WindowLayout layout = pictureLayout(message.width, message.height);
  if (layout.width == layout_.width && layout.height == layout_.height) return;
  layout_ = layout;
  isWholeFrameDue_ = true;
  isFrameDue_ = true;
  isRingDue_ = isRingDue_ || ringFrame_.has_value();
  if (isDescribing_) describe(uikit::accessibleElements());
  proceed();
}

void PageClient::handle(const AcknowledgeMessage&) {
  if (unacknowledged_ == 0) return refuse("no message is unacknowledged");
  --unacknowledged_;
  proceed();
}

void PageClient::handle(const TouchMessage& message) {
  if (layout_.width == 0) return;
  const CGPoint point = phone_display::screenPoint(layout_, message.x * layout_.width, message.y * layout_.height);
  switch (message.phase) {
    case UITouchPhase::Began:
      ring_.clear();
      updateRing({});
      proceed();
      return finger_.begin(this, point);
    case UITouchPhase::Cancelled:
      return finger_.cancel(this);
    default:
      return finger_.proceed(this, message.phase, point);
  }
}

void PageClient::handle(const TypeMessage& message) { type(message.text); }

void PageClient::handle(const KeyMessage& message) {
  const MoveRow* const row = std::ranges::find(moves, message.key, &MoveRow::key);
  if (row != std::end(moves)) return navigate(row->move);
  if (message.key == PageKey::VolumeUp) return phone_display::pressBodyButton(phone_display::BodyButton::VolumeUp);
  if (message.key == PageKey::VolumeDown) return phone_display::pressBodyButton(phone_display::BodyButton::VolumeDown);
  if (message.key == PageKey::Escape) return foundation::onMainThread(&runner::goBack);
  if (message.key == PageKey::Backspace) return press(runner::Key::Backspace);
  if (activate()) return;
  if (message.key == PageKey::Return) return press(runner::Key::Return);
  type(" ");
}

void PageClient::handle(const DescribeMessage&) {
  isDescribing_ = true;
  if (layout_.width > 0) describe(uikit::accessibleElements());
  proceed();
}

void PageClient::handle(const ActMessage& message) {
  foundation::onMainThread([message] { static_cast<void>(runner::performAction(message.element, message.action)); });
}

void PageClient::handle(const FocusMessage& message) {
  const phone_display::Elements elements = uikit::accessibleElements();
  ring_.focus(message.element);
  ring_.follow(elements);
  updateRing(elements);
  if (isDescribing_) describe(elements);
  proceed();
}

void PageClient::handle(const PlayMessage& message) {
  const std::vector<phone_display::Preset>& presets = composerPresets();
  if (message.preset >= presets.size()) return refuse("there is no such preset");
  for (const phone_display::PresetStep& step : presets[message.preset].steps) schedule(step.seconds, step.command);
}

void PageClient::handle(const SendMessage& message) {
  const std::vector<phone_display::Preset>& presets = composerPresets();
  if (message.preset >= presets.size()) return refuse("there is no such preset");
  phone_display::ComposerFields fields = message.fields;
  fields.base = presets[message.preset].steps.front().command;
  schedule(0, phone_display::commandOf(fields));
}

void PageClient::schedule(double seconds, const Json& command) {
  if (scheduledCommands_ == maxScheduledCommands) return showError("too many notifications at a time; try again later");
  ++scheduledCommands_;
  foundation::onMainThreadAfter(seconds, [this, exists = exists_, command] {
    const objc::AutoreleasePool pool;
    const Json answer = runner::executeCommand(command);
    if (!*exists) return;
    --scheduledCommands_;
    showError(answer.value("error", ""));
  });
}

void PageClient::showError(const std::string& error) {
  if (error == error_) return;
  error_ = error;
  isErrorDue_ = true;
  whenChanged_();
}

void PageClient::navigate(FocusMove move) {
  const phone_display::Elements elements = uikit::accessibleElements();
  ring_.move(elements, move);
  updateRing(elements);
  if (isDescribing_) describe(elements);
  proceed();
}

bool PageClient::activate() {
  if (ring_.element() == 0) return false;
  const phone_display::Elements elements = uikit::accessibleElements();
  const uikit::AccessibleElement* const element = ring_.find(elements);
  // The text field that is being edited receives the key.
  if (element == nullptr || element->isFirstResponder) return false;
  foundation::onMainThread(
      [identifier = element->identifier] { static_cast<void>(runner::performAction(identifier, 0)); });
  return true;
}

void PageClient::updateRing(const phone_display::Elements& elements) {
  const uikit::AccessibleElement* const element = ring_.find(elements);
  const std::optional<CGRect> frame = element == nullptr ? std::nullopt : std::optional(element->frame);
  if (frame == ringFrame_) return;
  ringFrame_ = frame;
  isRingDue_ = true;
}

void PageClient::present() {
  isFrameDue_ = true;
  if (ring_.element() != 0) {
    const phone_display::Elements elements = uikit::accessibleElements();
    ring_.follow(elements);
    updateRing(elements);
  }
  if (isDescribing_) scheduleDescription();
  proceed();
}

void PageClient::scheduleDescription() {
  if (std::exchange(isDescriptionScheduled_, true)) return;
  foundation::onMainThreadAfter(descriptionInterval, [this, exists = exists_] {
    if (!*exists) return;
    const objc::AutoreleasePool pool;
    isDescriptionScheduled_ = false;
    describe(uikit::accessibleElements());
    if (areElementsDue_) whenChanged_();
  });
}

void PageClient::describe(const phone_display::Elements& elements) {
  if (layout_.width == 0) return;
  Json described = elementsJson(layout_, elements, ring_.element());
  if (described == elements_) return;
  elements_ = std::move(described);
  areElementsDue_ = true;
}

void PageClient::proceed() {
  while (unacknowledged_ < maxUnacknowledged && !isRefused_ &&
         soup_websocket_connection_get_state(connection_.get()) == SOUP_WEBSOCKET_STATE_OPEN) {
    if (!sendNext()) return;
    ++unacknowledged_;
  }
}

bool PageClient::sendNext() {
  if (std::exchange(isDeviceDue_, false)) {
    sendText({{"device", phone_display::productName(device().name)}});
  } else if (layout_.width > 0 && std::exchange(isRingDue_, false)) {
    sendText(ringMessage());
  } else if (std::exchange(areElementsDue_, false)) {
    sendText({{"elements", elements_}});
  } else if (std::exchange(isErrorDue_, false)) {
    sendText({{"error", error_}});
  } else {
    return layout_.width > 0 && std::exchange(isFrameDue_, false) && sendFrame();
  }
  return true;
}

void PageClient::sendText(const Json& message) {
  const std::string text = message.dump(-1, ' ', false, Json::error_handler_t::replace);
  soup_websocket_connection_send_text(connection_.get(), text.c_str());
}

Json PageClient::ringMessage() const {
  if (!ringFrame_) return {{"ring", nullptr}};
  return {{"ring", frameJson(layout_, *ringFrame_)}};
}

bool PageClient::sendFrame() {
  const bool isWhole = std::exchange(isWholeFrameDue_, false);
  drawing::RegionHandle changed = picture_.update(layout_.scale);
  if (isWhole) {
    changed = drawing::regionOf({0, 0, layout_.width, layout_.height});
  } else {
    if (cairo_region_is_empty(changed.get()) != 0) return false;
    cairo_region_translate(changed.get(), layout_.screen.x, layout_.screen.y);
  }
  const auto draw = [&](cairo_t* context) {
    if (isWhole) phone_display::drawBody(context, device(), layout_);
    phone_display::drawScreen(context, device(), layout_, picture_.canvas()->surface());
  };
  const std::vector<std::byte> frame = encodeFrame(layout_.width, layout_.height, changed.get(), draw);
  soup_websocket_connection_send_binary(connection_.get(), frame.data(), frame.size());
  return true;
}

}  // namespace web_page
