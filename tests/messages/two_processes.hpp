// A home screen in the test's own process and a Messages app in a second one, on one root with a real store.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "simulator/messages/chat_store.hpp"
#include "tests/library/phone.hpp"

namespace test {

inline constexpr const char* replyName = "com.lumetra.brim.receivedcontacts";
inline constexpr const char* readName = "com.lumetra.brim.markAsRead";
inline constexpr const char* annasAddress = "+491701234567";
inline constexpr const char* annasChat = "iMessage;-;+491701234567";

// Waits as long as a busy machine may take. Answers whether it came true.
bool eventually(const std::function<bool()>& condition);

bool isRunning(pid_t process);

// Whether the Messages app of the root runs and hears requests.
bool hearsRequests(const std::filesystem::path& root);

class TwoProcesses {
 public:
  // With a chat with Anna, who has written.
  explicit TwoProcesses(Setup setup = {});

  // A message arrives in a chat that is there or new. No banner.
  void receive(const std::string& guid, const std::string& text);

  // A banner of a message in the chat with that address; it is pulled open, answered and sent off. Its controller.
  int presentOpen(const std::string& thread = annasAddress);
  int reply(const std::string& text, const std::string& thread = annasAddress);

  // Launches the Messages app as the library does; answers whether it hears requests.
  static bool launch();
  // The process of the app; 0 while none holds the root.
  pid_t app() const;
  // Ends it as a crash does, and waits until it is gone.
  void killApp() const;

  // Posts what the home screen posts, with any user info; none where it is null.
  static void post(const char* name, const Json& userInfo);
  static void postReply(const Json& userInfo) { post(replyName, userInfo); }

  // Whether so many events of that name have come since the phone began.
  static bool waitFor(const char* event, std::size_t count);
  // A reply of which the app must have sent everything that was posted before. Answers whether it arrived.
  bool fence();

  // The texts that were sent in the chat, in order, as the store has them now.
  std::vector<std::string> sent(const std::string& guid = annasChat) const;
  std::vector<messages::Message> messagesOf(const std::string& guid) const;
  std::filesystem::path storePath() const;

  Phone phone;

 private:
  std::size_t fences = 0;
};

// The events of that name.
std::vector<Json> eventsNamed(const Json& events, const std::string& name);

}  // namespace test
