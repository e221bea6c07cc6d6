#include "simulator/runner/test_banner_request.hpp"

#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/runner/deadline.hpp"
#include "simulator/springboard/services/notification_recorder.hpp"

namespace runner {

namespace {

constexpr double maxWait = 5;
constexpr double pollInterval = 0.1;

// Receives the request in this process. It is notified after all observers that were added earlier.
class TestBannerEcho : public objc::Interface<"SBTestBannerEcho", NSObject> {};

bool hasArrived = false;

void received(TestBannerEcho*, NSNotification*) { hasArrived = true; }

NSString* requestName() { return "com.lumetra.brim.receivedbannertest"_ns; }

// The observer is never removed, because the notification center never frees its record of an observer.
bool addObserver() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"receivedRequest:", &received>()};
  objc::defineClass<TestBannerEcho>(methods);
  NSDistributedNotificationCenter::defaultCenter()->addObserver(objc::make<TestBannerEcho>().leak(),
                                                                objc::selector<"receivedRequest:">(), requestName());
  return true;
}

}  // namespace

bool postTestBannerRequest() {
  [[maybe_unused]] static const bool isObserving = addObserver();
  hasArrived = false;
  springboard::postUnrecorded(requestName());
  const Deadline deadline(maxWait);
  while (!hasArrived && !deadline.hasPassed()) foundation::pumpRunLoopAndMainQueue(pollInterval);
  return hasArrived;
}

}  // namespace runner
