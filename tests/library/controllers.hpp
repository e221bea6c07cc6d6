// Access to the library's controllers and banners in the simulated phone, and to the notification by which they
// communicate.
#pragma once

#include <map>
#include <string>

#include "library/controller/banner_controller.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_notification_center.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"

namespace test {

// The controller that has this number in the script interface. nil if it was released.
inline objc::Ref<BannerController> controllerOf(int number) {
  const auto shortLook = springboard::bannerController(static_cast<std::size_t>(number));
  return objc::retain(reinterpret_cast<BannerController*>(shortLook.get()));
}

// The banner of the controller with this number. The controller must exist. nil if it has no banner.
inline BrimContainer* containerOf(int number) { return controllerOf(number)->brimView(); }

// Posts a notification within the process.
inline void postNotification(const std::string& name, const std::map<std::string, std::string>& userInfo) {
  const objc::AutoreleasePool pool;
  NSMutableDictionary* info = NSMutableDictionary::dictionaryWithCapacity(userInfo.size());
  for (const auto& [key, value] : userInfo) info->setObject(base::stringOf(value), base::stringOf(key));
  NSNotificationCenter::defaultCenter()->post(base::stringOf(name), info);
}

// Posts a command to all controllers, as banners do.
inline void postCommand(const std::map<std::string, std::string>& userInfo) {
  postNotification("BrimNotification", userInfo);
}

}  // namespace test
