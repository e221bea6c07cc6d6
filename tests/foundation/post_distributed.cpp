// Usage: post_distributed NAME TEXT. Posts one distributed notification with TEXT under the key "text". Tests start
// this program as a second process. It uses the same root as the test.
#include "objc/autorelease_pool.hpp"
#include "platform/ns_notification_center.hpp"
#include "simulator/foundation/ignored_leaks.hpp"

int main(int, char** arguments) {
  // Foundation leaks its objects for the daemon.
  const foundation::IgnoredLeaks ignored;
  const objc::AutoreleasePool pool;
  NSMutableDictionary* const information = NSMutableDictionary::dictionaryWithCapacity(1);
  information->setObject(NSString::stringWithUTF8String(arguments[2]), "text"_ns);
  auto* const center =
      objc::send<NSNotificationCenter*, "defaultCenter">(objc::lookUpClass<"NSDistributedNotificationCenter">());
  center->post(NSString::stringWithUTF8String(arguments[1]), information);
}
