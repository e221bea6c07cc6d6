// Posts one distributed notification: post_distributed NAME TEXT. The other process of a test, in whose root it works.
#include "objc/autorelease_pool.hpp"
#include "platform/ns_notification_center.hpp"

int main(int, char** arguments) {
  const objc::AutoreleasePool pool;
  NSMutableDictionary* const information = NSMutableDictionary::dictionaryWithCapacity(1);
  information->setObject(NSString::stringWithUTF8String(arguments[2]), "text"_ns);
  auto* const center =
      objc::send<NSNotificationCenter*, "defaultCenter">(objc::lookUpClass<"NSDistributedNotificationCenter">());
  center->post(NSString::stringWithUTF8String(arguments[1]), information);
}
