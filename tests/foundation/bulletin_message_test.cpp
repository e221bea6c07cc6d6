// Tests of sending a bulletin to several home screens of a root.
#include "simulator/process/bulletin_message.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "simulator/foundation/local_socket.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;
using foundation::FileDescriptor;

constexpr pid_t firstProcess = 1;  // This process always exists.

class Bulletins : public testing::Test {
 protected:
  Bulletins() { fs::create_directories(process::bulletinFolder(root())); }

  const fs::path& root() const { return folder_.path(); }
  FileDescriptor listenAs(pid_t process) const {
    return foundation::listenIn(process::bulletinFolder(root()), process::bulletinSocketOf(process).c_str());
  }
  bool hasSocket(pid_t process) const {
    return fs::exists(process::bulletinFolder(root()) / process::bulletinSocketOf(process));
  }
  bool send() const { return process::sendBulletin(root(), {"com.apple.MobileSMS", "1", "Anna", "Lunch?"}); }

 private:
  test::TemporaryFolder folder_;
};

bool hasConnection(const FileDescriptor& listening) {
  pollfd connection = {listening.get(), POLLIN, 0};
  return poll(&connection, 1, 0) == 1;
}

// Accepts a connection and returns the text of its bulletin.
std::string receiveFrom(const FileDescriptor& listening) {
  if (!hasConnection(listening)) return "no connection";
  const FileDescriptor accepted = foundation::acceptFrom(listening);
  char buffer[4096];
  const ssize_t size = recv(accepted.get(), buffer, sizeof buffer, MSG_DONTWAIT);
  const auto bulletin = process::parseBulletin({buffer, size > 0 ? static_cast<std::size_t>(size) : 0});
  return bulletin ? bulletin->message : "no bulletin";
}

TEST_F(Bulletins, AllHomeScreensOfTheRootReceiveABulletin) {
  const FileDescriptor first = listenAs(firstProcess);
  EXPECT_TRUE(send());
  const FileDescriptor second = listenAs(getpid());
  EXPECT_TRUE(send());
  EXPECT_EQ(receiveFrom(first), "Lunch?");
  EXPECT_EQ(receiveFrom(first), "Lunch?");
  EXPECT_EQ(receiveFrom(second), "Lunch?");
  EXPECT_FALSE(hasConnection(second));
}

TEST_F(Bulletins, MalformedTextIsRejected) {
  const std::string deep = std::string(100000, '[');
  for (const std::string& text : {std::string(), std::string("{"), std::string("[]"), std::string("{}\0", 3), deep})
    EXPECT_FALSE(process::parseBulletin(text)) << text.substr(0, 10);
  const auto wrongTypes = process::parseBulletin(R"({"section":1,"title":[],"message":null})");
  ASSERT_TRUE(wrongTypes);
  EXPECT_EQ(wrongTypes->section + wrongTypes->title + wrongTypes->message, "");
}

TEST_F(Bulletins, HomeScreenReceivesBulletinsAfterAnotherOneHasEnded) {
  const FileDescriptor first = listenAs(firstProcess);
  listenAs(getpid());
  EXPECT_TRUE(send());
  EXPECT_EQ(receiveFrom(first), "Lunch?");
}

TEST_F(Bulletins, SendingReportsThatNoHomeScreenIsRunning) {
  EXPECT_FALSE(send());
  listenAs(getpid());
  EXPECT_FALSE(send());
}

TEST_F(Bulletins, OnlySocketsOfEndedProcessesAreRemoved) {
  const pid_t ended = fork();
  if (ended == 0) _exit(0);
  ASSERT_EQ(waitpid(ended, nullptr, 0), ended);
  for (const pid_t process : {firstProcess, ended, getpid()}) listenAs(process);
  process::removeStaleBulletinSockets(root());
  EXPECT_TRUE(hasSocket(firstProcess));
  EXPECT_FALSE(hasSocket(ended));
  EXPECT_TRUE(hasSocket(getpid()));
}

}  // namespace
