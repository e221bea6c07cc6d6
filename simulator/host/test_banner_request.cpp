#include "simulator/host/test_banner_request.hpp"

#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/host/deadline.hpp"
#include "simulator/springboard/observation.hpp"

namespace host {

namespace {

constexpr double secondsToWait = 5;

// Hears the request after those that listened before.
class TestBannerEcho : public objc::Interface<"SBTestBannerEcho", NSObject> {};

bool hasArrived = false;

void received(TestBannerEcho*, NSNotification*) { hasArrived = true; }

NSObject* makeEcho() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"receivedRequest:", &received>()};
  objc::defineClass<TestBannerEcho>(methods);
  return objc::make<TestBannerEcho>().leak();
}

}  // namespace

bool postTestBannerRequest() {
  static NSObject* const echo = makeEcho();
  NSString* const name = "com.lumetra.brim.receivedbannertest"_ns;
  NSDistributedNotificationCenter* center = NSDistributedNotificationCenter::defaultCenter();
  center->addObserver(echo, objc::selector<"receivedRequest:">(), name);
  hasArrived = false;
  springboard::postUnobserved(name);
  const Deadline deadline(secondsToWait);
  while (!hasArrived && !deadline.hasPassed()) foundation::pumpFoundation(0.1);
  center->removeObserver(echo, name);
  foundation::drainMainQueue();
  return hasArrived;
}

}  // namespace host
