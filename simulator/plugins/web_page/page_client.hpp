// One open page: sends the phone's picture to a browser and delivers the input from it. Main thread.
#pragma once

#include <libsoup/soup.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "simulator/plugins/phone_display/finger_input.hpp"
#include "simulator/plugins/phone_display/focus_ring.hpp"
#include "simulator/plugins/web_page/object_handle.hpp"
#include "simulator/plugins/web_page/page_messages.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace web_page {

// The server sends frames as binary messages, and JSON objects with one of these members as text messages:
//   device   the name of the phone
//   ring     the frame [x,y,width,height] of the element with the keyboard focus, in multiples of the size of the
//            picture; null if there is none
//   elements the accessible elements, as elementsJson() describes them, if the page has requested them
//   error    the error of the last notification from the composer; empty if there was none
// The page acknowledges each message after it has shown it. At most two messages can be unacknowledged. The client does
// not queue further messages: the next frame contains all changes since the last one, and each text message is sent
// with its latest value.
class PageClient {
 public:
  // Uses a new connection, which an invalid message closes. Calls `whenChanged` when the connection has closed, and
  // when a message that present() must send is due outside of the callbacks of the connection. `whenChanged` must not
  // destroy the client. The finger must outlive this object.
  PageClient(SoupWebsocketConnection* connection, phone_display::FingerInput& finger,
             std::function<void()> whenChanged);
  PageClient(const PageClient&) = delete;
  PageClient& operator=(const PageClient&) = delete;
  ~PageClient();

  // Sends the changes of the screen, or sends them later if a message must first be acknowledged.
  void present();
  bool isClosed() const;
  // Closes the connection because the phone ends.
  void end();

 private:
  void receive(SoupWebsocketDataType type, GBytes* content);
  void handle(const ShowMessage& message);
  void handle(const AcknowledgeMessage& message);
  void handle(const TouchMessage& message);
  void handle(const TypeMessage& message);
  void handle(const KeyMessage& message);
  void handle(const DescribeMessage& message);
  void handle(const ActMessage& message);
  void handle(const FocusMessage& message);
  void handle(const PlayMessage& message);
  void handle(const SendMessage& message);
  // Closes the connection because of an invalid message.
  void refuse(const char* reason, SoupWebsocketCloseCode code = SOUP_WEBSOCKET_CLOSE_POLICY_VIOLATION);

  // Sends the messages that are due, until the page must acknowledge a message.
  void proceed();
  // Sends the next message that is due. Returns false if no message is due.
  bool sendNext();
  bool sendFrame();
  void sendText(const phone_display::Json& message);

  void navigate(phone_display::FocusMove move);
  // Activates the focused element. Returns false if there is none or if it receives the key itself.
  bool activate();
  void updateRing(const phone_display::Elements& elements);
  phone_display::Json ringMessage() const;
  // Describes the elements later, together with other changes.
  void scheduleDescription();
  void describe(const phone_display::Elements& elements);
  // Executes the command on the main queue after this number of seconds.
  void schedule(double seconds, const phone_display::Json& command);
  void showError(const std::string& error);

  ObjectHandle<SoupWebsocketConnection> connection_;
  phone_display::FingerInput& finger_;
  std::function<void()> whenChanged_;
  phone_display::WindowLayout layout_;  // the layout of the picture; its width is 0 before the first ShowMessage
  uikit::ScreenPicture picture_;
  phone_display::FocusRing ring_;
  std::optional<CGRect> ringFrame_;  // in points of the screen
  phone_display::Json elements_ = nullptr;
  std::string error_;
  int unacknowledged_ = 0;
  int scheduledCommands_ = 0;
  bool isRefused_ = false;
  bool isDeviceDue_ = true;
  bool isRingDue_ = false;
  bool isDescribing_ = false;
  bool isDescriptionScheduled_ = false;
  bool areElementsDue_ = false;
  bool isErrorDue_ = false;
  bool isFrameDue_ = false;
  bool isWholeFrameDue_ = false;
  // Scheduled commands can outlive the client.
  std::shared_ptr<bool> exists_ = std::make_shared<bool>(true);
};

}  // namespace web_page
