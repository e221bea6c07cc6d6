// Runs a home screen in the test process and a Messages app in a second process. Both use one root, with a real message
// store.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "simulator/messages/chat_store.hpp"
#include "tests/library/phone.hpp"

namespace test {

inline constexpr const char* replyNotification = "com.lumetra.brim.receivedcontacts";
inline constexpr const char* readNotification = "com.lumetra.brim.markAsRead";
inline constexpr const char* annasAddress = "+491701234567";
inline constexpr const char* annasChat = "iMessage;-;+491701234567";

// Runs the main run loop until the condition holds. Returns false on timeout, after 90 seconds, because the machine can
// be busy.
bool eventually(const std::function<bool()>& condition);

bool isRunning(pid_t process);

// Waits up to one second until a Messages app runs on the root and has registered for requests. Returns false on
// timeout.
bool isReadyForRequests(const std::filesystem::path& root);

class HomeScreenAndMessages {
 public:
  // Creates a store with one chat. The chat with Anna contains one received message.
  explicit HomeScreenAndMessages(Setup setup = {});

  // Stores a received message in the chat with the identifier `guid`. Creates the chat if it is missing. Presents no
  // banner.
  void receive(const std::string& guid, const std::string& text);

  // Presents a banner for a message from the address `thread` and drags it down to expand it. Returns its controller's
  // number.
  int presentExpanded(const std::string& thread = annasAddress);
  // Presents and expands a banner as presentExpanded() does, then types a reply and sends it. Returns the controller's
  // number.
  int reply(const std::string& text, const std::string& thread = annasAddress);

  // Launches the Messages app in the background as the library does. Returns whether the app is ready for requests.
  static bool launch();
  // The process ID of the app. 0 if no app runs on the root.
  pid_t appProcess() const;
  // Kills the app with SIGKILL and waits until the process has ended.
  void killApp() const;

  // Posts a distributed notification with this user info. For a null JSON value, the notification has no user info.
  static void post(const char* name, const Json& userInfo);
  static void postReply(const Json& userInfo) { post(replyNotification, userInfo); }

  // Waits until the phone has logged `count` events of this name since the phone started. Returns false on timeout.
  static bool waitForEvents(const char* event, std::size_t count);
  // Waits until the app has handled all requests posted so far: posts a marker reply and waits until it is stored.
  // Returns false on timeout.
  bool waitForPostedRequests();

  // The texts sent in the chat, in order, read from the store.
  std::vector<std::string> sent(const std::string& guid = annasChat) const;
  std::vector<messages::Message> messagesOf(const std::string& guid) const;
  std::filesystem::path storePath() const;

  Phone phone;

 private:
  std::size_t markers_ = 0;
};

std::vector<Json> eventsNamed(const Json& events, const std::string& name);

}  // namespace test
