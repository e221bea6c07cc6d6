// Tests of how the Messages app answers home screens that ask whether it is ready.
#include "simulator/messages/home_screen_service.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <string>

#include "tests/messages/home_screen_and_messages.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

class MessagesService : public testing::Test {
 protected:
  // Sends the request and returns the answer. Returns an empty text if the service closes the connection instead.
  std::string answerTo(const std::string& request) {
    const std::size_t previousCount = requestCount;
    const foundation::FileDescriptor homeScreen = foundation::connectIn(folder.path(), messages::serviceSocket);
    EXPECT_TRUE(foundation::sendAll(homeScreen, request));
    EXPECT_TRUE(test::eventually([&] { return requestCount > previousCount; }));
    char answer[64];
    const ssize_t size = recv(homeScreen.get(), answer, sizeof answer, MSG_DONTWAIT);
    return size > 0 ? std::string(answer, static_cast<std::size_t>(size)) : "";
  }

  test::Phone phone;
  test::TemporaryFolder folder;
  std::size_t requestCount = 0;
  bool canBecomeReady = true;
  messages::HomeScreenService service{folder.path(), [this] {
                                        ++requestCount;
                                        return canBecomeReady;
                                      }};
};

TEST_F(MessagesService, AnswersReadyWhenTheAppIsReady) { EXPECT_EQ(answerTo("\n"), "ready\n"); }

TEST_F(MessagesService, ClosesTheConnectionIfTheAppCannotBecomeReady) {
  canBecomeReady = false;
  EXPECT_EQ(answerTo("\n"), "");
  EXPECT_FALSE(service.isConnected());
  canBecomeReady = true;
  EXPECT_EQ(answerTo("\n"), "ready\n");
}

}  // namespace
