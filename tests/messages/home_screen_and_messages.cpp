#include "tests/messages/home_screen_and_messages.hpp"

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ui_window.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/springboard/services/messages_connection.hpp"

namespace test {

namespace {

constexpr const char* markerChat = "iMessage;-;marker@example.org";

}  // namespace

bool eventually(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(90);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    foundation::pumpRunLoopAndMainQueue(0.005);
  }
  return true;
}

bool isRunning(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string number;
  std::string name;
  std::string state;
  return static_cast<bool>(status >> number >> name >> state) && state != "Z";
}

bool isReadyForRequests(const std::filesystem::path& root) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  return springboard::MessagesConnection(messages::messagesFolder(root)).isReady(deadline);
}

HomeScreenAndMessages::HomeScreenAndMessages(Setup setup) : phone(std::move(setup)) { receive(annasChat, "Lunch?"); }

void HomeScreenAndMessages::receive(const std::string& guid, const std::string& text) {
  messages::ChatStore(phone.root()).addTo(guid, "", {messages::Direction::Received, text, 0, 0, false});
}

int HomeScreenAndMessages::presentExpanded(const std::string& thread) {
  const int controller = phone.present({{"title", "Anna"}, {"message", "Lunch?"}, {"thread", thread}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 200}}});
  phone.wait(0.5);
  return controller;
}

int HomeScreenAndMessages::reply(const std::string& text, const std::string& thread) {
  const int controller = presentExpanded(thread);
  phone.run({{"do", "type"}, {"text", text}});
  phone.run({{"do", "key"}, {"name", "return"}});
  return controller;
}

bool HomeScreenAndMessages::launch() {
  return UIApplication::sharedApplication()->launchApplication("com.apple.MobileSMS"_ns, true);
}

pid_t HomeScreenAndMessages::appProcess() const {
  std::ifstream file(messages::messagesFolder(phone.root()) / "messages.lock");
  pid_t process = 0;
  file >> process;
  return process > 0 && isRunning(process) ? process : 0;
}

void HomeScreenAndMessages::killApp() const {
  const pid_t process = appProcess();
  ASSERT_GT(process, 0);
  kill(process, SIGKILL);
  EXPECT_TRUE(eventually([process] { return !isRunning(process); }));
}

void HomeScreenAndMessages::post(const char* name, const Json& userInfo) {
  const objc::AutoreleasePool pool;
  auto* dictionary = userInfo.is_null() ? nullptr : static_cast<NSDictionary*>(base::objectOf(userInfo));
  NSDistributedNotificationCenter::defaultCenter()->post(base::stringOf(name), dictionary);
}

bool HomeScreenAndMessages::waitForEvents(const char* event, std::size_t count) {
  return eventually([=] { return base::eventCount(event) >= count; });
}

bool HomeScreenAndMessages::waitForPostedRequests() {
  const std::string text = "marker " + std::to_string(++markers_);
  receive(markerChat, text);
  postReply({{"identifier", "marker@example.org"}, {"body", text}, {"brimIdentifier", text}});
  return eventually([&] {
    const std::vector<std::string> texts = sent(markerChat);
    return !texts.empty() && texts.back() == text;
  });
}

std::vector<std::string> HomeScreenAndMessages::sent(const std::string& guid) const {
  std::vector<std::string> texts;
  for (const messages::Message& message : messagesOf(guid))
    if (message.direction == messages::Direction::Sent) texts.push_back(message.text);
  return texts;
}

std::vector<messages::Message> HomeScreenAndMessages::messagesOf(const std::string& guid) const {
  const messages::ChatStore store(phone.root());
  for (const messages::Chat& chat : store.chats())
    if (chat.guid == guid) return store.messagesOf(chat);
  return {};
}

std::filesystem::path HomeScreenAndMessages::storePath() const {
  return messages::messagesFolder(phone.root()) / "messages.db";
}

std::vector<Json> eventsNamed(const Json& events, const std::string& name) {
  std::vector<Json> found;
  std::ranges::copy_if(events, std::back_inserter(found), [&](const Json& event) { return event.at("event") == name; });
  return found;
}

}  // namespace test
