// Tests of the web page of a live phone. They send requests to the page without a browser.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "simulator/foundation/descriptor.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/window/window_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::eventually;
using testing::HasSubstr;

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Sends a request for the page. Returns the response, or an empty text if no server accepts the connection.
std::string requestPage(int port) {
  const foundation::FileDescriptor connection(socket(AF_INET, SOCK_STREAM, 0));
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(connection.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return {};
  const std::string request = "GET / HTTP/1.0\r\n\r\n";
  send(connection.get(), request.data(), request.size(), MSG_NOSIGNAL);
  std::string response;
  char buffer[4096];
  for (ssize_t size = 0; (size = recv(connection.get(), buffer, sizeof buffer, 0)) > 0;)
    response.append(buffer, static_cast<std::size_t>(size));
  return response;
}

// A live phone that serves its page.
class PagePhone {
 public:
  explicit PagePhone(const std::string& environment = "")
      : process_({"/bin/sh", "-c",
                  environment + " exec " SPRINGBOARD " --live --browser --root " + (folder_.path() / "root").string() +
                      " >" + output().string() + " 2>&1"}) {}

  // Waits until the page is served, and returns its port. Returns 0 if the phone has ended.
  int port() {
    const std::string prefix = "the phone is displayed at http://127.0.0.1:";
    eventually([&] { return text().find(prefix) != std::string::npos || process_.hasEnded(); });
    const std::size_t place = text().find(prefix);
    return place == std::string::npos ? 0 : std::stoi(text().substr(place + prefix.size()));
  }

  // The process that serves the page.
  pid_t server() const {
    const std::string parent = "\nPPid:\t" + std::to_string(process_.process()) + "\n";
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
      const std::string status = contentsOf(entry.path() / "status");
      if (status.starts_with("Name:\tbroadwayd\n") && status.find(parent) != std::string::npos)
        return std::stoi(entry.path().filename());
    }
    return 0;
  }

  std::string text() const { return contentsOf(output()); }
  test::ChildProcess& process() { return process_; }

 private:
  fs::path output() const { return folder_.path() / "output"; }

  test::TemporaryFolder folder_;
  test::ChildProcess process_;
};

TEST(WebPage, IsServedAtThePrintedAddress) {
  PagePhone phone;
  const std::string response = requestPage(phone.port());
  EXPECT_THAT(response, HasSubstr("200 OK"));
  EXPECT_THAT(response, HasSubstr("broadway"));
}

TEST(WebPage, HasItsOwnAddressForEachPhone) {
  PagePhone first;
  PagePhone second;
  const int port = first.port();
  EXPECT_NE(port, 0);
  EXPECT_NE(second.port(), 0);
  EXPECT_NE(second.port(), port);
  EXPECT_NE(first.server(), second.server());
}

TEST(WebPage, EndsWithThePhone) {
  PagePhone phone;
  const int port = phone.port();
  const pid_t server = phone.server();
  ASSERT_NE(server, 0);
  kill(phone.process().process(), SIGTERM);
  EXPECT_TRUE(eventually([&] { return phone.process().hasSucceeded(); })) << phone.text();
  EXPECT_TRUE(eventually([&] { return !fs::exists("/proc/" + std::to_string(server)); }));
  EXPECT_NE(port, 0);
}

TEST(WebPage, EndsWhenThePhoneIsKilled) {
  PagePhone phone;
  phone.port();
  const pid_t server = phone.server();
  ASSERT_NE(server, 0);
  phone.process().kill();
  EXPECT_TRUE(eventually([&] { return !fs::exists("/proc/" + std::to_string(server)); }));
}

TEST(WebPage, LossOfItsServerEndsThePhone) {
  PagePhone phone;
  phone.port();
  ASSERT_NE(phone.server(), 0);
  kill(phone.server(), SIGKILL);
  EXPECT_TRUE(eventually([&] { return phone.process().hasEnded(); }));
  EXPECT_EQ(phone.process().exitStatus(), 1);
  EXPECT_THAT(phone.text(), HasSubstr("the connection to the display was lost"));
}

TEST(WebPage, WithoutItsServerProgramIsAnErrorThatNamesThePackage) {
  PagePhone phone("PATH=/nonexistent");
  EXPECT_EQ(phone.port(), 0);
  EXPECT_EQ(phone.process().exitStatus(), 2);
  EXPECT_THAT(phone.text(), HasSubstr("install the package libgtk-3-bin"));
}

}  // namespace
