// What the Messages app answers to the home screens that ask whether it is ready.
#include "simulator/messages/report_service.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <string>

#include "tests/messages/two_processes.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

class MessagesService : public testing::Test {
 protected:
  // What comes back for a question; nothing where the connection is closed.
  std::string answerTo(const std::string& question) {
    const std::size_t before = asked;
    const foundation::Descriptor home = foundation::connectIn(folder.path(), messages::serviceSocket);
    EXPECT_TRUE(foundation::sendAll(home, question));
    EXPECT_TRUE(test::eventually([&] { return asked > before; }));
    char answer[64];
    const ssize_t size = recv(home.get(), answer, sizeof answer, MSG_DONTWAIT);
    return size > 0 ? std::string(answer, static_cast<std::size_t>(size)) : "";
  }

  test::Phone phone;
  test::TemporaryFolder folder;
  std::size_t asked = 0;
  bool canBecomeReady = true;
  messages::Service service{folder.path(), [this] {
                              ++asked;
                              return canBecomeReady;
                            }};
};

TEST_F(MessagesService, SaysThatItIsReadyOnceItIs) { EXPECT_EQ(answerTo("\n"), "ready\n"); }

TEST_F(MessagesService, EndsTheConnectionWhereItCannotBecomeReady) {
  canBecomeReady = false;
  EXPECT_EQ(answerTo("\n"), "");
  EXPECT_FALSE(service.isConnected());
  canBecomeReady = true;
  EXPECT_EQ(answerTo("\n"), "ready\n");
}

}  // namespace
