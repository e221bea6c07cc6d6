// Tests of the HTTP server that other tests use, accessed over plain sockets.
#include "tests/support/loopback_server.hpp"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using test::Delivery;
using test::LoopbackServer;
using test::Timing;

// A client with one connection. Sends a GET request for the target.
class Client {
 public:
  Client(const LoopbackServer& server, const std::string& target) : descriptor_(socket(AF_INET, SOCK_STREAM, 0)) {
    const std::string address = server.address();
    sockaddr_in socketAddress{};
    socketAddress.sin_family = AF_INET;
    socketAddress.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socketAddress.sin_port = htons(static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1))));
    EXPECT_EQ(connect(descriptor_, reinterpret_cast<sockaddr*>(&socketAddress), sizeof socketAddress), 0);
    const std::string request = "GET " + target + " HTTP/1.1\r\nHost: here\r\nAccept: image/png\r\n\r\n";
    EXPECT_EQ(send(descriptor_, request.data(), request.size(), 0), static_cast<ssize_t>(request.size()));
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client() { close(descriptor_); }

  // Receives until the server closes the connection or at least `minSize` bytes have arrived.
  std::string receive(std::size_t minSize = std::string::npos) {
    std::string received;
    char buffer[4096];
    while (received.size() < minSize) {
      const ssize_t count = recv(descriptor_, buffer, sizeof buffer, 0);
      if (count <= 0) break;
      received.append(buffer, static_cast<std::size_t>(count));
    }
    return received;
  }

 private:
  int descriptor_;
};

TEST(LoopbackServer, SendsTheResponseOfTheTarget) {
  LoopbackServer server;
  server.answer("/a?b=1", {.status = 301, .body = "moved", .headers = {{"Location", "/c"}}});
  EXPECT_EQ(Client(server, "/a?b=1").receive(),
            "HTTP/1.1 301 Scripted\r\nLocation: /c\r\nContent-Length: 5\r\nConnection: close\r\n\r\nmoved");
}

TEST(LoopbackServer, AnswersOtherTargetsWithNotFound) {
  const LoopbackServer server;
  EXPECT_TRUE(Client(server, "/nowhere").receive().starts_with("HTTP/1.1 404 "));
}

TEST(LoopbackServer, RecordsRequestsInOrder) {
  const LoopbackServer server;
  Client(server, "/first").receive();
  Client(server, "/second").receive();
  ASSERT_TRUE(server.waitForRequests(2));
  const std::vector<test::Request> requests = server.requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0].method, "GET");
  EXPECT_EQ(requests[0].target, "/first");
  EXPECT_EQ(requests[0].header("accept"), "image/png");
  EXPECT_EQ(requests[1].target, "/second");
}

TEST(LoopbackServer, CutsAResponseShort) {
  LoopbackServer server;
  server.answer("/", {.body = "12345678", .delivery = Delivery::CutShort});
  const std::string received = Client(server, "/").receive();
  EXPECT_NE(received.find("Content-Length: 8\r\n"), std::string::npos);
  EXPECT_TRUE(received.ends_with("\r\n\r\n1234"));
}

TEST(LoopbackServer, ClosesTheConnectionWithoutAResponse) {
  LoopbackServer server;
  server.answer("/", {.delivery = Delivery::Nothing});
  EXPECT_EQ(Client(server, "/").receive(), "");
}

TEST(LoopbackServer, SendsAnEndlessBodyUntilTheClientDisconnects) {
  LoopbackServer server;
  server.answer("/", {.body = std::string(1000, 'x'), .delivery = Delivery::Endless});
  const std::string received = Client(server, "/").receive(1'000'000);
  EXPECT_GE(received.size(), 1'000'000U);
  EXPECT_EQ(received.find("Content-Length"), std::string::npos);
}

TEST(LoopbackServer, DelaysAResponseUntilItIsReleased) {
  LoopbackServer server;
  server.answer("/", {.body = "late", .timing = Timing::WhenReleased});
  Client client(server, "/");
  ASSERT_TRUE(server.waitForRequests(1));
  server.release();
  EXPECT_TRUE(client.receive().ends_with("late"));
}

TEST(LoopbackServer, CanBeDestroyedWhileAResponseIsDelayed) {
  LoopbackServer server;
  server.answer("/", {.timing = Timing::WhenReleased});
  const Client client(server, "/");
  EXPECT_TRUE(server.waitForRequests(1));
}

}  // namespace
