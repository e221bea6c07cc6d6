// Runs the Messages app in the test process. Some tests also run a home screen in a second process.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "objc/hook.hpp"
#include "platform/messages_app.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ui_device.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/messages/app_process.hpp"
#include "simulator/runner/library_inspection.hpp"
#include "tests/messages/home_screen_and_messages.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using test::annasAddress;
using test::annasChat;
using test::Json;

class RequestListener : public objc::Interface<"BrimTestRequestListener", NSObject> {};

std::map<std::string, Json>& receivedUserInfos() {
  static std::map<std::string, Json> userInfos;
  return userInfos;
}

void receive(RequestListener*, NSNotification* notification) {
  receivedUserInfos()[base::textOf(notification->name())] = base::jsonOf(notification->userInfo());
}

NSString* lastHandledIdentifier(const CKConversationListController* list) {
  return objc::send<NSString*, "brimIdentifier">(list);
}

class MessagesAlone : public testing::Test {
 protected:
  MessagesAlone() {
    messages::ChatStore(root).addTo(annasChat, "Anna", {messages::Direction::Received, "Lunch?", 0, 0, false});
    messages::MessagesOptions options;
    options.root = root;
    options.systemVersion = "12.4";
    app.emplace(options);
  }

  void observeRequests() {
    static constexpr objc::MethodEntry methods[] = {objc::method<"receive:", &receive>()};
    objc::defineClass<RequestListener>(methods);
    listener = objc::make<RequestListener>();
    for (NSString* name : {"com.lumetra.brim.receivedcontacts"_ns, "com.lumetra.brim.markAsRead"_ns})
      NSDistributedNotificationCenter::defaultCenter()->addObserver(listener, objc::selector<"receive:">(), name);
  }

  std::vector<std::string> sentTexts() const {
    std::vector<std::string> texts;
    const messages::ChatStore store(root);
    for (const messages::Message& message : store.messagesOf(store.chats().front()))
      if (message.direction == messages::Direction::Sent) texts.push_back(message.text);
    return texts;
  }

  test::TemporaryFolder folder;
  const fs::path root = folder.path() / "root";
  std::optional<messages::MessagesApp> app;
  objc::AutoreleasePool pool;
  objc::Ref<RequestListener> listener;
};

TEST_F(MessagesAlone, InstallsOnlyTheHooksOfTheMessagesApp) {
  const auto methods = runner::installedMethods();
  ASSERT_FALSE(methods.empty());
  for (const BrimInstalledMethod& method : methods) {
    const bool belongsToMessages = std::string(method.className) == "CKConversationListController";
    EXPECT_EQ(method.effective, belongsToMessages) << method.className << " " << method.selector;
  }
}

TEST_F(MessagesAlone, ReportsTheConfiguredSystemVersion) {
  EXPECT_EQ(base::textOf(UIDevice::currentDevice()->systemVersion()), "12.4");
}

TEST_F(MessagesAlone, ReceivesEveryFieldOfRepliesAndReceipts) {
  observeRequests();
  test::ChildProcess homeScreen({SPRINGBOARD, "--root", root, "--script", "-"});
  homeScreen.write(R"({"do":"set","key":"messagesAutoReadMode","value":1}
{"do":"await","for":"idle"}
{"do":"present","section":"com.apple.MobileSMS","title":"Anna","message":"Lunch?","thread":"+491701234567"}
{"do":"wait","seconds":1}
{"do":"drag","by":[0,200]}
{"do":"wait","seconds":0.5}
{"do":"type","text":"At one!"}
{"do":"key","name":"return"}
)");
  ASSERT_TRUE(test::eventually([] { return receivedUserInfos().size() == 2; }));
  const Json reply = receivedUserInfos().at(test::replyNotification);
  const Json receipt = receivedUserInfos().at(test::readNotification);
  const std::string identifier = reply.value("brimIdentifier", "");
  EXPECT_EQ(reply, Json({{"body", "At one!"}, {"brimIdentifier", identifier}, {"identifier", annasAddress}}));
  EXPECT_EQ(receipt, Json({{"brimIdentifier", identifier}, {"identifier", annasAddress}}));
  EXPECT_EQ(identifier.size(), 8U);
  EXPECT_TRUE(std::ranges::all_of(identifier, [](char letter) { return letter >= 'a' && letter <= 'z'; }));
}

TEST_F(MessagesAlone, ListStoresTheIdentifierOfTheLastHandledRequest) {
  const auto list = objc::make<CKConversationListController>();
  list->view();
  EXPECT_EQ(lastHandledIdentifier(list), nullptr);
  test::HomeScreenAndMessages::postReply({{"identifier", "nobody"}, {"body", "x"}, {"brimIdentifier", "abcdefgh"}});
  ASSERT_TRUE(test::eventually([&] { return lastHandledIdentifier(list) != nullptr; }));
  EXPECT_EQ(base::textOf(lastHandledIdentifier(list)), "abcdefgh");
}

// The names of the notifications for which an observer was removed.
std::vector<std::string>& removedNames() {
  static std::vector<std::string> names;
  return names;
}

void recordRemoval(objc::Original<void(NSDistributedNotificationCenter*, NSObject*, NSString*, NSObject*)> original,
                   NSDistributedNotificationCenter* self, NSObject* observer, NSString* name, NSObject* object) {
  removedNames().push_back(base::textOf(name));
  original(self, observer, name, object);
}

TEST_F(MessagesAlone, DeallocatedListIsRemovedAsObserverOfReadRequests) {
  using Hook = objc::detail::HookOf<&recordRemoval>;
  MSHookMessageEx(NSDistributedNotificationCenter::classObject(), objc::selector<"removeObserver:name:object:">(),
                  Hook::implementation(), &Hook::replaced);
  {
    const auto deallocated = objc::make<CKConversationListController>();
    deallocated->view();
  }
  EXPECT_EQ(removedNames(), std::vector<std::string>{test::readNotification});
}

TEST_F(MessagesAlone, DeallocatedListReceivesNoRequests) {
  observeRequests();
  {
    const auto deallocated = objc::make<CKConversationListController>();
    deallocated->view();
  }
  test::HomeScreenAndMessages::postReply(
      {{"identifier", annasAddress}, {"body", "once"}, {"brimIdentifier", "abcdefgh"}});
  ASSERT_TRUE(test::eventually([] { return !receivedUserInfos().empty(); }));
  EXPECT_TRUE(test::eventually([this] { return !sentTexts().empty(); }));
  EXPECT_EQ(sentTexts(), std::vector<std::string>{"once"});
}

}  // namespace
