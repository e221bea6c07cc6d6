#include "simulator/runner/test_banner_request.hpp"

#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/runner/deadline.hpp"
#include "simulator/springboard/services/notification_recorder.hpp"

namespace runner {

namespace {

constexpr double secondsToWait = 5;
constexpr double secondsOfOneLook = 0.1;

// Hears the request after those that listened before.
class TestBannerEcho : public objc::Interface<"SBTestBannerEcho", NSObject> {};

bool hasArrived = false;

void received(TestBannerEcho*, NSNotification*) { hasArrived = true; }

NSString* requestName() { return "com.lumetra.brim.receivedbannertest"_ns; }

// It stays: the center keeps something of every observer that it ever had.
bool listen() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"receivedRequest:", &received>()};
  objc::defineClass<TestBannerEcho>(methods);
  NSDistributedNotificationCenter::defaultCenter()->addObserver(objc::make<TestBannerEcho>().leak(),
                                                                objc::selector<"receivedRequest:">(), requestName());
  return true;
}

}  // namespace

bool postTestBannerRequest() {
  [[maybe_unused]] static const bool isListening = listen();
  hasArrived = false;
  springboard::postUnrecorded(requestName());
  const Deadline deadline(secondsToWait);
  while (!hasArrived && !deadline.hasPassed()) foundation::letNewsIn(secondsOfOneLook);
  return hasArrived;
}

}  // namespace runner
