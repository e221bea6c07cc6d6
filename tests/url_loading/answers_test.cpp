// What servers answer, and what comes of it.
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/url_loading/loading.hpp"
#include "tests/url_loading/raw_server.hpp"

namespace test {

namespace {

using Answers = UrlLoading;

TEST_F(Answers, HaveStatusBodyAndHeaders) {
  const Loaded loaded = loadAnswer({.body = std::string("a\0b", 3)});
  EXPECT_EQ(loaded.status, 200);
  EXPECT_EQ(loaded.body, std::string("a\0b", 3));
  EXPECT_EQ(loaded.error, std::nullopt);
}

TEST_F(Answers, OfAnyStatusAreNoErrors) {
  for (const int status : {204, 301, 404, 410, 500, 503}) {
    const Loaded loaded = loadAnswer({.status = status});
    EXPECT_EQ(loaded.status, status);
    EXPECT_EQ(loaded.error, std::nullopt) << status;
  }
}

TEST_F(Answers, WithoutBodyHaveEmptyData) { EXPECT_EQ(loadAnswer({}).body, ""); }

TEST_F(Answers, OfFailedStatusKeepTheirBodies) { EXPECT_EQ(loadAnswer({.status = 404, .body = "gone"}).body, "gone"); }

TEST_F(Answers, AreAskedForByAPlainGet) {
  loadAnswer({});
  const Request asked = server.requests().front();
  EXPECT_EQ(asked.method, "GET");
  EXPECT_EQ(asked.target, "/");
  EXPECT_EQ(asked.header("Accept"), "*/*");
}

TEST_F(Answers, KeepTheAddressAsWritten) {
  load(server.address("/a/b.png?size=80&x=%20y#part"));
  EXPECT_EQ(server.requests().front().target, "/a/b.png?size=80&x=%20y");
}

TEST_F(Answers, SendTheRequestsHeaders) {
  NSURLRequest* const wanted = request(server.address("/"));
  objc::send<void, "setValue:forHTTPHeaderField:">(wanted, "value"_ns, "X-Name"_ns);
  objc::send<void, "setValue:forHTTPHeaderField:">(wanted, "a\r\nX-Other: b"_ns, "X-Broken"_ns);
  load(wanted);
  EXPECT_EQ(server.requests().front().header("X-Name"), "value");
  EXPECT_EQ(server.requests().front().header("X-Other"), "");
}

TEST_F(Answers, HaveTheHeadersOfTheLastResponse) {
  server.answer("/old", {.status = 302, .headers = {{"Location", "/new"}, {"X-Old", "1"}}});
  server.answer("/new", {.headers = {{"X-New", "1"}, {"X-New", "2"}}});
  std::string fields;
  bool done = false;
  NSURLConnection::sendAsynchronousRequest(
      request(server.address("/old")), NSOperationQueue::mainQueue(),
      objc::block([&](NSURLResponse* response, NSData*, NSError*) {
        fields = springboard::jsonOf(objc::send<NSDictionary*, "allHeaderFields">(response)).dump();
        done = true;
      }));
  ASSERT_TRUE(runUntil([&] { return done; }));
  EXPECT_NE(fields.find(R"("X-New":"1, 2")"), std::string::npos) << fields;
  EXPECT_EQ(fields.find("X-Old"), std::string::npos) << fields;
}

TEST_F(Answers, LeadToOtherAddresses) {
  server.answer("/new", {.body = "found"});
  for (const int status : {301, 302, 303, 307, 308}) {
    server.answer("/old", {.status = status, .body = "moved", .headers = {{"Location", "/new"}}});
    const Loaded loaded = load(server.address("/old"));
    EXPECT_EQ(loaded.status, 200) << status;
    EXPECT_EQ(loaded.body, "found") << status;
  }
}

void chain(LoopbackServer& server, int redirections) {
  for (int index = 0; index < redirections; ++index)
    server.answer("/" + std::to_string(index),
                  {.status = 302, .headers = {{"Location", "/" + std::to_string(index + 1)}}});
  server.answer("/" + std::to_string(redirections), {.body = "end"});
}

TEST_F(Answers, LeadFurtherTwentyTimes) {
  chain(server, 20);
  EXPECT_EQ(load(server.address("/0")).body, "end");
}

TEST_F(Answers, ThatLeadTooFarAreErrors) {
  chain(server, 21);
  EXPECT_EQ(load(server.address("/0")).error, UrlError::TooManyRedirects);
}

TEST_F(Answers, ThatLeadInACircleAreErrors) {
  const Loaded loaded = loadAnswer({.status = 301, .headers = {{"Location", "/"}}});
  EXPECT_EQ(loaded.error, UrlError::TooManyRedirects);
  EXPECT_EQ(loaded.status, std::nullopt);
  EXPECT_EQ(loaded.body, std::nullopt);
}

TEST_F(Answers, ThatLeadOutOfTheWebAreErrors) {
  const std::string file = (testRoot() / "secret").string();
  std::ofstream(file) << "secret";
  for (const std::string& address : {"file://" + file, std::string("ftp://127.0.0.1/"), std::string("javascript:1")}) {
    const Loaded loaded = loadAnswer({.status = 302, .headers = {{"Location", address}}});
    EXPECT_EQ(loaded.error, UrlError::UnsupportedUrl) << address;
    EXPECT_EQ(loaded.body, std::nullopt) << address;
  }
}

TEST_F(Answers, ThatAreCutShortAreErrors) {
  const Loaded loaded = loadAnswer({.body = "a picture", .delivery = Delivery::CutShort});
  EXPECT_EQ(loaded.error, UrlError::ConnectionLost);
  EXPECT_EQ(loaded.status, std::nullopt);
  EXPECT_EQ(loaded.body, std::nullopt);
}

TEST_F(Answers, ThatNeverEndAreErrors) {
  EXPECT_EQ(loadAnswer({.body = std::string(100'000, 'x'), .delivery = Delivery::Endless}).error,
            UrlError::BodyTooLong);
}

TEST_F(Answers, ThatDoNotComeAreErrors) {
  EXPECT_EQ(loadAnswer({.delivery = Delivery::Nothing}).error, UrlError::ConnectionLost);
}

TEST_F(Answers, ThatAreAwaitedTooLongAreErrors) {
  server.answer("/", {.timing = Timing::WhenReleased});
  EXPECT_EQ(load(server.address("/"), 0.2).error, UrlError::TimedOut);
}

TEST_F(Answers, ThatStopComingAreErrors) {
  const RawServer stuck("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf", RawServer::Then::Stay);
  const Loaded loaded = load(stuck.address(), 0.2);
  EXPECT_EQ(loaded.error, UrlError::TimedOut);
  EXPECT_EQ(loaded.body, std::nullopt);
}

TEST_F(Answers, OfNoOneAreErrors) {
  std::string nobody;
  {
    const LoopbackServer closed;
    nobody = closed.address("/");
  }
  EXPECT_EQ(load(nobody).error, UrlError::CannotConnectToHost);
}

TEST_F(Answers, OfHostsWithoutAddressAreErrors) {
  // A name that no name server need be asked about: its parts may have 63 letters.
  EXPECT_EQ(load("http://" + std::string(70, 'a') + "/").error, UrlError::CannotFindHost);
}

TEST_F(Answers, ThatAreNotHttpAreErrors) {
  for (const char* nonsense : {"SSH-2.0-nonsense\r\n", "<html>", "HTTP/9.9 what\r\n\r\n"}) {
    const RawServer other(nonsense);
    EXPECT_EQ(load(other.address()).error, UrlError::CannotParseResponse) << nonsense;
  }
}

TEST_F(Answers, OfEndlessHeadersAreErrors) {
  const RawServer other("HTTP/1.1 200 OK\r\n" + [] {
    std::string lines;
    while (lines.size() < 1'000'000) lines += "X-Name: " + std::string(1000, 'x') + "\r\n";
    return lines;
  }());
  EXPECT_EQ(load(other.address()).error, UrlError::CannotParseResponse);
}

TEST_F(Answers, AreNotSoughtOutsideTheWeb) {
  for (const char* address : {"ftp://127.0.0.1/", "file:///etc/hostname", "data:text/plain,x", "relative", ""})
    EXPECT_EQ(load(address).error, UrlError::UnsupportedUrl) << address;
  EXPECT_EQ(
      load(objc::send<NSURLRequest*, "requestWithURL:">(NSURLRequest::classObject(), static_cast<NSURL*>(nullptr)))
          .error,
      UrlError::UnsupportedUrl);
  EXPECT_EQ(load(static_cast<NSURLRequest*>(nullptr)).error, UrlError::UnsupportedUrl);
}

TEST_F(Answers, OfThisMachineComeWithoutAProxy) {
  for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) setenv(name, "http://127.0.0.1:1", 1);
  setenv("no_proxy", "elsewhere.example", 1);
  EXPECT_EQ(loadAnswer({.body = "direct"}).body, "direct");
}

}  // namespace

}  // namespace test
