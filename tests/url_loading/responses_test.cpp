// Tests of the responses of servers, and of the result or the error that a completion receives for each response.
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/url_loading/raw_server.hpp"
#include "tests/url_loading/url_loading_test.hpp"

namespace test {

namespace {

using Responses = UrlLoadingTest;

TEST_F(Responses, HaveStatusAndBody) {
  const LoadResult result = loadResponse({.body = std::string("a\0b", 3)});
  EXPECT_EQ(result.status, 200);
  EXPECT_EQ(result.body, std::string("a\0b", 3));
  EXPECT_EQ(result.error, std::nullopt);
}

TEST_F(Responses, AreNotErrorsRegardlessOfTheirStatus) {
  for (const int status : {204, 301, 404, 410, 500, 503}) {
    const LoadResult result = loadResponse({.status = status});
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.error, std::nullopt) << status;
  }
}

TEST_F(Responses, HaveEmptyDataIfTheyHaveNoBody) { EXPECT_EQ(loadResponse({}).body, ""); }

TEST_F(Responses, KeepTheirBodiesIfTheirStatusIsAnError) {
  EXPECT_EQ(loadResponse({.status = 404, .body = "gone"}).body, "gone");
}

TEST_F(Responses, RequestUsesGet) {
  loadResponse({});
  const Request received = server.requests().front();
  EXPECT_EQ(received.method, "GET");
  EXPECT_EQ(received.target, "/");
  EXPECT_EQ(received.header("Accept"), "*/*");
}

TEST_F(Responses, RequestUsesTheUnchangedAddress) {
  load(server.address("/a/b.png?size=80&x=%20y#part"));
  EXPECT_EQ(server.requests().front().target, "/a/b.png?size=80&x=%20y");
}

TEST_F(Responses, RequestContainsItsHeaders) {
  NSURLRequest* const sentRequest = request(server.address("/"));
  objc::send<void, "setValue:forHTTPHeaderField:">(sentRequest, "value"_ns, "X-Name"_ns);
  objc::send<void, "setValue:forHTTPHeaderField:">(sentRequest, "a\r\nX-Other: b"_ns, "X-Broken"_ns);
  load(sentRequest);
  EXPECT_EQ(server.requests().front().header("X-Name"), "value");
  EXPECT_EQ(server.requests().front().header("X-Other"), "");
}

TEST_F(Responses, HaveTheHeadersOfTheFinalResponse) {
  server.answer("/old", {.status = 302, .headers = {{"Location", "/new"}, {"X-Old", "1"}}});
  server.answer("/new", {.headers = {{"X-New", "1"}, {"X-New", "2"}}});
  std::string fields;
  bool done = false;
  NSURLConnection::sendAsynchronousRequest(
      request(server.address("/old")), NSOperationQueue::mainQueue(),
      objc::block([&](NSURLResponse* response, NSData*, NSError*) {
        fields = base::jsonOf(objc::send<NSDictionary*, "allHeaderFields">(response)).dump();
        done = true;
      }));
  ASSERT_TRUE(runUntil([&] { return done; }));
  EXPECT_NE(fields.find(R"("X-New":"1, 2")"), std::string::npos) << fields;
  EXPECT_EQ(fields.find("X-Old"), std::string::npos) << fields;
}

TEST_F(Responses, RedirectionsAreFollowed) {
  server.answer("/new", {.body = "found"});
  for (const int status : {301, 302, 303, 307, 308}) {
    server.answer("/old", {.status = status, .body = "moved", .headers = {{"Location", "/new"}}});
    const LoadResult result = load(server.address("/old"));
    EXPECT_EQ(result.status, 200) << status;
    EXPECT_EQ(result.body, "found") << status;
  }
}

void setRedirections(LoopbackServer& server, int redirections) {
  for (int index = 0; index < redirections; ++index)
    server.answer("/" + std::to_string(index),
                  {.status = 302, .headers = {{"Location", "/" + std::to_string(index + 1)}}});
  server.answer("/" + std::to_string(redirections), {.body = "end"});
}

TEST_F(Responses, TwentyRedirectionsAreFollowed) {
  setRedirections(server, 20);
  EXPECT_EQ(load(server.address("/0")).body, "end");
}

TEST_F(Responses, MoreRedirectionsAreAnError) {
  setRedirections(server, 21);
  EXPECT_EQ(load(server.address("/0")).error, UrlError::TooManyRedirects);
}

TEST_F(Responses, CircularRedirectionIsAnError) {
  const LoadResult result = loadResponse({.status = 301, .headers = {{"Location", "/"}}});
  EXPECT_EQ(result.error, UrlError::TooManyRedirects);
  EXPECT_EQ(result.status, std::nullopt);
  EXPECT_EQ(result.body, std::nullopt);
}

TEST_F(Responses, RedirectionToAnotherSchemeIsAnError) {
  const std::string file = (testRoot() / "secret").string();
  std::ofstream(file) << "secret";
  for (const std::string& address : {"file://" + file, std::string("ftp://127.0.0.1/"), std::string("javascript:1")}) {
    const LoadResult result = loadResponse({.status = 302, .headers = {{"Location", address}}});
    EXPECT_EQ(result.error, UrlError::UnsupportedUrl) << address;
    EXPECT_EQ(result.body, std::nullopt) << address;
  }
}

TEST_F(Responses, TruncatedBodyIsAnError) {
  const LoadResult result = loadResponse({.body = "a picture", .delivery = Delivery::CutShort});
  EXPECT_EQ(result.error, UrlError::ConnectionLost);
  EXPECT_EQ(result.status, std::nullopt);
  EXPECT_EQ(result.body, std::nullopt);
}

TEST_F(Responses, EndlessBodyIsAnError) {
  EXPECT_EQ(loadResponse({.body = std::string(100'000, 'x'), .delivery = Delivery::Endless}).error,
            UrlError::BodyTooLong);
}

TEST_F(Responses, ConnectionClosedWithoutAResponseIsAnError) {
  EXPECT_EQ(loadResponse({.delivery = Delivery::Nothing}).error, UrlError::ConnectionLost);
}

TEST_F(Responses, TimeOutBeforeTheResponseIsAnError) {
  server.answer("/", {.timing = Timing::WhenReleased});
  EXPECT_EQ(load(server.address("/"), 0.2).error, UrlError::TimedOut);
}

TEST_F(Responses, TimeOutDuringTheResponseIsAnError) {
  const RawServer stalledServer("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf", RawServer::AfterBytes::KeepOpen);
  const LoadResult result = load(stalledServer.address(), 0.2);
  EXPECT_EQ(result.error, UrlError::TimedOut);
  EXPECT_EQ(result.body, std::nullopt);
}

TEST_F(Responses, PortWithoutAServerIsAnError) {
  std::string unusedAddress;
  {
    const LoopbackServer closed;
    unusedAddress = closed.address("/");
  }
  EXPECT_EQ(load(unusedAddress).error, UrlError::CannotConnectToHost);
}

TEST_F(Responses, UnknownHostIsAnError) {
  // A label of a host name has at most 63 characters, so this name fails without a DNS query.
  EXPECT_EQ(load("http://" + std::string(70, 'a') + "/").error, UrlError::CannotFindHost);
}

TEST_F(Responses, ResponseThatIsNotHttpIsAnError) {
  for (const char* bytes : {"SSH-2.0-nonsense\r\n", "<html>", "HTTP/9.9 what\r\n\r\n"}) {
    const RawServer rawServer(bytes);
    EXPECT_EQ(load(rawServer.address()).error, UrlError::CannotParseResponse) << bytes;
  }
}

TEST_F(Responses, ExcessivelyLongHeadersAreAnError) {
  const RawServer rawServer("HTTP/1.1 200 OK\r\n" + [] {
    std::string lines;
    while (lines.size() < 1'000'000) lines += "X-Name: " + std::string(1000, 'x') + "\r\n";
    return lines;
  }());
  EXPECT_EQ(load(rawServer.address()).error, UrlError::CannotParseResponse);
}

TEST_F(Responses, OnlyHttpAddressesAreRequested) {
  for (const char* address : {"ftp://127.0.0.1/", "file:///etc/hostname", "data:text/plain,x", "relative", ""})
    EXPECT_EQ(load(address).error, UrlError::UnsupportedUrl) << address;
  EXPECT_EQ(
      load(objc::send<NSURLRequest*, "requestWithURL:">(NSURLRequest::classObject(), static_cast<NSURL*>(nullptr)))
          .error,
      UrlError::UnsupportedUrl);
  EXPECT_EQ(load(static_cast<NSURLRequest*>(nullptr)).error, UrlError::UnsupportedUrl);
}

TEST_F(Responses, LoopbackAddressesBypassTheProxy) {
  for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) setenv(name, "http://127.0.0.1:1", 1);
  setenv("no_proxy", "elsewhere.example", 1);
  EXPECT_EQ(loadResponse({.body = "direct"}).body, "direct");
}

}  // namespace

}  // namespace test
