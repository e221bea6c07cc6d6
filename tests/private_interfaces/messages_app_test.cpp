// Tests of a Messages app, in the test process, that lacks one private interface. The app receives a reply and marks
// its conversation as read. The library must not send a message to which the receiver does not respond, and must not
// send an empty reply.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <optional>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "objc/hook_installation.hpp"
#include "platform/messages_app.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/messages/app_process.hpp"
#include "simulator/messages/chat_store.hpp"
#include "tests/private_interfaces/withheld.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

using test::PrivateInterface;
using testing::IsEmpty;

constexpr const char* replyNotification = "com.lumetra.brim.receivedcontacts";
constexpr const char* markerNotification = "com.lumetra.brim.tests.marker";

int receivedMarkers;
int emptyReplies;

class MarkerListener : public objc::Interface<"BrimTestMarkerListener", NSObject> {};

void receiveMarker(MarkerListener*, NSNotification*) { ++receivedMarkers; }

void countEmptyReplies(objc::Original<void(IMChatRegistry*, IMChat*, IMMessage*)> original, IMChatRegistry* self,
                       IMChat* chat, IMMessage* message) {
  if (message == nullptr) ++emptyReplies;
  original(self, chat, message);
}

class MessagesApp {
 public:
  MessagesApp() {
    messages::ChatStore(root_).addTo("iMessage;-;anna", "Anna", {messages::Direction::Received, "Lunch?", 0, 0, false});
    messages::MessagesOptions options;
    options.root = root_;
    app_.emplace(options);
    objc::install(objc::hook<"_chat:sendMessage:", &countEmptyReplies>("IMChatRegistry").methods[0], &MSHookMessageEx);
    static constexpr objc::MethodEntry methods[] = {objc::method<"receiveMarker:", &receiveMarker>()};
    objc::defineClass<MarkerListener>(methods);
    listener_ = objc::make<MarkerListener>();
    center()->addObserver(listener_, objc::selector<"receiveMarker:">(), base::stringOf(markerNotification));
  }

  // Posts the reply and waits until the app has handled it. The app receives notifications in the order in which they
  // were posted.
  void receiveReply(const std::string& text) {
    const nlohmann::ordered_json reply = {{"identifier", "anna"}, {"body", text}, {"brimIdentifier", "abcdefgh"}};
    center()->post(base::stringOf(replyNotification), static_cast<NSDictionary*>(base::objectOf(reply)));
    center()->post(base::stringOf(markerNotification), nullptr);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(90);
    while (receivedMarkers == 0 && std::chrono::steady_clock::now() < deadline)
      foundation::pumpRunLoopAndMainQueue(0.005);
    EXPECT_EQ(receivedMarkers, 1);
  }

  std::vector<std::string> sentTexts() const {
    std::vector<std::string> texts;
    for (const messages::Message& message : storedMessages())
      if (message.direction == messages::Direction::Sent) texts.push_back(message.text);
    return texts;
  }

  bool isRead() const { return storedMessages().front().isRead; }

 private:
  static NSNotificationCenter* center() { return NSDistributedNotificationCenter::defaultCenter(); }
  std::vector<messages::Message> storedMessages() const {
    const messages::ChatStore store(root_);
    return store.messagesOf(store.chats().front());
  }

  test::TemporaryFolder folder_;
  const std::filesystem::path root_ = folder_.path() / "root";
  std::optional<messages::MessagesApp> app_;
  objc::AutoreleasePool pool_;
  objc::Ref<MarkerListener> listener_;
};

TEST(CompleteMessagesApp, SendsTheReplyAndTheReadReceipt) {
  MessagesApp app;
  app.receiveReply("At one!");
  EXPECT_EQ(app.sentTexts(), std::vector<std::string>{"At one!"});
  EXPECT_TRUE(app.isRead());
}

class MissingMessagesInterface : public testing::TestWithParam<PrivateInterface> {};

TEST_P(MissingMessagesInterface, HasItsFallback) {
  const std::string effect = GetParam().effect;
  test::withhold(GetParam());
  MessagesApp app;
  app.receiveReply("At one!");
  EXPECT_EQ(app.sentTexts().size(), effect == "Read receipts are not sent." ? 1U : 0U);
  EXPECT_EQ(app.isRead(), effect == "Replies are not sent.");
  EXPECT_EQ(emptyReplies, 0);
  EXPECT_THAT(test::unrecognizedSelectors(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, MissingMessagesInterface, testing::ValuesIn(test::interfacesIn(test::App::Messages)),
                         &test::testName);

}  // namespace
