// Tests of the await command: which events end a wait and which do not.
#include "objc/autorelease_pool.hpp"
#include "platform/ns_url_connection.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "tests/support/loopback_server.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

TEST(Await, EndsAtAnEarlierEventThatNoAwaitHasConsumed) {
  PlainPhone phone;
  base::recordEvent("photo", Json::object());
  phone.run("await", {{"for", "photo"}, {"seconds", 0}});
  const Json again = phone.answer({{"do", "await"}, {"for", "photo"}, {"seconds", 0}});
  EXPECT_FALSE(again.at("ok").get<bool>());
}

TEST(Await, ConsumesOneEventAtATime) {
  PlainPhone phone;
  for (int count = 0; count < 2; ++count) base::recordEvent("message", Json::object());
  for (int count = 0; count < 2; ++count) phone.run("await", {{"for", "message"}, {"seconds", 0}});
  const Json third = phone.answer({{"do", "await"}, {"for", "message"}, {"seconds", 0}});
  EXPECT_FALSE(third.at("ok").get<bool>());
}

TEST(Await, ForPhotosIgnoresEventsBeforeTheLatestNotification) {
  PlainPhone phone;
  base::recordEvent("photo", Json::object());
  phone.present();
  const Json answer = phone.answer({{"do", "await"}, {"for", "photo"}, {"seconds", 0}});
  EXPECT_FALSE(answer.at("ok").get<bool>());
}

TEST(Await, RunsBlocksFromOtherThreads) {
  PlainPhone phone;
  foundation::onMainThread([] { base::recordEvent("http", Json::object()); });
  phone.run("await", {{"for", "http"}});
}

TEST(Await, IdleEndsIfNothingIsPending) {
  PlainPhone phone;
  phone.run("await", {{"for", "idle"}, {"seconds", 5}});
}

void sendRequest(const std::string& address) {
  NSURL* const url = NSURL::withString(base::stringOf(address));
  NSURLConnection::sendAsynchronousRequest(NSURLRequest::withURL(url), NSOperationQueue::mainQueue(), nullptr);
}

TEST(Await, IdleWaitsForPendingRequests) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  test::LoopbackServer server;
  server.answer("/slow", {.body = "x", .timing = test::Timing::WhenReleased});
  sendRequest(server.address("/slow"));
  const Json early = phone.answer({{"do", "await"}, {"for", "idle"}, {"seconds", 0.5}});
  EXPECT_FALSE(early.at("ok").get<bool>());
  server.release();
  phone.run("await", {{"for", "idle"}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "http"}, {"url", server.address("/slow")}, {"status", 200}}}));
}

TEST(Await, HttpEndsAtAResponseAndAtAnError) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  test::LoopbackServer server;
  server.answer("/", {.status = 503});
  sendRequest(server.address("/"));
  phone.run("await", {{"for", "http"}});
  EXPECT_EQ(phone.log().at(0).at("status"), 503);
  sendRequest("http://" + std::string(70, 'a') + "/");
  phone.run("await", {{"for", "http"}});
  EXPECT_EQ(phone.log().at(0).at("error"), -1003);
  EXPECT_FALSE(phone.answer({{"do", "await"}, {"for", "http"}, {"seconds", 0}}).at("ok").get<bool>());
}

}  // namespace
